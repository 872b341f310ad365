#include "controls/error_reporter.h"

#include "controls/error_texts.h"
#include "serial/port.h"
#include "source/errors.h"

#include <utility>

namespace zps {

void ErrorReporter::Run(const void* timer, const std::function<void()>& handler) {
    try {
        handler();
        ShownForTimer.erase(timer);
    } catch (const serial::PortError& error) {
        Report(timer, MessageOf(error));
    } catch (const OverflowError& error) {
        Report(timer, MessageOf(error));
    }
}

void ErrorReporter::Report(const void* timer, const Message& message) {
    if (timer != nullptr && std::exchange(ShownForTimer[timer], message.Text) == message.Text)
        return;
    Boxes.Show(Parent, message);
}

}  // namespace zps

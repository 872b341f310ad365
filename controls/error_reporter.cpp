#include "controls/error_reporter.h"

#include "serial/port.h"
#include "source/errors.h"

#include <utility>

namespace zps {

Message PortMessage(int commPort, const QString& reason) {
    return {MessageIcon::Critical, QStringLiteral("통신 포트 에라"),
            QStringLiteral("COM%1 포트를 사용할 수 없습니다.\n%2").arg(commPort).arg(reason)};
}

void ErrorReporter::Run(const void* timer, const std::function<void()>& handler) {
    try {
        handler();
        ShownForTimer.erase(timer);
    } catch (const serial::PortError& error) {
        Report(timer, PortMessage(error.CommPort, QString::fromLocal8Bit(error.what())));
    } catch (const OverflowError& error) {
        Report(timer, {MessageIcon::Critical, QStringLiteral("값 변환 에라"),
                       QStringLiteral("값을 보낼 수 없어 동작을 중단했습니다.\n%1")
                           .arg(QString::fromStdString(error.what()))});
    }
}

void ErrorReporter::Report(const void* timer, const Message& message) {
    if (timer != nullptr && std::exchange(ShownForTimer[timer], message.Text) == message.Text)
        return;
    Boxes.Show(Parent, message);
}

}  // namespace zps

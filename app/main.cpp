#include "app/program.h"
#include "controls/error_texts.h"
#include "platform/qt_event_loop.h"
#include "serial/asio_port.h"

#include <QApplication>

int main(int /*argc*/, char** argv) {
    int wordsTaken = 1;  // the panel takes no command line
    QApplication application(wordsTaken, argv);
    zps::DressApplication();
    zps::platform::QtEventLoop loop;
    zps::serial::AsioPortMaker ports(loop);
    zps::ToolkitMessageBoxes boxes;
    const auto pointer = zps::platform::MakePointerConfinement();
    zps::platform::SystemWebBrowser browser;
    zps::Program program({ports, loop, boxes, *pointer, browser});
    try {
        program.StartUp();
    } catch (const zps::serial::PortError& error) {
        boxes.Show(nullptr, zps::MessageOf(error));
        return 1;
    }
    return QApplication::exec();
}

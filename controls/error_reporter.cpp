#include "controls/error_reporter.h"

#include "serial/port.h"
#include "source/errors.h"

namespace zps {

Message PortMessage(int commPort, const QString& reason) {
    return {MessageIcon::Critical, QStringLiteral("통신 포트 에라"),
            QStringLiteral("COM%1 포트를 사용할 수 없습니다.\n%2").arg(commPort).arg(reason)};
}

void ErrorReporter::Run(Origin origin, const std::function<void()>& handler) {
    try {
        handler();
        if (origin == Origin::Timer) TimerErrorShown = false;
    } catch (const serial::PortError& error) {
        Report(origin, PortMessage(error.CommPort, QString::fromStdString(error.what())));
    } catch (const OverflowError& error) {
        Report(origin, {MessageIcon::Critical, QStringLiteral("값 변환 에라"),
                        QStringLiteral("값을 보낼 수 없어 동작을 중단했습니다.\n%1")
                            .arg(QString::fromStdString(error.what()))});
    }
}

void ErrorReporter::ReportPort(int commPort, const QString& reason) {
    Boxes.Show(Parent, PortMessage(commPort, reason));
}

void ErrorReporter::Report(Origin origin, const Message& message) {
    if (origin == Origin::Timer) {
        if (TimerErrorShown) return;
        TimerErrorShown = true;
    }
    Boxes.Show(Parent, message);
}

}  // namespace zps

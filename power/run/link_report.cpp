#include "power/run/link_report.h"

#include "power/panel/header_layout.h"
#include "power/panel/link_layout.h"
#include "power/run/event_texts.h"

namespace zps {

LinkReport::LinkReport(PowerParts& parts, HeldSteps& held, LinkQuality& quality,
                       LastEvent& happened, Timekeeper& time)
    : Parts(parts), Quality(quality), Happened(happened), Link(quality, time) {
    DescribeLink(Parts.Controls, Quality);
    Happened.OnChange([this] { ShowEvent(Parts.Controls, Happened.Get()); });
    held.OnRefusal([this](int step, StepValues values) {
        Happened.Note(EventKind::Refused, RefusalText(step, values));
    });
    Link.OnChange([this] { Parts.Controls.lblPOLL->Show(Link.Seen()); });
    Link.OnLost([this] {
        Happened.Note(EventKind::LinkLost, QStringLiteral("전원 장치의 응답이 끊겼습니다."));
    });
    Link.OnBack([this](std::chrono::seconds away) { NoteBack(away); });
}

void LinkReport::OutputSwitched(bool on) {
    if (on) {
        Happened.Forget();
        Quality.OutputWentOn();
    }
    Link.Look();
}

void LinkReport::ShowConnection(const std::string& device) {
    QLabel& label = *Parts.Controls.lblLINK;
    label.setText(
        QStringLiteral("COM%1 · 주소 %2").arg(Parts.Source.CommPort).arg(Parts.Source.PowerAddr));
    label.setToolTip(QString::fromStdString(device));
}

void LinkReport::NoteBack(std::chrono::seconds away) {
    Happened.Note(EventKind::LinkBack,
                  QStringLiteral("응답이 %1초 만에 다시 왔습니다.").arg(away.count()));
}

}  // namespace zps

#include "power/run/link_report.h"

#include "power/panel/header_layout.h"
#include "power/panel/link_layout.h"
#include "power/run/event_texts.h"

namespace zps {

LinkReport::LinkReport(PowerParts& parts, HeldSteps& held, LinkQuality& quality, History& happened,
                       Timekeeper& time)
    : Parts(parts), Quality(quality), Happened(happened), Last(happened), Link(quality, time) {
    DescribeLink(Parts.Controls, Quality);
    Last.OnChange([this] { ShowEvent(Parts.Controls, Last.Get()); });
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
        Last.Forget();
        Quality.OutputWentOn();
    }
    Link.Look();
}

void LinkReport::ShowConnection(const std::string& device) {
    QLabel& label = *Parts.Controls.lblLINK;
    const std::pair<int, int> now(Parts.Source.CommPort, Parts.Source.PowerAddr);
    const QString text = QStringLiteral("COM%1 · 주소 %2").arg(now.first).arg(now.second);
    label.setText(text);
    label.setToolTip(QString::fromStdString(device));
    if (std::exchange(Connection, now) != now) Happened.Note(EventKind::Port, text);
}

void LinkReport::NoteBack(std::chrono::seconds away) {
    Happened.Note(EventKind::LinkBack,
                  QStringLiteral("응답이 %1초 만에 다시 왔습니다.").arg(away.count()));
}

}  // namespace zps

#include "power/way_out.h"

#include <QCoreApplication>

#include <utility>

namespace zps {

WayOut::WayOut(PowerParts& parts, Commands& commands, Surround around)
    : Parts(parts), Around(std::move(around)) {
    commands.Connect(*Parts.Controls.mnuPROGRAM_END, [this] { mnuPROGRAM_END_Click(); });
}

bool WayOut::Confirmed(MessageIcon icon) {
    Message question{icon, QStringLiteral("프로그램 종료"),
                     QStringLiteral("프로그램을 종료합니다."), MessageButtons::YesNo,
                     Around.Out.Known() == OutputState::Off ? Answer::Yes : Answer::No};
    if (Around.Table.Sending()) {
        question.Meaning =
            QStringLiteral("단계를 송신하는 중입니다. 종료하면 남은 단계는 보내지 않습니다.");
    }
    return Parts.Boxes.Show(&Parts.Window, question) == Answer::Yes;
}

void WayOut::mnuPROGRAM_END_Click() {
    Around.Polls.Stop();
    if (!Confirmed(MessageIcon::Information)) return;
    const int address = Parts.Source.PowerAddr;
    if (Around.Port.PortOpen()) {
        Parts.Source.LayFrame(ProbeFrame(address, code::Dc1, address));
        Parts.Sender.TransmitFrame();
        Around.Port.SetPortOpen(false);
    }
    Around.EndExchanges();
    Around.Closed();
    QCoreApplication::exit(0);
}

bool WayOut::MayUnload() {
    if (!Confirmed(MessageIcon::Question)) return false;
    Around.EndExchanges();
    if (Around.Port.PortOpen()) {
        Parts.Sender.Send(ControlFrame(Parts.Source.PowerAddr, code::Dc1), ExpectAck);
        Around.Port.SetPortOpen(false);
    }
    return true;
}

bool WayOut::Close() {
    bool closes = false;
    Around.Table.LetIn([&] {
        closes = MayUnload();
        if (closes) Around.Closed();
    });
    return closes;
}

}  // namespace zps

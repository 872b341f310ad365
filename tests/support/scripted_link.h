// The way from the panel to its supply at address 1 without a window, on a scripted line.
#pragma once

#include "source/transmitter.h"
#include "tests/support/scripted_time.h"

#include <functional>
#include <memory>

namespace zps::tests {

using namespace std::chrono_literals;

class ScriptedLink {
  public:
    ScriptedLink() {
        Port->SetPortOpen(true);
        Source.PowerAddr = 1;
        Port->OnReceive(serial::EventKind::Input,
                        [this] { BoxUp ? void(Waiting = true) : Receive(); });
    }
    // A message box keeps the receive event waiting, but not the ticks.
    void ShowBox(bool up) {
        BoxUp = up;
        if (!up && std::exchange(Waiting, false)) Receive();
    }

    const Bytes Acknowledged{1, 6, 7};
    const Bytes Refused{1, 21, 22};
    PlainEventLoop Loop;
    const std::shared_ptr<ScriptedLine> Line = std::make_shared<ScriptedLine>();
    const std::unique_ptr<serial::Port> Port = ScriptedPortMaker(Loop, Line).MakePort();
    ScriptedTime Time{*Line, Loop};
    SOURCE Source;
    Transmitter Sender{Source, *Port, [this] { return Time.Now(); }};
    // What is done with a reply once it has been judged.
    std::function<void(Reply)> OnReply = [](Reply) {};

  private:
    void Receive() {
        const bool data = Source.ReplyFlag() == ExpectData;
        const Bytes reply =
            GatherReply(*Port, data ? DataLength : AckLength, serial::WaitMode::HoldEvents);
        OnReply(JudgeReply(reply, Source.ReplyFlag(), Source.PowerAddr, CheckByte::Whole));
        Source.Expect(ExpectAck);
        Source.WasHandled();
    }

    bool BoxUp = false;
    bool Waiting = false;
};

}  // namespace zps::tests

#include "power/link/polling.h"

#include <chrono>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto PollInterval = 165ms;
constexpr auto LongestSilence = 1s;
}  // namespace

Polling::Polling(SOURCE& source, Transmitter& line, Timekeeper& time, LinkQuality& quality,
                 std::function<bool()> outputOn)
    : Source(source),
      Sender(line),
      Quality(quality),
      OutputOn(std::move(outputOn)),
      tmrDLE(time.MakeTicker("tmrDLE", PollInterval)),
      tmrWATCH(time.MakeTicker("tmrWATCH", LongestSilence)) {
    line.OnSent([this] { Sent(); });
    tmrDLE->OnTick([this] { Poll(); });
    tmrWATCH->OnTick([this] { tmrWATCH_Timer(); });
}

void Polling::Start() {
    tmrDLE->SetEnabled(true);
    tmrWATCH->Restart();
}

void Polling::End() {
    tmrDLE->SetEnabled(false);
    tmrWATCH->SetEnabled(false);
    Quality.Overtaken();  // nobody listens to an answer that is still to come
}

void Polling::ReplyHandled() {
    if (!OutputOn()) {
        End();
        return;
    }
    tmrDLE->SetEnabled(true);
    tmrWATCH->Restart();
}

void Polling::Poll() {
    Sender.Send(ControlFrame(Source.PowerAddr, code::Dle), ExpectData);
}

void Polling::Sent() {
    if (Source.ReplyFlag() == ExpectData)
        Quality.Asked();
    else
        Quality.Overtaken();
}

void Polling::tmrWATCH_Timer() {
    if (!OutputOn()) {
        tmrWATCH->SetEnabled(false);
    } else if (!tmrDLE->Enabled()) {
        tmrDLE->SetEnabled(true);
        Poll();
    }
}

}  // namespace zps

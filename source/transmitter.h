// The way of every frame from SOURCE to the line.
#pragma once

#include "serial/port.h"
#include "source/source.h"

#include <functional>
#include <utility>

namespace zps {

// Sends for the window that holds `port`. Throws PortError where the port is closed and
// OverflowError where a value does not fit its byte; then nothing has gone out. A frame that met a
// closed port counts as one without a reply: the next waits for it once.
class Transmitter {
  public:
    using Clock = serial::Clock;

    Transmitter(SOURCE& source, serial::Port& port,
                std::function<Clock::time_point()> now = &Clock::now)
        : Source(source), Port(port), Now(std::move(now)) {}

    // Whether the reply to the last frame may still come: it is not handled yet, and no more than a
    // second old. One that is later is no reply to wait for.
    bool ReplyInProgress() const;

    // Sends TxFrame as it stands, after AwaitOutstanding.
    void TransmitFrame();

    // While a reply is in progress, waits for 0.1 s without letting events run. What has come by
    // then is swept away by the next frame.
    void AwaitOutstanding();
    // Called once before each frame, after that wait if there is one: the last chance to read what
    // has come.
    void OnOutstanding(std::function<void()> hear) { Hear = std::move(hear); }

    // Called after each frame that has gone out; what had come before it is gone.
    void OnSent(std::function<void()> told) { Told = std::move(told); }

    // Lays `frame`, notes the kind of reply it asks for, and sends it.
    void Send(Frame frame, std::int16_t replyFlag);

    // Sends the single command of `commandLetter` to PowerAddr with as many of the data bytes as it
    // takes, and returns 0. An acknowledgement is expected.
    int SendCommand(int commandLetter, int d1 = 0, int d2 = 0, int d3 = 0, int d4 = 0, int d5 = 0);

  private:
    void PutOut();

    SOURCE& Source;
    serial::Port& Port;
    std::function<Clock::time_point()> Now;
    Clock::time_point SentAt;
    std::function<void()> Hear = [] {};
    std::function<void()> Told = [] {};
};

}  // namespace zps

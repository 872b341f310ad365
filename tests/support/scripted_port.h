// A serial line that a test scripts: it records what is written and answers at once. The ports of
// all windows share one line, as they share one device in earnest.
//
// No real time passes in a wait: the line keeps a time of its own, which only waits advance. A wait
// that runs events runs those that are due.
#pragma once

#include "serial/event_loop.h"
#include "serial/port.h"
#include "tests/support/frames.h"

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

namespace zps::tests {

// A piece of an answer, and how long after the block it arrives (in the line's own time). A piece
// with a delay of 0 is in the buffer when Output returns.
struct Piece {
    Bytes Data;
    std::chrono::milliseconds After{0};
};

// One block that was written.
struct WrittenBlock {
    int Maker;     // which port wrote it: 1 for the first one made on this line, and so on
    int CommPort;  // the number it was open under
    Bytes Data;
};

class ScriptedPort;

class ScriptedLine {
  public:
    // Answers are used up in order, one for each block. {} is silence, anything else is just bytes:
    // acknowledgements and noise alike.
    void Answer(Bytes reply) { AnswerInPieces({{std::move(reply)}}); }
    void AnswerInPieces(std::vector<Piece> pieces) { Answers.push_back(std::move(pieces)); }
    // What blocks without such an answer get, after `delay`; silence if never called.
    void Otherwise(std::function<Bytes(const Bytes& block)> script,
                   std::chrono::milliseconds delay = {}) {
        Script = std::move(script);
        ScriptDelay = delay;
    }

    // Bytes nobody asked for. Lost while no port is open.
    void Arrive(const Bytes& bytes);

    // Opening port `number` throws PortError with `reason` from now on.
    void Refuse(int number, std::errc reason) { Refused[number] = reason; }
    void Accept(int number) { Refused.erase(number); }

    const std::vector<WrittenBlock>& Written() const { return Blocks; }
    // The same without who wrote them.
    std::vector<Bytes> WrittenData() const;
    void ForgetWritten() { Blocks.clear(); }

    // The port that is open: 1 for the first one made, 0 if none is.
    int OpenMaker() const;
    // What stands before the number in the name of a device.
    std::string Folder = "scripted/COM";
    // The time that waits and pauses have taken since the line was made.
    std::chrono::milliseconds Waited() const { return Now; }
    // Goes on to the next arrival not later than `limit` and delivers it; else goes on to `limit`
    // and returns false.
    bool Advance(std::chrono::milliseconds limit);

  private:
    friend class ScriptedPort;
    friend class ScriptedPortMaker;

    void Take(const ScriptedPort& from, Bytes block);
    void DeliverDue();

    std::deque<std::vector<Piece>> Answers;
    std::function<Bytes(const Bytes&)> Script;
    std::chrono::milliseconds ScriptDelay{0};
    std::map<int, std::errc> Refused;
    std::vector<WrittenBlock> Blocks;
    std::multimap<std::chrono::milliseconds, Bytes> OnTheWay;  // by when they are due
    std::chrono::milliseconds Now{0};
    ScriptedPort* Open = nullptr;
    int Made = 0;
};

// Hands out ports on `line`. DeviceOf(n) is `Folder`n, or empty where n is refused.
class ScriptedPortMaker : public serial::PortMaker {
  public:
    ScriptedPortMaker(serial::EventLoop& loop, std::shared_ptr<ScriptedLine> line)
        : Loop(loop), Line(std::move(line)) {}
    // Opening it while another port of the line is open throws PortError.
    std::unique_ptr<serial::Port> MakePort() override;
    std::string DeviceOf(int number) const override {
        return Line->Refused.contains(number) ? "" : Line->Folder + std::to_string(number);
    }

  private:
    serial::EventLoop& Loop;
    std::shared_ptr<ScriptedLine> Line;
};

}  // namespace zps::tests

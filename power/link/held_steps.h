// Which steps the supply holds, as far as its answers tell.
#pragma once

#include "serial/event_loop.h"
#include "source/reply.h"
#include "source/source.h"
#include "source/transmitter.h"

#include <array>
#include <functional>
#include <optional>
#include <utility>

namespace zps {

// A step is marked as held when its values are sent. If that frame is refused, answered by rubbish
// or not answered at all, the mark is taken back: an auto sequence must not be built on it.
class HeldSteps {
  public:
    // From now on the answer to values of a step is heard before a further frame of `line`, which
    // would sweep it away. `port` is the port of `line`.
    HeldSteps(SOURCE& source, serial::Port& port, Transmitter& line, const std::int16_t& curStep);

    // Values of `step` go out next.
    void Mark(int step);
    // Values of `step` have changed that can't go out.
    void Unsent(int step);
    // The reply to the last frame has been judged. Without a reply the answer is still awaited.
    void Answered(Reply result);
    // Called whenever a step has lost its mark.
    void OnTakenBack(std::function<void()> told) { TakenBack = std::move(told); }
    bool Awaits() const { return Awaited.has_value(); }
    // `now` is the time: an answer that has not come within `limit` of the frame will not come.
    void Expire(serial::Clock::time_point now, serial::Clock::duration limit);

  private:
    // Reads the answer that is outstanding, if it has come by now.
    void HearAnswer();
    void Judge(Reply result);
    // `values`: a bit for each, as its frame has them.
    void Doubt(int step, unsigned values);
    void TakeBack(unsigned values);

    SOURCE& Source;
    serial::Port& Port;
    Transmitter& Line;
    const std::int16_t& CurStep;
    std::optional<int> Awaited;  // the step whose answer is outstanding
    // The values of each step that may not have arrived; until they have been acknowledged.
    std::array<unsigned, StepCount> Doubtful{};
    serial::Clock::time_point Sent;
    std::function<void()> TakenBack;
};

}  // namespace zps

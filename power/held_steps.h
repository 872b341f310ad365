// Which steps the supply holds, as far as its answers tell.
#pragma once

#include "serial/event_loop.h"
#include "source/reply.h"
#include "source/source.h"

#include <array>
#include <optional>

namespace zps {

// A step is marked as held when its values are sent. If that frame is refused, answered by rubbish
// or not answered at all, the mark is taken back: an auto sequence must not be built on it.
class HeldSteps {
  public:
    HeldSteps(SOURCE& source, serial::Port& port, const std::int16_t& curStep)
        : Source(source), Line(port), CurStep(curStep) {}

    // The values of `step` go out next. An answer still outstanding is heard first, for 0.1 s at
    // most: the frame would sweep it away.
    void Mark(int step);
    // The reply to the last frame has been judged.
    void Answered(Reply result);
    // `now` is the time: an answer that has not come within `limit` of the frame will not come.
    void Expire(serial::Clock::time_point now, serial::Clock::duration limit);

  private:
    void HearAnswer();
    void TakeBack();

    SOURCE& Source;
    serial::Port& Line;
    const std::int16_t& CurStep;
    std::optional<int> Open;                 // the step whose answer is outstanding
    std::array<bool, StepCount> Doubtful{};  // some value of the step may not have arrived
    serial::Clock::time_point Sent;
};

}  // namespace zps

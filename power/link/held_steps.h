// Which steps the supply holds, as far as its answers tell.
#pragma once

#include "source/source.h"
#include "source/timekeeper.h"
#include "source/transmitter.h"

#include <array>
#include <bitset>
#include <functional>
#include <memory>
#include <optional>

namespace zps {

using StepValues = std::bitset<StepValueCount>;  // by StepValue
StepValues Only(StepValue value);
StepValues AllValues();

// Sends the values of steps and keeps the marks. A step is marked as held when the last of its
// values is sent. If that frame is refused, answered by rubbish or not answered at all within a
// second, the mark is taken back: an auto sequence must not be built on it.
class HeldSteps {
  public:
    // From now on the answer to values of a step is heard before a further frame of `line`, which
    // would sweep it away. `port` is the port of `line`; all of them outlive this.
    HeldSteps(SOURCE& source, serial::Port& port, Transmitter& line, Timekeeper& time);

    // Sends `frame`, which carries `values` of `step` as the table has them. Throws what sending
    // throws; the values count as refused then.
    void Send(int step, StepValues values, Frame frame);
    // A value of `step` has been stored and is not sent.
    void Changed(int step, StepValue value);
    // The table is that of a supply that has got none of it.
    void Forget();

    // The reply to the last frame has been judged. Without a reply the answer is still awaited.
    void Answered(Reply result);

    // The values of `step` that were sent and that the supply refused or did not acknowledge.
    const StepValues& Refused(int step) const { return Refusals.at(Index(step)); }

    // Called whenever a mark or a refusal has changed.
    void OnChange(std::function<void()> told) { Told = std::move(told); }

  private:
    struct Sent {
        int Step;
        StepValues Values;
    };

    static std::size_t Index(int step) { return static_cast<std::size_t>(step); }
    // Reads the answer that is outstanding, if it has come by now.
    void HearAnswer();
    void Judge(Reply result);
    void Refuse(const Sent& sent);
    void Mark(int step, bool held);
    void tmrANSWER_Timer();

    SOURCE& Source;
    serial::Port& Port;
    Transmitter& Line;
    std::unique_ptr<Ticker> tmrANSWER;
    std::optional<Sent> Awaited;
    std::array<StepValues, StepCount> Acknowledged{};  // as they stand in the table
    std::array<StepValues, StepCount> Refusals{};
    std::function<void()> Told = [] {};
};

}  // namespace zps

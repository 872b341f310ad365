// Which steps the supply holds, as far as its answers tell.
#pragma once

#include "power/link/awaited_answer.h"
#include "source/source.h"
#include "source/transmitter.h"

#include <array>
#include <bitset>
#include <functional>

namespace zps {

using StepValues = std::bitset<StepValueCount>;         // by StepValue
using TableValues = std::array<StepValues, StepCount>;  // by step
StepValues Only(StepValue value);
StepValues AllValues();

// Sends the values of steps and keeps the marks. A step is marked as held when the last of its
// values is sent. If that frame is refused, answered by rubbish or not answered at all within a
// second, the mark is taken back: an auto sequence must not be built on it.
//
// A supply takes a value for the step that it has selected. Where a selection was not acknowledged
// it may be at this step or at the one before: a value that is sent then counts for neither.
class HeldSteps {
  public:
    // All of them outlive this; `answer` is that of the frames of `line`.
    HeldSteps(SOURCE& source, Transmitter& line, AwaitedAnswer& answer)
        : Source(source), Sender(line), Answer(answer) {}

    // Sends `frame`, which carries `values` of `step`, the selected one, as the table has them.
    // Throws what sending throws; the values count as refused then.
    void Send(int step, StepValues values, const Frame& frame) {
        Put({step, values, false}, frame);
    }
    // The same for a frame that also selects the step; `values` may be none.
    void Select(int step, StepValues values, const Frame& frame) {
        Put({step, values, true}, frame);
    }
    // A value of `step` has been stored and is not sent.
    void Changed(int step, StepValue value);
    // The same of many of them, told once.
    void Changed(const TableValues& values);
    // The table is that of a supply that has got none of it.
    void Forget();

    // The values of `step` that were sent and that the supply refused or did not acknowledge.
    const StepValues& Refused(int step) const { return Refusals.at(Index(step)); }

    // The values of `step` that have been changed since they were last sent.
    const StepValues& Unsent(int step) const { return Changes.at(Index(step)); }

    // Whether the supply is known to have selected `step`.
    bool IsAt(int step) const { return MaybeAt.count() == 1 && MaybeAt.test(Index(step)); }

    // The answer to the values judged last.
    Reply LastAnswer() const { return Answered; }

    // Called whenever a mark or a refusal has changed.
    void OnChange(std::function<void()> told) { Told = std::move(told); }
    // Called when `values` of `step`, or with none its selection, have been refused or not
    // acknowledged.
    void OnRefusal(std::function<void(int step, StepValues values)> told) {
        ToldRefusal = std::move(told);
    }

  private:
    struct Sent {
        int Step;
        StepValues Values;
        bool Selects;
    };

    static std::size_t Index(int step) { return static_cast<std::size_t>(step); }
    void Put(const Sent& sent, const Frame& frame);
    void Judge(const Sent& sent, Reply result);
    void Refuse(const Sent& sent);
    // The supply may have another value now.
    void Lose(int step, StepValues values);
    void Mark(int step, bool held);

    SOURCE& Source;
    Transmitter& Sender;
    AwaitedAnswer& Answer;
    std::array<StepValues, StepCount> Acknowledged{};  // as they stand in the table
    std::array<StepValues, StepCount> Refusals{};
    std::array<StepValues, StepCount> Changes{};
    std::bitset<StepCount> MaybeAt = std::bitset<StepCount>().set();  // the supply's selected step
    Reply Answered = Reply::None;
    std::function<void()> Told = [] {};
    std::function<void(int, StepValues)> ToldRefusal = [](int, StepValues) {};
};

}  // namespace zps

#include "power/link/held_steps.h"

namespace zps {

StepValues Only(StepValue value) {
    return StepValues().set(static_cast<std::size_t>(value));
}

StepValues AllValues() {
    return StepValues().set();
}

void HeldSteps::Put(const Sent& sent, const Frame& frame) {
    Sender.AwaitOutstanding();  // hears the answer to the values before
    Changes.at(Index(sent.Step)) &= ~sent.Values;
    if (sent.Selects) {
        MaybeAt.set(Index(sent.Step));
    } else {
        for (int other = 0; other < StepCount; ++other) {
            if (MaybeAt.test(Index(other))) Lose(other, sent.Values);
        }
    }
    Mark(sent.Step, (Acknowledged.at(Index(sent.Step)) | sent.Values).all());
    try {
        Sender.Send(frame, ExpectAck);
    } catch (...) {
        Answered = Reply::None;
        Refuse(sent);
        throw;
    }
    Answer.Await([this, sent](Reply result) { Judge(sent, result); });
    Told();
}

void HeldSteps::Lose(int step, StepValues values) {
    Acknowledged.at(Index(step)) &= ~values;
    Mark(step, Acknowledged.at(Index(step)).all());
}

void HeldSteps::Changed(int step, StepValue value) {
    TableValues values;
    values.at(Index(step)) = Only(value);
    Changed(values);
}

void HeldSteps::Changed(const TableValues& values) {
    for (int step = 0; step < StepCount; ++step) {
        const StepValues& changed = values.at(Index(step));
        if (changed.none()) continue;
        Changes.at(Index(step)) |= changed;
        Lose(step, changed);
    }
    Told();
}

void HeldSteps::Forget() {
    Answer.Forget();
    Acknowledged.fill({});
    Refusals.fill({});
    Changes.fill({});
    MaybeAt.set();
    Source.Flags.reset();
    Told();
}

void HeldSteps::Judge(const Sent& sent, Reply result) {
    Answered = result;
    if (result == Reply::Ack && sent.Selects) MaybeAt.reset().set(Index(sent.Step));
    if (result != Reply::Ack || !IsAt(sent.Step)) {
        Refuse(sent);
        return;
    }
    // What has been changed meanwhile is not what was sent.
    Acknowledged.at(Index(sent.Step)) |= sent.Values & ~Changes.at(Index(sent.Step));
    Refusals.at(Index(sent.Step)) &= ~sent.Values;
    Mark(sent.Step, Acknowledged.at(Index(sent.Step)).all());
    Told();
}

void HeldSteps::Refuse(const Sent& sent) {
    Refusals.at(Index(sent.Step)) |= sent.Values;
    Lose(sent.Step, sent.Values);
    Told();
    ToldRefusal(sent.Step, sent.Values);
}

void HeldSteps::Mark(int step, bool held) {
    Source.Flags.set(Index(step), held);
}

}  // namespace zps

// A supply on a bench with a clock of the test's own.
#pragma once

#include "simulator/supply.h"
#include "tests/support/frames.h"

namespace zps::simulator::tests {

using namespace std::chrono_literals;

using namespace zps::tests;

struct Bench {
    explicit Bench(const SupplyOptions& options = {}) : Tested(options) { Ask(Dc3); }

    // The reply to `bytes`, empty if there is none.
    Bytes Send(const Bytes& bytes) {
        FrameSplitter splitter;
        splitter.Take(bytes, Now);
        Bytes reply;
        for (const Frame& frame : splitter.Frames(Now + FrameSplitter::IdleGap))
            reply = Tested.Answer(frame, Now).value_or(Bytes{});
        return reply;
    }
    Bytes Ask(std::uint8_t code) { return Send(Control(Tested.Address(), code)); }
    // Whether one command with its data, after ESC, is acknowledged.
    bool Accepts(const Bytes& command) {
        return Send(Framed(Tested.Address(), Joined({{Esc}, command}))).at(1) == Ack;
    }
    const SupplyState& After(Clock::duration time) {
        Now += time;
        Tested.Advance(Now);
        return Tested.State();
    }

    Time Now{1h};
    Supply Tested;
};

}  // namespace zps::simulator::tests

#include "simulator/splitter.h"

#include "tests/simulator/bench.h"

#include <gtest/gtest.h>

namespace zps::simulator::tests {
namespace {

using Found = std::vector<std::pair<FrameKind, Bytes>>;

class Splitting : public testing::Test {
  protected:
    Found FramesOf(const Bytes& bytes, Clock::duration later = 0ms) {
        Splitter.Take(bytes, Now);
        Found found;
        for (const Frame& frame : Splitter.Frames(Now + later))
            found.emplace_back(frame.Kind, frame.Content);
        return found;
    }

    FrameSplitter Splitter;
    Time Now{1h};
    const Bytes Probe = Control(1, Enq);
    const Bytes Switch = Framed(1, {Esc, 'A', 1, 0, 0, 0, 0, 0});
};

TEST_F(Splitting, GivesRightFramesAtOnceHoweverTheyComeAndGivesUpOnAStreamWithoutGaps) {
    EXPECT_EQ(FramesOf(Joined({Probe, Switch})),
              (Found{{FrameKind::Control, Probe}, {FrameKind::Commands, Switch}}));
    for (std::size_t at = 0; at + 1 < Switch.size(); ++at)
        EXPECT_EQ(FramesOf({Switch[at]}), Found{});
    EXPECT_EQ(FramesOf({Switch.back()}), (Found{{FrameKind::Commands, Switch}}));
    EXPECT_EQ(Splitter.NextLook(), Time::max());
    EXPECT_EQ(FramesOf(Bytes(513, 0x55)), (Found{{FrameKind::Noise, Bytes(513, 0x55)}}));
}

TEST_F(Splitting, FindsTheFrameBehindNoiseAndBehindAPartialFrameOnceTheLineIsIdle) {
    for (const Bytes& rubbish : {Bytes{0xFF}, Bytes{9, 9, 9, 9}, Bytes{5, 5}, Bytes{1, 2, 8, 27}}) {
        EXPECT_EQ(FramesOf(Joined({rubbish, Switch, Probe}), FrameSplitter::IdleGap - 1ns),
                  Found{});
        EXPECT_EQ(Splitter.NextLook(), Now + FrameSplitter::IdleGap);
        const auto found = FramesOf({}, FrameSplitter::IdleGap);
        ASSERT_EQ(found.size(), 3U) << testing::PrintToString(rubbish);
        EXPECT_EQ(found[0].second, rubbish);
        EXPECT_EQ(found[1].second, Switch);
        EXPECT_EQ(found[2].second, Probe);
        EXPECT_EQ(FramesOf(Probe), (Found{{FrameKind::Control, Probe}}));
    }
}

TEST_F(Splitting, CallsWhatBeginsLikeAFrameBrokenAndTheRestNoise) {
    Bytes badSum = Switch;
    ++badSum.back();
    EXPECT_EQ(FramesOf(badSum), (Found{{FrameKind::Broken, badSum}}));

    Bytes tooLong = Framed(1, {Esc, 'V', 1, 2});
    ++tooLong[2];
    Bytes tooShort = Framed(1, {Esc, 'V', 1, 2});
    --tooShort[2];
    // Its data holds a whole probe.
    Bytes withProbe = Framed(1, {Esc, 'B', 1, 5, 6, 255});
    ++withProbe[2];
    const Bytes cutProbe{1, Enq};
    const Bytes badProbe{1, Enq, 7};
    for (const Bytes& broken :
         {tooLong, tooShort, withProbe, cutProbe, badProbe, Framed(1, {0, 'V', 1, 2})})
        EXPECT_EQ(FramesOf(broken, 20ms), (Found{{FrameKind::Broken, broken}}));
    for (const Bytes& noise : {Bytes{1}, Bytes{1, 1, 2}, Bytes(4), Joined({{9}, badSum})})
        EXPECT_EQ(FramesOf(noise, 20ms), (Found{{FrameKind::Noise, noise}}));
}

}  // namespace
}  // namespace zps::simulator::tests

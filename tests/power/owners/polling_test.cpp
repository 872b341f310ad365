#include "power/link/polling.h"

#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

struct PollingASupply : testing::Test, ScriptedLink {
    PollingASupply() {
        OnReply = [this](Reply) { Polls.ReplyHandled(); };
        Line->Otherwise([this](const Bytes& block) {
            if (block[1] == code::Dle) Times.push_back(Line->Waited());
            if (!Answers) return Bytes();
            return block[1] == code::Dle ? Bytes(DataLength) : Acknowledged;
        });
    }
    // When polls go out in the next `span`, in ms from now.
    std::string In(std::chrono::milliseconds span) {
        const auto from = Line->Waited();
        Times.clear();
        Time.Pass(span);
        std::string all;
        for (const auto time : Times) all += std::to_string((time - from).count()) + ' ';
        return all;
    }

    bool On = true;
    bool Answers = true;
    std::vector<std::chrono::milliseconds> Times;
    LinkQuality Quality{Time, [this] { return On; }};
    Polling Polls{Source, Sender, Time, Quality, [this] { return On; }};
};

TEST_F(PollingASupply, IsSteadyAndStopsUntilAReplyOrForASecond) {
    Polls.Start();
    Polls.Stop();
    EXPECT_EQ(In(1100ms), "1000 ");
    Polls.Start();
    EXPECT_EQ(In(700ms), "65 230 395 560 ");
    Polls.Stop();
    EXPECT_EQ(In(1200ms), "860 1025 1190 ");  // the last reply came 140 ms before
    Polls.Stop();
    Time.Pass(500ms);
    Polls.ReplyHandled();
    EXPECT_EQ(In(400ms), "165 330 ");
    Answers = false;
    EXPECT_EQ(In(400ms), "95 360 ");  // each waits 0.1 s for the reply before
    Answers = true;
    Polls.Stop();
    EXPECT_EQ(In(700ms), "630 695 ");
    Polls.Start();
    Answers = false;
    EXPECT_EQ(In(1200ms), "160 425 590 755 920 1085 1250 ");
    Answers = true;
    Polls.End();
    EXPECT_EQ(In(10s), "");
    Polls.Poll();
    EXPECT_EQ(In(1s), "165 330 495 660 825 990 ");  // its reply
    On = false;
    EXPECT_EQ(In(10s), "155 ");
    Polls.Start();
    Polls.Stop();
    EXPECT_EQ(In(10s), "");
}

}  // namespace
}  // namespace zps::tests

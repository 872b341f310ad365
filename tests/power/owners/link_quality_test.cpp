#include "power/link/link_quality.h"

#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

using Fault = LinkQuality::Fault;

struct QualityOfALink : testing::Test, ScriptedLink {
    void Poll(std::chrono::milliseconds response, Reply result = Reply::Data,
              std::size_t length = DataLength) {
        Quality.Asked();
        Time.Pass(response);
        Quality.Answered(result, length);
    }
    std::string Counts() const {
        std::string all;
        for (const Fault fault : {Fault::Nothing, Fault::WrongLength, Fault::WrongHeader}) {
            const auto count = Quality.Count(fault);
            all += count ? std::to_string(*count) : "-";
        }
        return all;
    }

    bool On = false;
    LinkQuality Quality{Time, [this] { return On; }};
};

TEST_F(QualityOfALink, CountsEachFaultApartFromTheGoodAnswersAndTheirTimes) {
    EXPECT_EQ(Counts(), "---");
    EXPECT_FALSE(Quality.Polled().Last || Quality.Polled().Median);
    Poll(1ms, Reply::BadData, 13);
    EXPECT_EQ(Counts(), "-1-");
    Quality.Asked();
    Quality.Restart();
    Quality.Answered(Reply::Data, DataLength);  // to the poll before
    EXPECT_EQ(Counts() + std::to_string(Quality.Polled().Answered), "0000");
    for (const std::size_t length : {0, 3, 13, 15, 14, 14}) Poll(1ms, Reply::BadData, length);
    EXPECT_EQ(Counts(), "132");
    for (const auto response : {90ms, 20ms, 40ms}) Poll(response);
    Quality.Asked();
    auto polled = Quality.Polled();
    EXPECT_EQ(std::pair(polled.Asked, polled.Answered), std::pair(10, 3));
    EXPECT_TRUE(polled.Last == 40ms && polled.Median == 40ms);
    for (int poll = 0; poll < 256; ++poll) Poll(poll < 128 ? 5ms : 7ms);
    polled = Quality.Polled();
    EXPECT_TRUE(polled.Last == 7ms && polled.Median == 7ms);  // 5 without the forgetting
}

TEST_F(QualityOfALink, TheAgeOfAReadingRunsFromTheBeginningOfThePeriodOrItsLastGoodAnswer) {
    Poll(10ms);
    EXPECT_FALSE(Quality.ReadingAge());
    On = true;
    Quality.OutputWentOn();
    Time.Pass(700ms);
    EXPECT_EQ(Quality.ReadingAge(), 700ms);
    Poll(50ms, Reply::None, 0);
    EXPECT_EQ(Quality.ReadingAge(), 750ms);
    EXPECT_FALSE(Quality.HasReading());  // that of the period before is none
    Poll(30ms);
    EXPECT_EQ(Quality.ReadingAge(), 0ms);
    EXPECT_TRUE(Quality.HasReading());
    Time.Pass(20s);
    EXPECT_EQ(Quality.ReadingAge(), 20s);
    for (const auto response : {1000ms, 1001ms}) {  // as behind a message box
        Quality.Asked();
        Time.Pass(response);
        EXPECT_EQ(Quality.Answered(Reply::Data, DataLength), response == 1s);
        EXPECT_EQ(Quality.ReadingAge(), response == 1s ? 0ms : response);
        EXPECT_FALSE(Quality.UnansweredFor());
        EXPECT_EQ(Quality.Polled().Last, 1s);
    }
    EXPECT_EQ(Quality.Polled().Answered, 3);
    On = false;
    EXPECT_FALSE(Quality.ReadingAge());
}

}  // namespace
}  // namespace zps::tests

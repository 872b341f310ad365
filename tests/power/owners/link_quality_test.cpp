#include "power/link/link_quality.h"

#include "power/panel/link_layout.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

struct QualityOfALink : testing::Test, ScriptedLink {
    void Poll(std::chrono::milliseconds response, Reply result = Reply::Data,
              std::size_t length = DataLength) {
        Quality.Asked();
        Time.Pass(response);
        Quality.Answered(result, length);
    }
    std::string Counts() const {
        std::string all;
        for (const Fate fault : {Fate::Empty, Fate::WrongLength, Fate::WrongHeader}) {
            const auto count = Quality.Count(fault);
            all += count ? std::to_string(*count) : "-";
        }
        return all;
    }

    static std::string Told(const PollCounts& polls) {
        std::string all = "asked " + std::to_string(polls.Asked()) + " of them";
        for (const int count : polls.Count) all += ' ' + std::to_string(count);
        if (!polls.Last) return all;
        return all + " last " + std::to_string(polls.Last->count()) + " half " +
               std::to_string(polls.Median->count()) + " most " +
               std::to_string(polls.Within99->count());
    }

    bool On = false;
    LinkQuality Quality{Time, [this] { return On; }};
};

TEST_F(QualityOfALink, CountsEachFaultApartFromTheGoodAnswersAndTheirTimes) {
    EXPECT_EQ(Counts(), "---");
    EXPECT_FALSE(Quality.WholeRun().Last || Quality.WholeRun().Median);
    Poll(1ms, Reply::BadData, 13);
    EXPECT_EQ(Counts(), "-1-");
    Quality.Asked();
    Quality.Restart();
    Quality.Answered(Reply::Data, DataLength);  // to the poll before
    EXPECT_EQ(Counts() + std::to_string(Quality.WholeRun().Asked()), "0000");
    for (const std::size_t length : {0, 3, 13, 15, 14, 14}) Poll(1ms, Reply::BadData, length);
    EXPECT_EQ(Counts(), "132");
    for (const auto response : {90ms, 20ms, 1001ms, 40ms}) Poll(response);
    Quality.Asked();  // in vain
    Quality.Asked();
    EXPECT_EQ(Told(Quality.WholeRun()), "asked 12 of them 1 3 1 1 3 2 1 0 last 40 half 40 most 90");
    Time.Pass(30s);
    EXPECT_EQ(Told(Quality.LastMinute()),
              "asked 14 of them 1 4 1 1 4 2 1 0 last 40 half 20 most 90");
    Time.Pass(30s);
    EXPECT_EQ(Quality.LastMinute().Asked(), 2);
}

TEST_F(QualityOfALink, AMinuteGoesOnWhereARunBeginsAnew) {
    for (const auto response : {20ms, 30ms}) Poll(response);
    Quality.Asked();
    Quality.Restart();
    EXPECT_EQ(Told(Quality.WholeRun()), "asked 0 of them 0 0 0 0 0 0 0 0");
    Time.Pass(40ms);
    Quality.Answered(Reply::Data, DataLength);
    EXPECT_EQ(Told(Quality.WholeRun()), "asked 0 of them 0 0 0 0 0 0 0 0");
    EXPECT_EQ(Told(Quality.LastMinute()),
              "asked 3 of them 0 3 0 0 0 0 0 0 last 40 half 30 most 40");
    EXPECT_EQ(QualityText(Quality),
              "지난 1분: 조회 3회, 올바른 응답 3회, 잃음 0회 · "
              "응답 시간: 마지막 40 ms, 중앙값 30 ms, 99% 40 ms 이내\n"
              "이번 운전: 조회 0회, 올바른 응답 0회, 잃음 0회 · 응답 시간: 없음");
}

// An operator who clicks away makes no line look bad; nor do clicks make a dead one look better.
TEST_F(QualityOfALink, APollThatACommandHasOvertakenIsNeitherAnsweredNorLost) {
    for (int click = 0; click < 40; ++click) {
        Quality.Asked();
        Time.Pass(100ms);
        Quality.Overtaken();
        Quality.Overtaken();  // no poll is open
        EXPECT_FALSE(Quality.UnansweredFor());
    }
    EXPECT_EQ(Told(Quality.WholeRun()), "asked 40 of them 0 0 0 0 0 0 0 40");
    EXPECT_EQ(Quality.WholeRun().Lost(), 0);
    EXPECT_TRUE(
        QualityText(Quality).contains("조회 40회, 올바른 응답 0회, 밀려남 40회, 잃음 0회 ·"));
    for (int poll = 0; poll < 3; ++poll) Quality.Asked(), Time.Pass(500ms);
    Quality.Overtaken();
    EXPECT_EQ(Quality.UnansweredFor(), 1500ms);
    Quality.Asked();
    Time.Pass(1001ms);  // by then it would have been answered
    Quality.Overtaken();
    EXPECT_EQ(Told(Quality.WholeRun()), "asked 44 of them 0 0 3 0 0 0 0 41");
}

TEST_F(QualityOfALink, TellsTheMedianAndTheSlowestHundredthOfAMinuteAndOfADay) {
    constexpr int day = 523'636;
    for (int poll = 0; poll < day; ++poll) {
        // Of a hundred answers 60 take 20 ms, 38 take 21, two 40; those of the end 5 more.
        const int place = poll % 100;
        const int usual = place < 60 ? 20 : place < 98 ? 21 : 40;
        const auto response = std::chrono::milliseconds(usual + (poll >= day - 400 ? 5 : 0));
        Poll(response);
        Time.Pass(165ms - response);
    }
    EXPECT_EQ(Told(Quality.WholeRun()),
              "asked 523636 of them 0 523636 0 0 0 0 0 0 last 25 half 20 most 40");
    EXPECT_EQ(Told(Quality.LastMinute()),
              "asked 363 of them 0 363 0 0 0 0 0 0 last 25 half 25 most 45");
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
        EXPECT_EQ(Quality.WholeRun().Last, 1s);
    }
    EXPECT_EQ(Quality.WholeRun().Of(Fate::Answered), 3);
    On = false;
    EXPECT_FALSE(Quality.ReadingAge());
}

}  // namespace
}  // namespace zps::tests

// A day of polling, as far as something is kept of it.
#include "power/link/history.h"
#include "power/link/link_quality.h"
#include "power/log/log_model.h"
#include "power/log/log_run.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace zps::tests {
namespace {

// All that the process has taken from the heap and not given back; 0 where nobody tells.
std::size_t Taken() {
#ifdef __GLIBC__
    return mallinfo2().uordblks + mallinfo2().hblkhd;
#else
    return 0;
#endif
}

struct DayOfPolling : testing::Test, ScriptedLink {
    // A second in which nothing is answered comes with each event.
    void Poll(int count) {
        for (int k = 0; k < count; ++k) {
            Quality.Asked();
            Time.Pass(std::chrono::milliseconds(165));
            if (k % 160 == 0) Events.Note(EventKind::Switched, QString::number(k));
            if (k % 160 == 0) continue;
            Quality.Answered(Reply::Data, DataLength);
            const LogRun::Entry entry = Run.Take();
            const Sample sample{12, 0.1F, entry.Hundredths, 3, 3, 4, 0x54};
            Run.Sum(sample);
            Log.Append(sample, entry.Number, Run.Origin());
            Run.Plot(Log.PointAt(Log.rowCount() - 1));
        }
    }

    LinkQuality Quality{Time, [] { return true; }};
    History Events;
    LogModel Log;
    LogRun Run{[this] { return Time.Now(); }};
};

// Sixteen bytes of a sample, 1.1 of its envelopes and 0.2 of its sums; all else is of fixed size.
TEST_F(DayOfPolling, LeavesNothingThatGrowsButTheLogByItsBytesASample) {
    constexpr int day = 523'636;
    Quality.Restart();
    Run.Restart();
    Poll(200'000);  // every ring is full
    const std::size_t before = Taken();
    const int rows = Log.rowCount();
    Poll(day - 200'000);
    const auto grown = static_cast<double>(Taken() - before);
    EXPECT_EQ(Events.End() - Events.First(), History::MostEvents);
    EXPECT_EQ(Quality.WholeRun().Asked(), day);
    const double each = grown / (Log.rowCount() - rows);
    RecordProperty("bytes_per_sample", std::to_string(each));
    EXPECT_LE(each, 16.01 + 1.35);
}

}  // namespace
}  // namespace zps::tests

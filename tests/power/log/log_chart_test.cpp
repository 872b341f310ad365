#include "tests/power/log/shown_log.h"

#include <QImage>

#include <algorithm>
#include <cmath>

namespace zps::tests {
namespace {

class Charting : public ShownLog {
  protected:
    QImage Picture() {
        QApplication::processEvents();
        return ShownChart.grab().toImage();
    }

    // Pixels whose colour is further than `distance` in lightness from the ground's.
    static int Distinct(const QImage& picture, int distance) {
        const int ground = picture.pixelColor(2, 2).lightness();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                count += std::abs(picture.pixelColor(x, y).lightness() - ground) > distance;
            }
        }
        return count;
    }

    LogChart& ShownChart = Control<LogChart>("MSChart1");
};

TEST_F(Charting, PlotsTheSamplesUntilTheFirstReplyOfTheNextRun) {
    StartRun();
    Sample(1, 3);
    Log.Restart({});
    EXPECT_EQ(ShownChart.PlottedValue(0, 0), 1.0);
    EXPECT_EQ(ShownChart.PlottedValue(2, 1), 0.3);
    EXPECT_TRUE(std::isnan(ShownChart.PlottedValue(3, 0)));
    Log.NoteReply();
    EXPECT_TRUE(std::isnan(ShownChart.PlottedValue(2, 1)));
}

TEST_F(Charting, DrawsEverySampleAndLeavesGapsBlank) {
    const int without = Distinct(Picture(), 60);
    StartRun();
    Sample(1, 1);  // one alone has no line, but a mark
    const int one = Distinct(Picture(), 60);
    EXPECT_GT(one, without + 20);
    Sample(2, 20);
    EXPECT_GT(Distinct(Picture(), 60), one + 200);
    Log.Clear({}, {}, {});
    EXPECT_NEAR(Distinct(Picture(), 60), without, 20);
}

TEST_F(Charting, IsReadableInLightAndDark) {
    StartRun();
    Sample(1, 20);
    for (const auto& [ground, text] : {std::pair{Qt::white, Qt::black}, {Qt::black, Qt::white}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, text);
        Log.setPalette(palette);
        const QImage picture = Picture();
        EXPECT_EQ(picture.pixelColor(2, 2), QColor(ground));
        EXPECT_GT(Distinct(picture, 100), 1000);
    }
}

}  // namespace
}  // namespace zps::tests

#include "tests/power/log/shown_log.h"

#include <QImage>

#include <cmath>

namespace zps::tests {
namespace {

class Charting : public ShownLog {
  protected:
    // Pixels of the chart whose lightness is far from the ground's.
    int Distinct() {
        QApplication::processEvents();
        const QImage picture = ShownChart.grab().toImage();
        const int ground = picture.pixelColor(2, 2).lightness();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                count += std::abs(picture.pixelColor(x, y).lightness() - ground) > 60;
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
    EXPECT_EQ(ShownChart.PlottedValue(2, 1), 0.3F);
    EXPECT_TRUE(std::isnan(ShownChart.PlottedValue(3, 0)));
    Log.NoteReply();
    EXPECT_TRUE(std::isnan(ShownChart.PlottedValue(2, 1)));
}

TEST_F(Charting, IsReadableInLightAndDark) {
    StartRun();
    for (const auto& [ground, text] : {std::pair{Qt::white, Qt::black}, {Qt::black, Qt::white}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, text);
        Log.setPalette(palette);
        Log.Clear({}, {}, {});
        const int without = Distinct();
        EXPECT_GT(without, 1000);
        Sample(1, 20);
        EXPECT_GT(Distinct(), without + 200);
        EXPECT_EQ(ShownChart.grab().toImage().pixelColor(2, 2), QColor(ground));
    }
}

}  // namespace
}  // namespace zps::tests

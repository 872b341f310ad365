#include "tests/power/log/shown_log.h"

#include <QScreen>

namespace zps::tests {
namespace {

TEST_F(ShownLog, GridFollowsTheNewestRowAtTheEndAndElseStaysWhereItWasScrolled) {
    Sample(1, 100);
    EXPECT_EQ(Grid.TopRow(), 101 - Grid.VisibleRows() + 1);
    Log.resize(1000, 250);
    Sample(101, 101);
    EXPECT_EQ(Grid.TopRow(), 102 - Grid.VisibleRows() + 1);
    ScrollTo(40);
    Sample(102, 200);
    Log.Restart(QStringLiteral("00"));
    Sample(201, 210);
    EXPECT_EQ(Grid.TopRow(), 40);
    QTest::keyClick(&Grid, Qt::Key_End);
    Sample(211, 220);
    EXPECT_EQ(Grid.TopRow(), 221 - Grid.VisibleRows() + 1);
}

TEST_F(ShownLog, ColumnsAreNinetyOnePixelsWideWhateverTheWindowIs) {
    for (const int width : {1600, 500}) {
        Log.resize(width, 300);
        QCoreApplication::processEvents();
        EXPECT_EQ(Grid.CellRect(1, 4).topRight().x(), 5 * 91 - 1) << width;
    }
}

TEST_F(ShownLog, KeysAndMouseMoveAndExtendTheSelection) {
    Sample(1, 99);
    const int page = Grid.VisibleRows();
    ScrollTo(1);
    using Press = std::tuple<Qt::Key, Qt::KeyboardModifier, int, int>;
    for (const auto& [key, shift, first, last] :
         {Press{Qt::Key_Down, Qt::ShiftModifier, 1, 2},
          Press{Qt::Key_PageDown, Qt::NoModifier, 2 + page, 2 + page},
          Press{Qt::Key_PageUp, Qt::ShiftModifier, 2, 2 + page},
          Press{Qt::Key_End, Qt::ShiftModifier, 2 + page, 100},
          Press{Qt::Key_Down, Qt::NoModifier, 100, 100},
          Press{Qt::Key_Home, Qt::ShiftModifier, 1, 100}}) {
        QTest::keyClick(&Grid, key, shift);
        EXPECT_EQ(std::pair(Grid.FirstSelected(), Grid.LastSelected()), std::pair(first, last));
    }
    EXPECT_TRUE(Grid.accessibleDescription().startsWith(QStringLiteral("NO 0, TIME(sec) 0, STEP")));
    for (const int row : {1, 3, 0}) {  // row 0 is the header
        const auto key = row == 3 ? Qt::ShiftModifier : Qt::NoModifier;
        QTest::mouseClick(Grid.viewport(), Qt::LeftButton, key, Grid.CellRect(row, 1).center());
    }
    EXPECT_EQ(std::pair(Grid.FirstSelected(), Grid.LastSelected()), std::pair(1, 3));
}

TEST_F(ShownLog, ARuleStandsAboveEachRunButTheOldest) {
    for (int run = 0; run < 3; ++run) {
        Log.Restart({});
        Sample(1, 2);
    }
    const QImage picture = Grid.viewport()->grab().toImage();
    for (int row = 1; row < Log.RowCount(); ++row) {
        const QPoint corner = Grid.CellRect(row, 1).topLeft() + QPoint(3, 0);
        for (const QPoint place : {corner, corner + QPoint(0, 1)})
            EXPECT_EQ(picture.pixelColor(place) == Qt::black, row == 4 || row == 6) << row;
    }
}

TEST_F(ShownLog, WhatIsSeenOfTheGridIsWhatItWouldPaintAnew) {
    const auto expectFresh = [this](const char* after) {
        QCoreApplication::processEvents();
        const QRect rows(Grid.viewport()->mapTo(&Log, QPoint()), Grid.viewport()->size());
        const QPixmap seen =
            Log.screen()->grabWindow(Log.winId(), rows.x(), rows.y(), rows.width(), rows.height());
        EXPECT_EQ(seen.toImage().convertedTo(QImage::Format_RGB32),
                  Grid.viewport()->grab().toImage().convertedTo(QImage::Format_RGB32))
            << after;
    };
    for (int k = 1; k <= 40; ++k) {
        Sample(k, k);
        expectFresh("a sample");
    }
    Sample(41, 43);
    for (const int top : {20, 21, 18, 30, 1}) {
        QTest::keyClick(&Grid, Qt::Key_Up, Qt::ShiftModifier);
        expectFresh("samples and a key");
        ScrollTo(top);
        expectFresh("scrolling");
    }
    Log.Clear(QStringLiteral("07"), QStringLiteral("1.00"), QStringLiteral("0.100"));
    expectFresh("clearing");
}

}  // namespace
}  // namespace zps::tests

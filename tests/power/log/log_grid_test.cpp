#include "tests/power/log/shown_log.h"

#include <QScreen>

namespace zps::tests {
namespace {

// Ten million rows without memory, that counts what the grid asks for.
class CountingModel : public QAbstractTableModel {
  public:
    int rowCount(const QModelIndex& /*parent*/) const override { return 10'000'000; }
    int columnCount(const QModelIndex& /*parent*/) const override { return LogColumns; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) return Qt::AlignRight;
        ++TextsRead;
        return index.row();
    }
    mutable int TextsRead = 0;
};

TEST_F(ShownLog, GridFollowsTheNewestRowAtTheEndAndElseStaysWhereItWasScrolled) {
    StartRun();
    Sample(1, 100);
    EXPECT_EQ(Grid.TopRow(), 101 - Grid.VisibleRows() + 1);
    EXPECT_EQ(TopRowShown(), std::to_string(Grid.TopRow()));
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

TEST_F(ShownLog, ColumnsAreNinetyOnePixelsWideAndWiderOnlyForALargerFont) {
    for (const int width : {1000, 1600, 500}) {
        Log.resize(width, 300);
        QCoreApplication::processEvents();
        for (int column = 0; column < LogColumns; ++column)
            EXPECT_EQ(Grid.CellRect(1, column).width(), 91) << width;
        EXPECT_LE(Grid.CellRect(1, 4).right(), Grid.viewport()->width()) << width;
    }
    QFont large = Log.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    Log.setFont(large);
    EXPECT_GT(Grid.CellRect(1, 4).width(), 91);
}

TEST_F(ShownLog, KeysAndMouseMoveAndExtendTheSelection) {
    struct Press {
        Qt::Key Key;
        bool Shift;
        int First, Last;
    };
    StartRun();
    Sample(1, 99);
    const int page = Grid.VisibleRows();
    ScrollTo(1);
    for (const Press& press :
         {Press{Qt::Key_Down, true, 1, 2}, Press{Qt::Key_PageDown, false, 2 + page, 2 + page},
          Press{Qt::Key_PageUp, true, 2, 2 + page}, Press{Qt::Key_End, true, 2 + page, 100},
          Press{Qt::Key_Down, false, 100, 100}, Press{Qt::Key_Home, true, 1, 100}}) {
        QTest::keyClick(&Grid, press.Key, press.Shift ? Qt::ShiftModifier : Qt::NoModifier);
        EXPECT_EQ(Grid.FirstSelected(), press.First) << press.Key;
        EXPECT_EQ(Grid.LastSelected(), press.Last) << press.Key;
    }
    EXPECT_TRUE(Grid.accessibleDescription().startsWith(QStringLiteral("NO 0, TIME(sec) 0, STEP")));
    for (const int row : {1, 3, 0}) {  // row 0 is the header
        const auto key = row == 3 ? Qt::ShiftModifier : Qt::NoModifier;
        QTest::mouseClick(Grid.viewport(), Qt::LeftButton, key, Grid.CellRect(row, 1).center());
    }
    EXPECT_EQ(Grid.FirstSelected(), 1);
    EXPECT_EQ(Grid.LastSelected(), 3);
}

TEST_F(ShownLog, WhatIsSeenOfTheGridIsWhatItWouldPaintAnew) {
    const auto expectFresh = [this](const char* after) {
        QCoreApplication::processEvents();
        QWidget& rows = *Grid.viewport();
        const QPoint corner = rows.mapTo(&Log, QPoint());
        const QImage seen =
            Log.screen()
                ->grabWindow(Log.winId(), corner.x(), corner.y(), rows.width(), rows.height())
                .toImage();
        const QImage anew = rows.grab().toImage();
        EXPECT_EQ(seen.convertedTo(QImage::Format_RGB32), anew.convertedTo(QImage::Format_RGB32))
            << after;
    };
    StartRun();
    for (int k = 1; k <= 40; ++k) {
        Sample(k, k);
        expectFresh("a sample");
    }
    Sample(41, 43);
    QTest::keyClick(&Grid, Qt::Key_Down);
    expectFresh("three samples and a key");
    for (const int top : {20, 21, 18, 30, 1}) {
        ScrollTo(top);
        QTest::keyClick(&Grid, Qt::Key_Up, Qt::ShiftModifier);
        expectFresh("scrolling");
    }
    Log.Clear(QStringLiteral("07"), QStringLiteral("1.00"), QStringLiteral("0.100"));
    expectFresh("clearing");
}

TEST(LogGridPainting, ReadsOnlyTheRowsThatAreSeen) {
    CountingModel model;
    LogGrid grid(model);
    grid.resize(500, 300);
    grid.grab();
    for (const int row : {1, 5'000'000, 10'000'000}) {
        grid.SelectRow(row);
        model.TextsRead = 0;
        grid.grab();
        EXPECT_GE(model.TextsRead, grid.VisibleRows() * LogColumns);
        EXPECT_LE(model.TextsRead, (grid.VisibleRows() + 1) * LogColumns);
    }
}

}  // namespace
}  // namespace zps::tests

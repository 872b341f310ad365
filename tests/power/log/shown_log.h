// A measurement log in a window, with a clock that the test sets.
#pragma once

#include "power/log/measurement_log.h"

#include <QDateTime>
#include <QLabel>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace zps::tests {

class ShownLog : public testing::Test {
  protected:
    void SetUp() override {
        Log.SetClock([this] { return Time; }, [this] { return Wall; });
        Log.SetSupply([] { return SupplyOnLine{"ZPS-1500", "150V/10A", "COM1", 7}; });
        Log.resize(1000, 300);
        Log.show();
        Grid.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Log));
        Log.SetRunning([] { return true; });
        Log.Restart(QStringLiteral("07"));
    }

    // Samples of 1 V and 0.1 A, 2 V and 0.2 A and so on, 0.165 s apart.
    void Sample(int from, int to) {
        for (int k = from; k <= to; ++k) {
            Time += std::chrono::milliseconds(165);
            const auto volts = static_cast<float>(k);
            Log.Append(k % 100, {volts, 2}, {volts / 10, 3});
        }
    }

    // A row of the grid, or of the chart's table, as one text.
    std::string Row(int row) const {
        QStringList cells;
        for (int column = 0; column < LogColumns; ++column) cells << Log.CellText(row, column);
        return cells.join(u'|').toStdString();
    }
    std::string Chart(int row) const {
        QStringList values;
        for (const auto& value : Log.ChartRow(row).Values)
            values << (value ? QString::number(value->Value) : QString());
        return values.join(u'|').toStdString();
    }

    std::string TopRowShown() { return Control<QLabel>("Label6").text().toStdString(); }
    void ScrollTo(int topRow) { Grid.verticalScrollBar()->setValue(topRow - 1); }

    template <typename Kind>
    Kind& Control(const char* name) {
        return *Log.findChild<Kind*>(QString::fromLatin1(name));
    }

    // The twenty-first of November 2026, 09:00:00.25 where the test runs.
    std::chrono::system_clock::time_point Wall{
        std::chrono::milliseconds(QDateTime({2026, 11, 21}, {9, 0, 0, 250}).toMSecsSinceEpoch())};
    LogRun::Clock::time_point Time{std::chrono::hours(1)};
    MeasurementLog Log;
    LogGrid& Grid = Control<LogGrid>("MSFlexGrid1");
};

}  // namespace zps::tests

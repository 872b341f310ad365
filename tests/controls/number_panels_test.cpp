#include "controls/number_panels.h"

#include "tests/support/panel.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

TEST(PanelsOfBytes, ShowALoneReplyAtOnceAndAStreamNoMoreOftenThanItCanBeRead) {
    NumberPanels panels("Row", 64, 10, 20);
    const auto label = [&](int panel) {
        return panels.findChild<QLabel*>(QString("Row_%1").arg(panel))->text();
    };
    QElapsedTimer since;
    since.start();
    std::uint8_t byte = 0;
    panels.ShowBytes(std::span(&byte, 1));
    EXPECT_EQ(label(1), "0");
    int changes = 0;
    QString seen = label(1);
    WaitFor([&] {
        panels.ShowBytes(std::span(&++byte, 1));
        EXPECT_EQ(panels.Text(1), QString::number(byte));
        if (std::exchange(seen, label(1)) != label(1)) ++changes;
        return since.elapsed() > 500;
    });
    EXPECT_GE(changes, 1);
    EXPECT_LE(changes, since.elapsed() / 35);
    EXPECT_TRUE(WaitFor([&] { return label(1) == panels.Text(1); }));
}

TEST(PanelsOfBytes, OutlastAReplyOnlyAsFarAsTheyAreMeantTo) {
    NumberPanels panels("Row", 64, 10, 20);
    const auto shown = [&] {
        QString all;
        for (int panel = 1; panel <= panels.Count(); ++panel) all += panels.Text(panel) + ",";
        return all;
    };
    panels.ShowBytes(std::vector<std::uint8_t>(1000, 7));
    EXPECT_EQ(shown(), QString("7,").repeated(64));
    panels.ShowBytes(std::vector<std::uint8_t>{1, 2}, 14);
    EXPECT_EQ(shown(), "1,2," + QString(12, ',') + QString("7,").repeated(6) + QString(44, ','));
}

}  // namespace
}  // namespace zps::tests

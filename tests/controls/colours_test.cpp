#include "controls/colours.h"

#include <QApplication>
#include <QPushButton>
#include <QStyle>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace zps::tests {
namespace {

TEST(Contrasts, AreThoseOfKnownPairs) {
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.005);
    EXPECT_NEAR(Contrast(Qt::white, "#777777"), 4.48, 0.005);
    EXPECT_NEAR(Contrast("red", Qt::black), 5.25, 0.005);
    EXPECT_EQ(ReadableOn("#767676"), QColor(Qt::black));
    EXPECT_EQ(ReadableOn("#747474"), QColor(Qt::white));
}

TEST(Selections, ReadWellWhateverTheDesktopSelectsWith) {
    const auto expectReadable = [](const QPalette& palette) {
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            EXPECT_GE(Contrast(palette.color(group, QPalette::Highlight),
                               palette.color(group, QPalette::HighlightedText)),
                      4.5);
    };
    expectReadable(QApplication::palette());
    for (const char* highlight : {"#308cc6", "#ffffff", "#000080"}) {
        QPalette desktop{QColor("#2b2b2b")};
        desktop.setColor(QPalette::Highlight, highlight);
        QApplication::style()->polish(desktop);
        expectReadable(desktop);
    }
}

TEST(PaintedButtons, HaveExactlyTheirColourInEveryStateAndTellTheStatesApart) {
    const QPalette usual = QApplication::palette();
    for (const char* desktop : {"#efefef", "#2b2b2b"}) {
        QApplication::setPalette(QPalette{QColor(desktop)});
        QWidget window;
        QPushButton first(&window);
        QPushButton button(QStringLiteral("00"), &window);
        button.setGeometry(10, 40, 60, 30);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        const std::function<void()> changes[]{[] {}, [&] { QTest::keyClick(&window, Qt::Key_Tab); },
                                              [&] { button.setDown(true); },
                                              [&] { button.setEnabled(false); }};
        for (const Colour colour : {Colour::PaleOrange, Colour::LightCyan, Colour::LightGreen}) {
            PaintBackground(button, colour);
            button.setEnabled(true);
            button.setDown(false);
            first.setFocus();
            std::vector<QImage> pictures;
            for (const auto& change : changes) {
                change();
                const QImage picture = button.grab().toImage();
                for (const QPoint place : {QPoint(5, 5), {30, 5}, {5, 15}, {54, 15}, {54, 24}})
                    EXPECT_EQ(picture.pixelColor(place).name(), ToQColor(colour).name())
                        << desktop << pictures.size() << place.x() << place.y();
                EXPECT_EQ(std::count(pictures.begin(), pictures.end(), picture), 0);
                pictures.push_back(picture);
            }
        }
    }
    QApplication::setPalette(usual);
}

}  // namespace
}  // namespace zps::tests

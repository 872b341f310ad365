#include "controls/colours.h"

#include <QApplication>
#include <QPushButton>
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
    for (const char* ground : {"#ffffff", "#ffe0c0", "#80ffff", "#efefef", "#232323", "#000020"})
        EXPECT_NEAR(Contrast(ground, FaintOn(ground)), 4.7, 0.2) << ground;
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

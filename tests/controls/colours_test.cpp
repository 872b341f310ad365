#include "controls/colours.h"

#include "controls/lamp.h"

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

// On light and dark desktops, and without the colours: the prescribed greens are almost as bright.
TEST(TheLamp, IsSeenToBeLitInAPictureWithoutColours) {
    for (const auto& [idle, lit] : {std::pair{Colour::PaleGreen, Colour::BrightGreen},
                                    {Colour::PaleOrange, Colour::DarkRed},
                                    {Colour::DarkRed, Colour::PaleOrange}}) {
        for (const QColor& desktop : {QColor(0xEF, 0xEF, 0xEF), QColor(53, 53, 53)}) {
            Lamp lamp(idle);
            lamp.resize(lamp.sizeHint());
            lamp.setPalette(QPalette(desktop, desktop));
            const QImage off = lamp.grab().toImage();
            lamp.Light(lit);
            const QImage on = lamp.grab().toImage();
            EXPECT_EQ(on.pixelColor(on.rect().center() + QPoint(5, 5)), ToQColor(lit));
            EXPECT_GE(Contrast(ToQColor(lit), Qt::black), 3);  // the socket around it
            EXPECT_EQ(off.pixelColor(off.rect().center()), ToQColor(idle));
            int differing = 0;
            for (int y = 0; y < on.height(); ++y) {
                for (int x = 0; x < on.width(); ++x) {
                    const int grey = qGray(on.pixel(x, y)) - qGray(off.pixel(x, y));
                    differing += std::abs(grey) > 60;
                }
            }
            EXPECT_GT(differing, on.width() * on.height() / 5);
        }
    }
}

}  // namespace
}  // namespace zps::tests

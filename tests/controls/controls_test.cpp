#include "controls/colours.h"
#include "controls/error_texts.h"
#include "controls/lamp.h"
#include "controls/message_boxes.h"
#include "controls/number_panels.h"
#include "controls/timer.h"
#include "source/errors.h"
#include "source/step_frame.h"
#include "tests/support/panel.h"

#include <QMessageBox>
#include <QStyle>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace zps::tests {
namespace {

class HandlersOfAWindow : public testing::Test {
  protected:
    // A handler that waits, as one with a message box does, until a timer started now would have
    // ticked `count` times.
    static void WaitForTicks(int count) {
        int ticks = 0;
        QTimer reference;
        QObject::connect(&reference, &QTimer::timeout, [&] { ++ticks; });
        reference.start(5ms);
        ASSERT_TRUE(WaitFor([&] { return ticks >= count; }));
    }
    void Later(const char* what) {
        Events.RunWhenFree(what, Origin::Event, [this, what] { Log += what; });
    }

    ScriptedBoxes Boxes;
    Handlers Events{Boxes, nullptr};
    std::string Log;
};

TEST_F(HandlersOfAWindow, KeepTicksBackWhileOneIsUpAndDropThoseOfADisabledTimer) {
    Timer kept("kept", 5ms, Events, TickMode::WhenFree);
    Timer dropped("dropped", 5ms, Events, TickMode::WhenFree);
    kept.OnTick([&] {
        Log += "k";
        kept.SetEnabled(false);
    });
    dropped.OnTick([&] { Log += "d"; });
    for (Timer* timer : {&kept, &dropped}) timer->SetEnabled(true);
    Boxes.WhileUp = [](const Message&) { WaitForTicks(4); };
    Events.Run([&] {
        Boxes.Show(nullptr, {});
        EXPECT_EQ(Log, "");
        dropped.SetEnabled(false);
    });
    WaitForTicks(3);
    EXPECT_EQ(Log, "k");
}

TEST_F(HandlersOfAWindow, RunWhatWaitsOnceEachInOrderAfterOneOrWhileItYields) {
    const char* twice = "a";
    Events.Run([&] {
        for (const char* what : {twice, "b", twice}) Later(what);
        EXPECT_EQ(Log, "");
        Events.Yield([&] { ASSERT_TRUE(WaitFor([&] { return Log.size() >= 2; })); });
        Later("c");
        EXPECT_EQ(Log, "ab");
    });
    Later("d");  // nothing is up any more, but another came before
    EXPECT_TRUE(WaitFor([&] { return Log == "abcd"; }));
}

TEST_F(HandlersOfAWindow, ReportEachErrorInABoxAndGoOn) {
    const std::vector<std::pair<std::function<void()>, QString>> errors{
        {[] { throw serial::PortError(2, make_error_code(std::errc::device_or_resource_busy)); },
         "COM2 포트를 사용할 수 없습니다.\n다른 프로그램이 이 포트를 사용하고 있습니다."},
        {[] { ControlFrame(240, code::Dle); },
         "\n보낼 수 있는 값은 0~255입니다. (보내려던 값: 256)"},
        {[] { StrictInteger("x", 0, 9); }, "\n숫자만 쓸 수 있습니다. (입력: 'x')"},
        {[] { StrictInteger("65536", 0, 65535); },
         "\n쓸 수 있는 값은 0~65535입니다. (입력: 65536)"},
        {[] { SetPointBytes(1e9, 100); },
         "\n값이 너무 커서 보낼 수 없습니다. (보내려던 값: 100000000000)"}};
    for (int time = 0; time < 2; ++time) {
        for (const auto& [handler, text] : errors) {
            Events.Run(handler);
            EXPECT_TRUE(Boxes.LastText().endsWith(text)) << Boxes.LastText().toStdString();
        }
    }
    EXPECT_EQ(Boxes.Shown.size(), 10U);
    EXPECT_FALSE(Events.Busy());
}

TEST(ReasonsOfAPort, AreToldInTheLanguageOfTheWindowsAndTheUnnamedByNumber) {
    std::set<QString> told{ReasonText(serial::PortFault::LinkFolderNotPrivate)};
    // The system of Windows has codes of its own, and none for a file that is no terminal.
    for (const auto* codes : {&std::system_category(), &std::generic_category()}) {
        for (int reason = 1; reason < 4096; ++reason) {
            const QString text = ReasonText({reason, *codes});
            ASSERT_EQ(text.at(0).script(), QChar::Script_Hangul) << reason << text.toStdString();
            if (!text.contains(QString::number(reason))) told.insert(text);
        }
    }
    EXPECT_EQ(told.size(), 7U);
}

TEST_F(HandlersOfAWindow, ReportWhatATimerRepeatsOnceUntilItSucceeds) {
    Timer poll("poll", 5ms, Events, TickMode::WhenFree);
    Timer watch("watch", 5ms, Events, TickMode::WhenFree);  // which fails never
    bool fails = true;
    poll.OnTick([&] {
        if (fails) throw serial::PortError(1, std::make_error_code(std::errc::io_error));
    });
    watch.OnTick([] {});
    poll.SetEnabled(true);
    watch.SetEnabled(true);
    for (const std::size_t boxes : {1U, 2U}) {
        fails = true;
        WaitForTicks(6);
        EXPECT_EQ(Boxes.Shown.size(), boxes);
        fails = false;
        WaitForTicks(3);
    }
}

TEST(MessageBoxesOfTheToolkit, ShowWhatTheyAreToldAndTakeEscapeForNo) {
    ToolkitMessageBoxes boxes;
    QStringList seen;
    QString title = "Title";
    Answer byDefault = Answer::Yes;
    const auto show = [&](MessageIcon icon, MessageButtons buttons, const char* press) {
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            seen << box->windowTitle() + box->text() + QString::number(box->icon());
            EXPECT_GE(box->width(), 160 + box->fontMetrics().horizontalAdvance(box->windowTitle()));
            for (auto* button : box->buttons()) {
                if (button->text() == press) return button->click();
            }
            QTest::keyClick(box, *press == 0 ? Qt::Key_Escape : Qt::Key_Return);
        });
        return boxes.Show(nullptr, {icon, title, "<b>", buttons, byDefault});
    };
    EXPECT_EQ(show(MessageIcon::Question, MessageButtons::YesNo, "예(&Y)"), Answer::Yes);
    EXPECT_EQ(show(MessageIcon::Information, MessageButtons::YesNo, "아니요(&N)"), Answer::No);
    EXPECT_EQ(show(MessageIcon::Critical, MessageButtons::YesNo, ""), Answer::No);
    EXPECT_EQ(seen, (QStringList{"Title<b>4", "Title<b>1", "Title<b>3"}));
    title = "A title that is much longer than what stands in the box";
    EXPECT_EQ(show(MessageIcon::Warning, MessageButtons::YesNo, "Enter"), Answer::Yes);
    byDefault = Answer::No;
    EXPECT_EQ(show(MessageIcon::Question, MessageButtons::YesNo, "Enter"), Answer::No);
}

TEST(PanelsOfBytes, AreNeverNarrowerThanTheirNumbersAndCaptions) {
    NumberPanels panels("Row", 4, 4);
    panels.SetCaptions({{"-", "A VERY LONG CAPTION"}, {"B", "C"}});
    panels.ShowBytes(Bytes{200, 200, 200, 200});
    panels.show();
    for (const int width : {panels.minimumSizeHint().width(), 1000}) {
        panels.resize(width, panels.sizeHint().height());
        QTest::qWait(50);
        int right = -1;
        for (const auto* label : panels.findChildren<QLabel*>()) {
            EXPECT_GE(label->width(), label->sizeHint().width());
            EXPECT_GT(label->x(), right);
            right = label->geometry().right();
        }
        EXPECT_EQ(right, width - 1);
    }
}

TEST(PanelsOfBytes, ShowALoneReplyAtOnceAndAStreamNoMoreOftenThanItCanBeRead) {
    NumberPanels panels("Row", 64, 10, 20);
    const auto* label = panels.findChild<QLabel*>("Row_1");
    std::uint8_t byte = 1;
    panels.ShowBytes(std::span(&byte, 1));
    QString seen = label->text();
    EXPECT_EQ(seen, "1");
    int changes = 0;
    QElapsedTimer since;
    for (since.start(); since.elapsed() < 300; QTest::qWait(1)) {
        panels.ShowBytes(std::span(&++byte, 1));
        EXPECT_EQ(panels.Text(1), QString::number(byte));
        if (std::exchange(seen, label->text()) != label->text()) ++changes;
    }
    EXPECT_GE(changes, 1);
    EXPECT_LE(changes, since.elapsed() / 35);
    EXPECT_TRUE(WaitFor([&] { return label->text() == panels.Text(1); }));
}

TEST(Contrasts, AreThoseOfKnownPairs) {
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.005);
    EXPECT_NEAR(Contrast(Qt::white, "#777777"), 4.48, 0.005);
    EXPECT_NEAR(Contrast("red", Qt::black), 5.25, 0.005);
    EXPECT_EQ(ReadableOn("#767676"), QColor(Qt::black));
    EXPECT_EQ(ReadableOn("#747474"), QColor(Qt::white));
    for (const char* ground : {"#ffffff", "#ffe0c0", "#80ffff", "#efefef", "#232323", "#000020"})
        EXPECT_NEAR(Contrast(ground, FaintOn(ground)), 4.7, 0.2) << ground;
    for (const char* ground : {"#ff0000", "#808080", "#ffffff"})
        EXPECT_GE(Contrast(ground, DisabledText(ReadableOn(ground), ground)), 4.5) << ground;
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

// Presses or releases a key at a time, in ms; whether a shortcut of it would be looked for.
bool Send(QWidget& to, QEvent::Type type, int key, ulong time, bool repeated = false) {
    QKeyEvent event(type, key, Qt::NoModifier, {}, repeated);
    event.setTimestamp(time);
    event.ignore();
    QApplication::sendEvent(&to, &event);
    return !event.isAccepted();
}

TEST(KeyThatIsHeld, CountsOnceHoweverTheSystemTellsOfIt) {
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    const auto press = [&](int key, ulong time, bool repeated = false) {
        const bool looked = Send(button, QEvent::ShortcutOverride, key, time, repeated);
        Send(button, QEvent::KeyPress, key, time, repeated);
        return looked;
    };
    const auto release = [&](int key, ulong time) { Send(button, QEvent::KeyRelease, key, time); };
    for (const int key : {int(Qt::Key_Space), int(Qt::Key_F9)}) {
        EXPECT_TRUE(press(key, 1000));
        for (ulong time = 1660; time < 2000; time += 40) {
            release(key, time);
            EXPECT_FALSE(press(key, time));
        }
        EXPECT_FALSE(press(key, 2000, true));
        release(key, 2010);
        EXPECT_TRUE(press(key, 2020)) << "pressed anew";
        release(key, 2090);
    }
    EXPECT_EQ(clicks, 2);
    release(Qt::Key_Backspace, 3000);  // text keys go on repeating
    EXPECT_TRUE(press(Qt::Key_Backspace, 3000));
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

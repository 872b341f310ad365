#include "controls/error_texts.h"
#include "controls/message_boxes.h"
#include "controls/number_panels.h"
#include "controls/timer.h"
#include "source/errors.h"
#include "source/step_frame.h"
#include "tests/support/panel.h"

#include <QMessageBox>

#include <gtest/gtest.h>

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
        {[] { ControlFrame(240, code::Dle); }, "\n256은(는) 0~255 범위를 벗어나 보낼 수 없습니다."},
        {[] { TimeBytes("x.000"); }, "\n'x'은(는) 숫자가 아닙니다."},
        {[] { TimeBytes("65536.000"); }, "\n65536은(는) 범위 0~65535을(를) 벗어납니다."},
        {[] { SetPointBytes("1e9", 100); }, "\n100000000000은(는) 너무 커서 보낼 수 없습니다."},
        {[] { TimeBytes("5"); }, "\n'5'에 소수점이 없습니다."}};
    for (int time = 0; time < 2; ++time) {
        for (const auto& [handler, text] : errors) {
            Events.Run(handler);
            EXPECT_TRUE(Boxes.LastText().endsWith(text)) << Boxes.LastText().toStdString();
        }
    }
    EXPECT_EQ(Boxes.Shown.size(), 12U);
    EXPECT_FALSE(Events.Busy());
}

TEST(ReasonsOfAPort, AreToldInTheLanguageOfTheWindowsAndTheUnnamedByNumber) {
    std::set<QString> told{ReasonText(serial::PortFault::LinkFolderNotPrivate)};
    for (int reason = 1; reason < 4096; ++reason) {
        const QString text = ReasonText({reason, std::system_category()});
        ASSERT_TRUE(text.at(0).script() == QChar::Script_Hangul) << reason << text.toStdString();
        if (!text.contains(QString::number(reason))) told.insert(text);
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

}  // namespace
}  // namespace zps::tests

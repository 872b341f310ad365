#include "controls/colours.h"
#include "controls/entry_field.h"
#include "controls/message_boxes.h"
#include "tests/support/panel.h"

#include <QLabel>
#include <QMessageBox>

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

TEST(PaintedControls, HaveATextThatCanBeReadEnabledOrNot) {
    for (const auto colour :
         {Colour::PaleOrange, Colour::LightCyan, Colour::PaleGreen, Colour::BrightGreen,
          Colour::LightGreen, Colour::Red, Colour::Yellow, Colour::White, Colour::LightGrey,
          Colour::Grey, Colour::DarkRed, Colour::Blue}) {
        QLabel label("M");
        PaintBackground(label, colour);
        EXPECT_EQ(label.grab().toImage().pixelColor(0, 0), ToQColor(colour));
        const bool dark = colour == Colour::DarkRed || colour == Colour::Blue;
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
                EXPECT_EQ(label.palette().color(group, role), dark ? Qt::white : Qt::black);
        }
    }
    EXPECT_EQ(ToQColor(Colour::PaleOrange), QColor(255, 224, 192));
}

TEST(MessageBoxesOfTheToolkit, ShowWhatTheyAreToldAndTakeEscapeForNo) {
    ToolkitMessageBoxes boxes;
    QStringList seen;
    const auto show = [&](MessageIcon icon, MessageButtons buttons, const char* press) {
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            seen << box->windowTitle() + box->text() + QString::number(box->icon());
            for (auto* button : box->buttons()) {
                if (button->text() == press) return button->click();
            }
            QTest::keyClick(box, Qt::Key_Escape);
        });
        return boxes.Show(nullptr, {icon, "Title", "<b>", buttons});
    };
    EXPECT_EQ(show(MessageIcon::Question, MessageButtons::YesNo, "예(&Y)"), Answer::Yes);
    EXPECT_EQ(show(MessageIcon::Information, MessageButtons::YesNo, "아니요(&N)"), Answer::No);
    EXPECT_EQ(show(MessageIcon::Critical, MessageButtons::YesNo, ""), Answer::No);
    EXPECT_EQ(show(MessageIcon::None, MessageButtons::Ok, "확인"), Answer::Ok);
    EXPECT_EQ(seen, (QStringList{"Title<b>4", "Title<b>1", "Title<b>3", "Title<b>0"}));
}

TEST(AnEntryField, IsLeftOnlyWhenTheFocusMovesWithinTheWindow) {
    EntryField field("field", "field", nullptr);
    std::string log;
    field.SetEvents({.GotFocus = [&] { log += "g"; },
                     .LostFocus = [&] { log += "l"; },
                     .Change = [&] { log += "c"; },
                     .Committed = [&] { log += "e"; },
                     .Cancelled = [&] { log += "x"; },
                     .KeyPress = [&](QChar key) { log += key.toLatin1(); },
                     .Refocusing = {}});
    const auto focus = [&](QEvent::Type type, Qt::FocusReason reason) {
        QFocusEvent event(type, reason);
        QApplication::sendEvent(&field, &event);
    };
    focus(QEvent::FocusOut, Qt::TabFocusReason);  // never entered
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    for (const auto reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        focus(QEvent::FocusOut, reason);
        focus(QEvent::FocusIn, reason);
    }
    QTest::keyClicks(&field, "7");
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClick(&field, Qt::Key_Escape);
    field.setText("8");
    focus(QEvent::FocusOut, Qt::OtherFocusReason);
    EXPECT_EQ(log, "g7cexcl");
}

}  // namespace
}  // namespace zps::tests

#include "controls/colours.h"
#include "controls/entry_field.h"
#include "controls/message_boxes.h"
#include "tests/support/panel.h"

#include <QLabel>
#include <QMessageBox>

#include <gtest/gtest.h>

#include <cmath>

namespace zps::tests {
namespace {

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

TEST(PaintedControls, HaveATextThatCanBeReadEnabledOrNot) {
    for (const auto colour :
         {Colour::PaleOrange, Colour::LightCyan, Colour::DarkRed, Colour::PaleGreen,
          Colour::BrightGreen, Colour::LightGreen, Colour::Red, Colour::Blue, Colour::Yellow,
          Colour::White, Colour::LightGrey, Colour::Grey}) {
        QLabel label("M");
        PaintBackground(label, colour);
        EXPECT_EQ(label.grab().toImage().pixelColor(0, 0), ToQColor(colour));
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
                const double text = Luminance(label.palette().color(group, role));
                const double ground = Luminance(ToQColor(colour));
                const double contrast =
                    (std::max(text, ground) + 0.05) / (std::min(text, ground) + 0.05);
                EXPECT_GE(contrast, 4.5) << static_cast<unsigned>(colour);
            }
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

#include "controls/entry_field.h"
#include "controls/message_boxes.h"
#include "tests/support/panel.h"

#include <QMessageBox>

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

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
    EXPECT_EQ(seen, (QStringList{"Title<b>4", "Title<b>1", "Title<b>3"}));
}

TEST(AnEntryField, IsLeftOnlyWhenTheFocusMovesWithinTheWindow) {
    EntryField field("field", "field", nullptr);
    std::string log;
    EntryField::Events events;
    events.GotFocus = [&] { log += "g"; };
    events.LostFocus = [&] { log += "l"; };
    events.Change = [&] { log += "c"; };
    events.Committed = [&] { log += "e"; };
    events.Cancelled = [&] { log += "x"; };
    field.SetEvents(events);
    const auto focus = [&](QEvent::Type type, Qt::FocusReason reason) {
        QFocusEvent event(type, reason);
        QApplication::sendEvent(&field, &event);
    };
    focus(QEvent::FocusOut, Qt::TabFocusReason);  // never entered
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    for (const auto reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
        focus(QEvent::FocusOut, reason);
        focus(QEvent::FocusIn, reason);
    }
    QTest::keyClicks(&field, "7");
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClick(&field, Qt::Key_Escape);
    field.setText("8");
    field.selectAll();
    focus(QEvent::FocusOut, Qt::OtherFocusReason);
    EXPECT_FALSE(field.hasSelectedText());
    EXPECT_EQ(log, "gcexcl");
}

}  // namespace
}  // namespace zps::tests

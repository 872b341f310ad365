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

}  // namespace
}  // namespace zps::tests

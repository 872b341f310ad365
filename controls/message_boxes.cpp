#include "controls/message_boxes.h"

#include <QMessageBox>
#include <QPushButton>

namespace zps {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None:
            return QMessageBox::NoIcon;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

Answer ToolkitMessageBoxes::Show(QWidget* parent, const Message& message) {
    QMessageBox box(parent);
    box.setWindowTitle(message.Title);
    box.setTextFormat(Qt::PlainText);
    box.setText(message.Text);
    box.setIcon(IconOf(message.Icon));
    if (message.Buttons == MessageButtons::Ok) {
        box.addButton(QStringLiteral("확인"), QMessageBox::AcceptRole);
        box.exec();
        return Answer::Ok;
    }
    const auto* yes = box.addButton(QStringLiteral("예(&Y)"), QMessageBox::YesRole);
    auto* no = box.addButton(QStringLiteral("아니요(&N)"), QMessageBox::NoRole);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes ? Answer::Yes : Answer::No;
}

}  // namespace zps

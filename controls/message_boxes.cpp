#include "controls/message_boxes.h"

#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

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
        case MessageIcon::Warning:
            return QMessageBox::Warning;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

// Large enough to be the most important thing on the screen, and for its whole title.
void GiveRoom(QMessageBox& box) {
    constexpr double textFactor = 1.15;
    constexpr int least = 360;        // px
    constexpr int besideTitle = 160;  // px, the title bar's own things
    QFont face = box.font();
    face.setPointSizeF(face.pointSizeF() * textFactor);
    box.setFont(face);
    face.setBold(true);
    const int title = QFontMetrics(face).horizontalAdvance(box.windowTitle());
    const int wide = std::max(least, title + besideTitle);
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(wide, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

Answer Ask(QMessageBox& box, Answer byDefault) {
    auto* yes = box.addButton(QStringLiteral("예(&Y)"), QMessageBox::YesRole);
    auto* no = box.addButton(QStringLiteral("아니요(&N)"), QMessageBox::NoRole);
    box.setEscapeButton(no);
    box.setDefaultButton(byDefault == Answer::No ? no : yes);
    box.exec();
    return box.clickedButton() == yes ? Answer::Yes : Answer::No;
}

}  // namespace

Answer ToolkitMessageBoxes::Show(QWidget* parent, const Message& message) {
    QMessageBox box(parent);
    box.setWindowTitle(message.Title);
    box.setTextFormat(Qt::PlainText);
    box.setText(message.Text);
    box.setIcon(IconOf(message.Icon));
    box.setInformativeText(message.Meaning);
    box.setAccessibleDescription(message.Meaning);
    GiveRoom(box);
    if (message.Buttons == MessageButtons::YesNo) return Ask(box, message.Default);
    box.addButton(QStringLiteral("확인"), QMessageBox::AcceptRole);
    box.exec();
    return Answer::Ok;
}

}  // namespace zps

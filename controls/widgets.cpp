#include "controls/widgets.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>

namespace zps {

QLabel* MakeLabel(const QString& name, const QString& text, const QString& accessibleName) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setAccessibleName(accessibleName.isEmpty() ? text : accessibleName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton* MakeButton(const QString& name, const QString& text, const QString& accessibleName) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAccessibleName(accessibleName.isEmpty() ? text : accessibleName);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoDefault(false);
    return button;
}

void Embolden(QFont& font) {
    font.setBold(true);
    const QString family = QFontInfo(font).family();
    const QStringList styles = QFontDatabase::styles(family);
    const bool hasBold = std::any_of(styles.begin(), styles.end(), [&](const QString& style) {
        return QFontDatabase::bold(family, style);
    });
    if (!hasBold) font.setHintingPreference(QFont::PreferNoHinting);
}

void Enlarge(QWidget& widget, double factor) {
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    Embolden(font);
    widget.setFont(font);
}

void SetPixels(QWidget& widget, int pixels, bool bold) {
    QFont font = widget.font();
    font.setPixelSize(pixels);
    if (bold) Embolden(font);
    widget.setFont(font);
}

void LetGrow(QWidget& widget) {
    const int usual = widget.sizeHint().expandedTo(widget.minimumSize()).height();
    widget.setMinimumHeight(usual);
    widget.setMaximumHeight(usual * 3 / 2);
    widget.setSizePolicy(widget.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
}

int WidthFor(const QWidget& widget, const QString& text) {
    const QFontMetrics metrics(widget.font());
    return metrics.horizontalAdvance(text) + metrics.height();
}

}  // namespace zps

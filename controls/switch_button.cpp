#include "controls/switch_button.h"

#include "controls/colours.h"
#include "controls/widgets.h"

#include <QAccessible>
#include <QResizeEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>
#include <utility>

namespace zps {

namespace {

constexpr int Gap = 6;      // px, around the key
constexpr double Most = 3;  // times the usual height

QFont CaptionFont(const QFont& desktop, int height) {
    QFont font = desktop;
    const int pixels = QFontInfo(desktop).pixelSize();
    font.setPixelSize(height > 40 ? pixels * 5 / 4 : pixels);
    if (height > 40) Embolden(font);
    return font;
}

}  // namespace

SwitchButton::SwitchButton(const QString& name, const QString& caption,
                           const QString& accessibleName, QString key, int height)
    : Key(std::move(key)), Height(height), Usual(CaptionFont(font(), height)) {
    setText(caption);  // only now: it makes what screen readers hear of this
    setObjectName(name);
    setAccessibleName(accessibleName);
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
    setFont(Usual);
    setMinimumHeight(height);
    setMaximumHeight(static_cast<int>(height * Most));
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
}

QFont SwitchButton::KeyFont() const {
    QFont small = font();
    small.setBold(false);
    small.setPixelSize(std::max(10, small.pixelSize() * 4 / 5));
    return small;
}

int SwitchButton::KeyWidth() const {
    return QFontMetrics(KeyFont()).horizontalAdvance(Key) + Gap;
}

int SwitchButton::WidthFor(const std::vector<const char*>& captions) const {
    int widest = 0;
    for (const char* caption : captions) {
        widest = std::max(widest, fontMetrics().horizontalAdvance(QString::fromUtf8(caption)));
    }
    return widest + KeyWidth() + 2 * Gap;
}

QSize SwitchButton::sizeHint() const {
    return {0, Height};  // its least width is that of all its captions
}

void SwitchButton::ShowOn(bool on) {
    if (on == On) return;
    On = on;
    QAccessible::State checked;
    checked.checked = true;
    QAccessibleStateChangeEvent told(this, checked);
    QAccessible::updateAccessibility(&told);
}

// The caption has as many pixels as the height gives it and the width allows.
void SwitchButton::resizeEvent(QResizeEvent* event) {
    QPushButton::resizeEvent(event);
    const double byHeight = static_cast<double>(height()) / Height;
    const double byWidth = static_cast<double>(width()) / std::max(1, minimumWidth());
    const double larger = std::clamp(std::min(byHeight, byWidth), 1.0, Most);
    QFont caption = Usual;
    caption.setPixelSize(static_cast<int>(Usual.pixelSize() * larger));
    setFont(caption);
}

void SwitchButton::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    // What a switch is must be read while it can't be used, too.
    const QColor ground = palette().color(QPalette::Button);
    const QColor usual = palette().color(QPalette::Active, QPalette::ButtonText);
    const QRect inside = rect().adjusted(Gap, 0, -Gap, 0);
    painter.setPen(isEnabled() ? usual : DisabledText(usual, ground));
    painter.drawText(inside.adjusted(0, 0, -KeyWidth(), 0), Qt::AlignCenter, text());
    painter.setFont(KeyFont());
    painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter, Key);
}

}  // namespace zps

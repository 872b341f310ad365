#include "set_manual/port_option.h"

#include "controls/colours.h"
#include "controls/faded.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace zps {

namespace {

constexpr int Margin = 6;  // px
constexpr double DeviceSize = 0.85;

}  // namespace

PortOption::PortOption(int number) : QRadioButton(QStringLiteral("COM%1").arg(number)) {
    setObjectName(QStringLiteral("optPORT_%1").arg(number));
    setAccessibleName(QStringLiteral("통신 포트 COM%1").arg(number));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    PaintBackground(*this, Colour::LightGrey);
    setAutoFillBackground(false);  // the cell has round corners
}

void PortOption::ShowDevice(const QString& device, bool there, const QString& hint) {
    if (device == Device && there == There && hint == toolTip()) return;
    Device = device;
    There = there;
    setToolTip(hint);
    setAccessibleDescription(hint);
    update();
}

QFont PortOption::DeviceFont() const {
    QFont font = this->font();
    font.setBold(false);
    font.setPointSizeF(font.pointSizeF() * DeviceSize);
    return font;
}

QSize PortOption::sizeHint() const {
    const QFontMetrics metrics(DeviceFont());
    const QSize caption = CaptionSize();
    const int width =
        qMax(caption.width(), metrics.horizontalAdvance(QStringLiteral("/dev/ttyUSB0")));
    return {width + 2 * Margin, caption.height() + metrics.height() + 2 * Margin};
}

void PortOption::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool framed = hasFocus() || isChecked();
    QColor frame = palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText);
    if (!framed) frame.setAlphaF(0.3F);
    painter.setPen(QPen(frame, hasFocus() ? 2 : 1));
    painter.setBrush(ToQColor(Colour::LightGrey));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);

    QStyleOptionButton option;
    initStyleOption(&option);
    option.state &= ~QStyle::State_HasFocus;  // the frame of the cell tells
    option.rect = QRect(QPoint(Margin, Margin), CaptionSize());
    painter.drawControl(QStyle::CE_RadioButton, option);

    painter.setFont(DeviceFont());
    painter.setPen(Faded(*this, There ? 1 : Stale));
    const QRect under = rect().adjusted(Margin, option.rect.bottom(), -Margin, -Margin);
    const QString fitting =
        painter.fontMetrics().elidedText(Device, Qt::ElideMiddle, under.width());
    painter.drawText(under, Qt::AlignLeft | Qt::AlignBottom, fitting);
}

}  // namespace zps

#include "controls/number_panels.h"

#include "controls/colours.h"
#include "controls/faded.h"
#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QFontInfo>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace zps {

namespace {
constexpr int Gap = 2;
constexpr int GroupGap = 8;
constexpr double CaptionSize = 0.75;
}  // namespace

NumberPanels::NumberPanels(const QString& name, int count, int perLine, int lasting)
    : PerLine(perLine),
      Lasting(static_cast<std::size_t>(lasting)),
      Shown(static_cast<std::size_t>(count)) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("수신 데이터"));
    for (int number = 1; number <= count; ++number) AddLabel(number);
}

void NumberPanels::AddLabel(int number) {
    auto* label = MakeLabel(QStringLiteral("%1_%2").arg(objectName()).arg(number), {},
                            QStringLiteral("수신 바이트 %1").arg(number));
    label->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setIndent(3);
    label->setAutoFillBackground(true);  // a new byte paints nothing below it
    SetNumberFace(*label);
    // An empty panel is as large as a full one, so that no reply moves the others.
    label->setText(QStringLiteral("000"));
    label->setMinimumSize(label->sizeHint() + QSize(1, 0));
    label->clear();
    label->setParent(this);
    Panels.push_back({label, {}, (number - 1) % PerLine == 0 ? 0 : Gap});
}

void NumberPanels::SetCaptions(const std::vector<QStringList>& groups) {
    constexpr int air = 4;
    const QFontMetrics metrics(CaptionFont());
    auto next = Panels.begin();
    for (const QStringList& group : groups) {
        if (next != Panels.begin()) next->Before = GroupGap;
        for (const QString& caption : group) {
            QLabel& label = *next->Label;
            next->Caption = caption;
            if (!label.accessibleName().endsWith(caption))
                label.setAccessibleName(label.accessibleName() + u' ' + caption);
            label.setAlignment(Qt::AlignCenter);
            label.setIndent(0);
            label.setMinimumSize(
                std::max(label.minimumWidth(), metrics.horizontalAdvance(caption) + Gap),
                label.sizeHint().height() + air);
            ++next;
        }
    }
    Captioned = true;
    updateGeometry();
}

QFont NumberPanels::CaptionFont() const {
    QFont small = font();
    small.setPixelSize(qRound(QFontInfo(small).pixelSize() * CaptionSize));
    return small;
}

int NumberPanels::CaptionHeight() const {
    return Captioned ? QFontMetrics(CaptionFont()).height() : 0;
}

// The least one of the first line; no other is wider.
int NumberPanels::LineWidth() const {
    int wide = 0;
    for (int place = 0; place < std::min(PerLine, Count()); ++place) {
        const Panel& panel = Panels[static_cast<std::size_t>(place)];
        wide += panel.Before + panel.Label->minimumWidth();
    }
    return wide;
}

QSize NumberPanels::SizeOf(int lines) const {
    const int high = Panels.front().Label->minimumHeight() + CaptionHeight() + Gap;
    return {LineWidth(), lines * high - Gap};
}

QSize NumberPanels::sizeHint() const {
    return SizeOf(LineCount());
}

QSize NumberPanels::minimumSizeHint() const {
    return sizeHint();
}

// What is over is shared out over the whole width and height: no line ends before the next.
void NumberPanels::resizeEvent(QResizeEvent* /*event*/) {
    const int spare = std::max(width() - LineWidth(), 0);
    const auto top = [this](int line) { return (height() + Gap) * line / LineCount(); };
    int right = 0;
    for (int place = 0; place < Count(); ++place) {
        const Panel& panel = Panels[static_cast<std::size_t>(place)];
        const int column = place % PerLine;
        const int line = place / PerLine;
        if (column == 0) right = 0;
        const int left = right + panel.Before;
        right = left + panel.Label->minimumWidth() + spare * (column + 1) / PerLine -
                spare * column / PerLine;
        const int high = top(line + 1) - Gap - top(line) - CaptionHeight();
        panel.Label->setGeometry(left, top(line) + CaptionHeight(), right - left, high);
    }
}

void NumberPanels::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    if (!Captioned) return;
    QPainter painter(this);
    painter.setFont(CaptionFont());
    painter.setPen(Faded(*this, FaintCaption));
    for (const Panel& panel : Panels) {
        const QRect below = panel.Label->geometry();
        const QRect above(below.left(), below.top() - CaptionHeight(), below.width(),
                          CaptionHeight());
        if (event->region().intersects(above))
            painter.drawText(above, Qt::AlignCenter, panel.Caption);
    }
}

QString NumberPanels::Text(int panel) const {
    const auto byte = Shown.at(static_cast<std::size_t>(panel - 1));
    return byte ? QString::number(*byte) : QString();
}

void NumberPanels::ShowBytes(std::span<const std::uint8_t> bytes, int blankTo) {
    const auto length = std::min(bytes.size(), Shown.size());
    for (std::size_t i = 0; i < Shown.size(); ++i) {
        if (i < length)
            Shown[i] = bytes[i];
        else if (i < static_cast<std::size_t>(blankTo) || i >= Lasting)
            Shown[i].reset();
    }
    Received = length;
    Texts.Changed();
}

void NumberPanels::Tint(int count) {
    Tinted = static_cast<std::size_t>(count);
    Dress();
}

void NumberPanels::Dress() {
    constexpr double share = 0.25;
    const QColor tint =
        Between(palette().color(QPalette::Window), palette().color(QPalette::Highlight), share);
    for (std::size_t place = 0; place < Panels.size(); ++place) {
        QLabel& label = *Panels[place].Label;
        QPalette dress;
        if (place < Tinted) dress.setColor(QPalette::Window, tint);
        if (place >= Fresh) dress.setColor(QPalette::WindowText, Faded(*this, Stale));
        label.setPalette(dress);
    }
}

void NumberPanels::SetTexts() {
    for (int panel = 1; panel <= Count(); ++panel)
        Panels[static_cast<std::size_t>(panel - 1)].Label->setText(Text(panel));
    if (std::exchange(Fresh, Received) != Received) Dress();
}

}  // namespace zps

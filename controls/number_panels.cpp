#include "controls/number_panels.h"

#include "controls/faded.h"
#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace zps {

namespace {
constexpr int Gap = 2;
constexpr double CaptionSize = 0.8;
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
    QFont digits = label->font();
    SetNumberFace(digits);
    label->setFont(digits);
    label->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setIndent(2);
    // An empty panel is as large as a full one, so that no reply moves the others.
    label->setText(QStringLiteral("000"));
    label->setMinimumSize(label->sizeHint() + QSize(1, 0));
    label->clear();
    label->setParent(this);
    Labels.push_back(label);
}

QSize NumberPanels::SizeOf(int lines) const {
    const QSize cell = Labels.front()->minimumSize() + QSize(Gap, Gap + CaptionHeight());
    return QSize(PerLine * cell.width(), lines * cell.height()) - QSize(Gap, Gap);
}

QSize NumberPanels::sizeHint() const {
    return SizeOf(LineCount());
}

QSize NumberPanels::minimumSizeHint() const {
    return sizeHint();
}

// Edges from the whole width and height: no line of panels ends before the next.
void NumberPanels::resizeEvent(QResizeEvent* /*event*/) {
    const auto edge = [](int length, int place, int count) {
        return (length + Gap) * place / count;
    };
    for (int place = 0; place < Count(); ++place) {
        const int column = place % PerLine;
        const int line = place / PerLine;
        const QPoint from(edge(width(), column, PerLine), edge(height(), line, LineCount()));
        const QPoint to(edge(width(), column + 1, PerLine), edge(height(), line + 1, LineCount()));
        Labels[static_cast<std::size_t>(place)]->setGeometry(
            {from + QPoint(0, CaptionHeight()), to - QPoint(Gap + 1, Gap + 1)});
    }
}

void NumberPanels::SetCaptions(const QStringList& captions) {
    constexpr int air = 6;
    Captions = captions;
    for (auto* label : Labels) label->setMinimumHeight(label->sizeHint().height() + air);
    updateGeometry();
}

QFont NumberPanels::CaptionFont() const {
    QFont small = Labels.front()->font();
    small.setPointSizeF(small.pointSizeF() * CaptionSize);
    return small;
}

int NumberPanels::CaptionHeight() const {
    return Captions.isEmpty() ? 0 : QFontMetrics(CaptionFont()).height();
}

void NumberPanels::Tint(int count) {
    Tinted = static_cast<std::size_t>(count);
    Dress();
}

void NumberPanels::Dress() {
    constexpr double share = 0.25;
    const QColor tint =
        Mixed(palette().color(QPalette::Highlight), palette().color(QPalette::Window), share);
    for (std::size_t place = 0; place < Labels.size(); ++place) {
        QPalette dress;
        if (place < Tinted) dress.setColor(QPalette::Window, tint);
        if (place >= Fresh) dress.setColor(QPalette::WindowText, Faded(*this, Stale));
        Labels[place]->setPalette(dress);
        Labels[place]->setAutoFillBackground(place < Tinted);
    }
}

void NumberPanels::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    if (Captions.isEmpty()) return;
    QPainter painter(this);
    painter.setFont(CaptionFont());
    painter.setPen(Faded(*this, Stale));
    const auto count = std::min(Captions.size(), static_cast<qsizetype>(Labels.size()));
    for (qsizetype i = 0; i < count; ++i) {
        QRect above = Labels[static_cast<std::size_t>(i)]->geometry();
        above.setBottom(above.top() - 1);
        above.setTop(above.bottom() - CaptionHeight() + 1);
        if (event->region().intersects(above))
            painter.drawText(above.adjusted(0, 0, -3, 0), Qt::AlignRight, Captions.at(i));
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

void NumberPanels::SetTexts() {
    for (int panel = 1; panel <= Count(); ++panel)
        Labels[static_cast<std::size_t>(panel - 1)]->setText(Text(panel));
    if (std::exchange(Fresh, Received) != Received) Dress();
}

}  // namespace zps

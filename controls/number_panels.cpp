#include "controls/number_panels.h"

#include "controls/widgets.h"

#include <algorithm>

namespace zps {

namespace {
constexpr int Gap = 2;
}  // namespace

NumberPanels::NumberPanels(const QString& name, int count, int perLine, int lasting)
    : PerLine(perLine),
      Lasting(static_cast<std::size_t>(lasting)),
      Shown(static_cast<std::size_t>(count)) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("수신 데이타"));
    for (int number = 1; number <= count; ++number) AddLabel(number);
}

void NumberPanels::AddLabel(int number) {
    auto* label = MakeLabel(QStringLiteral("%1_%2").arg(objectName()).arg(number), {},
                            QStringLiteral("수신 바이트 %1").arg(number));
    label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setIndent(3);
    // An empty panel is as large as a full one, so that no reply moves the others.
    label->setText(QStringLiteral("000"));
    label->setMinimumSize(label->sizeHint() + QSize(1, 0));
    label->clear();
    label->setParent(this);
    Labels.push_back(label);
}

QSize NumberPanels::SizeOf(int lines) const {
    const QSize cell = Labels.front()->minimumSize() + QSize(Gap, Gap);
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
        Labels[static_cast<std::size_t>(place)]->setGeometry({from, to - QPoint(Gap + 1, Gap + 1)});
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
    Texts.Changed();
}

void NumberPanels::SetTexts() {
    for (int panel = 1; panel <= Count(); ++panel)
        Labels[static_cast<std::size_t>(panel - 1)]->setText(Text(panel));
}

}  // namespace zps

#include "controls/number_panels.h"

#include "controls/widgets.h"

#include <algorithm>

namespace zps {

NumberPanels::NumberPanels(const QString& name, int count, int perLine, QWidget* parent)
    : QFrame(parent), Lines(new QGridLayout(this)), PerLine(perLine) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("수신 데이타"));
    Lines->setContentsMargins(0, 0, 0, 0);
    Lines->setSpacing(2);
    Grow(static_cast<std::size_t>(count));
}

void NumberPanels::Grow(std::size_t count) {
    while (Panels.size() < count) AddPanel();
}

void NumberPanels::AddPanel() {
    const int place = Count();
    auto* label = MakeLabel(QStringLiteral("%1_%2").arg(objectName()).arg(place + 1), {},
                            QStringLiteral("수신 바이트 %1").arg(place + 1));
    label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setIndent(3);
    // An empty panel is as large as a full one, so that no reply moves the others.
    label->setText(QStringLiteral("000"));
    label->setMinimumSize(label->sizeHint() + QSize(1, 0));
    label->clear();
    Lines->addWidget(label, place / PerLine, place % PerLine);
    Lines->setColumnStretch(place % PerLine, 1);
    Panels.push_back(label);
}

void NumberPanels::ShowBytes(std::span<const std::uint8_t> bytes) {
    for (std::size_t i = 0; i < std::min(bytes.size(), Panels.size()); ++i) {
        Panels[i]->setText(QString::number(bytes[i]));
    }
}

void NumberPanels::Blank(int first, int last) {
    for (int panel = first; panel <= last; ++panel) {
        Panels.at(static_cast<std::size_t>(panel - 1))->clear();
    }
}

}  // namespace zps

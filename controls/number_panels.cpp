#include "controls/number_panels.h"

#include <QHBoxLayout>

namespace zps {

NumberPanels::NumberPanels(const QString& name, int count, QWidget* parent) : QFrame(parent) {
    setObjectName(name);
    setAccessibleName(QStringLiteral("수신 데이타"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (int panel = 1; panel <= count; ++panel) {
        auto* label = new QLabel(this);
        label->setObjectName(QStringLiteral("%1_%2").arg(name).arg(panel));
        label->setAccessibleName(QStringLiteral("수신 바이트 %1").arg(panel));
        label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
        label->setAlignment(Qt::AlignCenter);
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
        row->addWidget(label, 1);
        Panels.push_back(label);
    }
}

void NumberPanels::ShowBytes(std::span<const std::uint8_t> bytes) {
    for (std::size_t i = 0; i < Panels.size(); ++i) {
        Panels[i]->setText(i < bytes.size() ? QString::number(bytes[i]) : QString());
    }
}

}  // namespace zps

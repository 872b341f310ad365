#include "power/panel/link_layout.h"

#include "controls/focus_holder.h"
#include "controls/widgets.h"

#include <QHBoxLayout>

namespace zps {

namespace {

constexpr int ReplyPanels = 14;

QLabel* MakeCounter(const QString& name, const QString& what) {
    auto* counter = MakeLabel(name, QStringLiteral("ZPS"), what);
    counter->setToolTip(what);
    counter->setAlignment(Qt::AlignCenter);
    counter->setMinimumWidth(WidthFor(*counter, QStringLiteral("0000")));
    QPalette palette = counter->palette();
    const QColor ground = palette.color(QPalette::Base);
    PaintBackground(*counter, ground);
    palette = counter->palette();
    palette.setColor(QPalette::WindowText, ReadableOn(ground) == Qt::black
                                               ? QColor(0xC0, 0, 0)
                                               : QColor(0xFF, 0x80, 0x80));
    counter->setPalette(palette);
    return counter;
}

}  // namespace

QWidget* MakeLinkLine(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    controls.StatusBar_RXDATA =
        new NumberPanels(QStringLiteral("StatusBar_RXDATA"), ReplyPanels, ReplyPanels);
    controls.lblZPS_ERR = MakeCounter(QStringLiteral("lblZPS_ERR"), QStringLiteral("무응답 횟수"));
    controls.lblZPS_ERR1 =
        MakeCounter(QStringLiteral("lblZPS_ERR1"), QStringLiteral("길이 오류 횟수"));
    controls.lblZPS_ENQ =
        MakeCounter(QStringLiteral("lblZPS_ENQ"), QStringLiteral("헤더 오류 횟수"));
    // Outside every frame that is ever disabled or hidden, so that it can always take the focus.
    controls.cmdFOCUS = new FocusHolder(QStringLiteral("cmdFOCUS"));
    row->setContentsMargins(3, 2, 8, 4);
    row->setSpacing(4);
    row->addWidget(controls.cmdFOCUS);
    row->addWidget(controls.StatusBar_RXDATA, 1);
    row->addWidget(MakeLabel({}, QStringLiteral("통신 오류")));
    for (QLabel* counter : {controls.lblZPS_ERR, controls.lblZPS_ERR1, controls.lblZPS_ENQ}) {
        row->addWidget(counter);
    }
    return box;
}

}  // namespace zps

#include "power/panel/header_layout.h"

#include "controls/widgets.h"

#include <QHBoxLayout>

namespace zps {

QWidget* MakeIdentity(PowerControls& controls) {
    auto* box = new QWidget;
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    controls.lblZPS_MODEL =
        MakeLabel(QStringLiteral("lblZPS_MODEL"), {}, QStringLiteral("모델 이름"));
    controls.lblSPEC_VA =
        MakeLabel(QStringLiteral("lblSPEC_VA"), {}, QStringLiteral("최대 전압과 전류"));
    Enlarge(*controls.lblZPS_MODEL, 1.6);
    Enlarge(*controls.lblSPEC_VA, 1.6);
    row->addWidget(controls.lblZPS_MODEL);
    row->addSpacing(24);
    row->addWidget(controls.lblSPEC_VA);
    controls.lblNOTICE = MakeLabel(QStringLiteral("lblNOTICE"), {}, QStringLiteral("알림"));
    controls.lblNOTICE->setAlignment(Qt::AlignCenter);
    controls.lblNOTICE->setWordWrap(true);
    Enlarge(*controls.lblNOTICE, 1.1);
    // However long its text is, it moves nothing.
    controls.lblNOTICE->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(controls.lblNOTICE, 1);
    controls.lblORV_URL =
        new ClickLabel(QStringLiteral("lblORV_URL"), QStringLiteral(ZPS_WEB_ADDRESS),
                       QStringLiteral("제조사 웹 주소"));
    row->addWidget(controls.lblORV_URL);
    return box;
}

}  // namespace zps

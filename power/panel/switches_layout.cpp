#include "power/panel/switches_layout.h"

#include "controls/shortcuts.h"
#include "controls/widgets.h"
#include "power/panel/functions.h"

#include <QGridLayout>
#include <QGroupBox>

namespace zps {

QWidget* MakeSwitches(PowerControls& controls) {
    auto* box = new QGroupBox(QStringLiteral("스위치"));
    auto* grid = new QGridLayout(box);
    int place = 0;
    for (const Function& function : Functions()) {
        const QString accessible = QString::fromUtf8(function.Accessible);
        const QString state =
            QString::fromUtf8(&function == &RemoteFunction() ? function.CaptionOff : "OFF");
        auto* button = MakeButton(QString::fromUtf8(function.ButtonName),
                                  QString::fromUtf8(function.CaptionOff), accessible);
        button->setMinimumHeight(button->fontMetrics().height() * 2);
        LetGrow(*button);
        GiveKey(*button, function.Key, QString::fromUtf8(function.ToolTip));
        auto* label = MakeLabel(QString::fromUtf8(function.LabelName), state,
                                accessible + QStringLiteral(" 상태"));
        label->setAlignment(Qt::AlignCenter);
        Enlarge(*label, 1.1);
        label->setMinimumWidth(WidthFor(*label, QStringLiteral("REMOTE")));
        auto* light = new Lamp(function.Idle);
        light->setObjectName(QString::fromUtf8(function.LightName));
        light->setAccessibleName(accessible + QStringLiteral(" 표시등"));
        controls.*function.Button = button;
        controls.*function.Label = label;
        controls.*function.Light = light;
        grid->addWidget(button, place, 0);
        grid->addWidget(light, place, 1);
        grid->addWidget(label, place, 2);
        ++place;
    }
    controls.lblPREMOTE =
        MakeLabel(QStringLiteral("lblPREMOTE"), QStringLiteral("LOC"), QStringLiteral("제어 경로"));
    controls.lblPREMOTE->setAlignment(Qt::AlignCenter);
    grid->addWidget(controls.lblPREMOTE, place, 2);
    grid->setRowStretch(place + 1, 1);
    return box;
}

}  // namespace zps

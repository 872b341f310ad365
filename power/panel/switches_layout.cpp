#include "power/panel/switches_layout.h"

#include "controls/growing_frame.h"
#include "controls/shortcuts.h"
#include "controls/switch_button.h"
#include "controls/widgets.h"
#include "power/panel/functions.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace zps {

namespace {

// px
constexpr int OutputHeight = 56;
constexpr int OtherHeight = 34;
constexpr double Lowest = 0.7;  // of these, in a low window

SwitchButton* MakeSwitch(const Function& function, bool output) {
    const QString key = QKeySequence(function.Key).toString(QKeySequence::NativeText);
    auto* button = new SwitchButton(
        QString::fromUtf8(function.ButtonName), QString::fromUtf8(function.CaptionOff),
        QString::fromUtf8(function.Accessible), key, output ? OutputHeight : OtherHeight);
    button->setMinimumHeight(static_cast<int>((output ? OutputHeight : OtherHeight) * Lowest));
    GiveKey(*button, function.Key, QString::fromUtf8(function.ToolTip));
    return button;
}

Pill* MakeState(const Function& function) {
    const bool remote = &function == &RemoteFunction();
    auto* state = new Pill(QString::fromUtf8(function.LabelName),
                           QString::fromUtf8(remote ? function.CaptionOff : "OFF"),
                           QString::fromUtf8(function.Accessible) + QStringLiteral(" 상태"));
    Enlarge(*state, 1);
    state->setMinimumWidth(state->SizeFor(QStringLiteral("REMOTE")).width());
    return state;
}

Lamp* MakeLamp(const Function& function) {
    auto* light = new Lamp(function.Idle);
    light->setObjectName(QString::fromUtf8(function.LightName));
    light->setAccessibleName(QString::fromUtf8(function.Accessible) + QStringLiteral(" 표시등"));
    return light;
}

QWidget* MakeLine() {
    auto* line = new QFrame;
    line->setFrameStyle(QFrame::HLine | QFrame::Plain);
    QPalette faint = line->palette();
    faint.setColor(QPalette::WindowText,
                   Between(faint.color(QPalette::WindowText), faint.color(QPalette::Window), 0.7));
    line->setPalette(faint);
    line->setFixedHeight(9);
    return line;
}

// What the state means on the line, under it.
QLayout* WithCaption(Pill& state, QLabel& caption) {
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(&state);
    column->addWidget(&caption);
    return column;
}

}  // namespace

QWidget* MakeSwitches(PowerControls& controls) {
    auto* box = new GrowingFrame({200, 320}, 3);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(3);
    grid->setHorizontalSpacing(4);
    grid->setColumnStretch(0, 1);
    controls.lblPREMOTE =
        MakeLabel(QStringLiteral("lblPREMOTE"), QStringLiteral("LOC"), QStringLiteral("제어 경로"));
    controls.lblPREMOTE->setAlignment(Qt::AlignCenter);
    int widest = 0;
    for (const Function& function : Functions()) {
        const bool output = &function == &OutputFunction();
        const int place = grid->rowCount();
        auto* button = MakeSwitch(function, output);
        widest = std::max(widest, button->WidthFor({function.CaptionOff, function.CaptionOn}));
        grid->addWidget(controls.*function.Button = button, place, 0);
        // Aligned, or they would keep the row as low as they are.
        grid->addWidget(controls.*function.Light = MakeLamp(function), place, 1, Qt::AlignCenter);
        Pill& state = *(controls.*function.Label = MakeState(function));
        if (&function == &RemoteFunction()) {
            grid->addLayout(WithCaption(state, *controls.lblPREMOTE), place, 2, Qt::AlignVCenter);
        } else {
            grid->addWidget(&state, place, 2, Qt::AlignVCenter);
        }
        grid->setRowStretch(place, output ? OutputHeight : OtherHeight);
        if (output) grid->addWidget(MakeLine(), place + 1, 0, 1, 3);
    }
    // Equally wide, so that their captions grow alike.
    for (const Function& function : Functions())
        (controls.*function.Button)->setMinimumWidth(widest);
    for (auto* label : box->findChildren<QLabel*>()) box->GrowText(*label);
    box->OnGrow([controls](double factor) {
        for (const Function& function : Functions()) {
            (controls.*function.Light)->Enlarge(factor);
            Pill& state = *(controls.*function.Label);
            state.setMinimumWidth(state.SizeFor(QStringLiteral("REMOTE")).width());
        }
    });
    return box;
}

}  // namespace zps

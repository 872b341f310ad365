#include "demo/supply_menu.h"

#include <QActionGroup>
#include <QMenuBar>

#include <limits>
#include <span>
#include <utility>

namespace zps::demo {

namespace {

using simulator::Fault;
using simulator::FaultKind;
using simulator::Line;

template <class Value>
struct Choice {
    const char* Text;
    Value Figure;
};

// The codes that the supply reports.
constexpr Choice<int> Trips[]{{"장치 최대 전압 초과", 3},    {"장치 최대 전류 초과", 4},
                              {"설정 전압(O.V.P) 초과", 5},  {"설정 전류(O.C.P) 초과", 6},
                              {"출력 OFF인데 전압 있음", 1}, {"출력 OFF인데 전류 있음", 7}};
// In ohms; the first choice of these two is what the supply starts with.
constexpr Choice<double> Loads[]{{"100 Ω", 100},
                                 {"10 Ω", 10},
                                 {"1 Ω", 1},
                                 {"연결 안 함", std::numeric_limits<double>::infinity()}};
// In milliseconds.
constexpr Choice<int> Delays[]{{"없음", 0}, {"0.1초", 100}, {"0.5초", 500}, {"2초", 2000}};

QMenu& AddMenu(QMenu& menu, const char* name, const char* text) {
    auto* const added = menu.addMenu(QString::fromUtf8(text));
    added->menuAction()->setObjectName(QLatin1String(name));
    return *added;
}

// Adds one command for each choice to `menu`; `take` gets the figure of the one that is chosen.
template <class Value, std::size_t Count, class Take>
void AddChoices(QMenu& menu, const Choice<Value> (&choices)[Count], Take take) {
    for (const auto& choice : choices)
        menu.addAction(QString::fromUtf8(choice.Text), &menu,
                       [take, figure = choice.Figure] { take(figure); });
}

// Marks the one of the menu's commands that was chosen last, at first the topmost.
void MarkChosen(QMenu& menu) {
    auto* const group = new QActionGroup(&menu);
    for (QAction* command : menu.actions()) {
        command->setCheckable(true);
        group->addAction(command);
    }
    menu.actions().constFirst()->setChecked(true);
}

template <class Take>
void AddSwitch(QMenu& menu, const char* name, const char* text, Take take) {
    auto* const command = menu.addAction(QString::fromUtf8(text));
    command->setObjectName(QLatin1String(name));
    command->setCheckable(true);
    QObject::connect(command, &QAction::toggled, &menu, take);
}

void Switch(Line& line, const Fault& fault, bool on) {
    on ? line.OrderFault(fault) : line.StopFault(fault.Kind);
}

}  // namespace

void AddSupplyMenu(QMenuBar& bar, Line& line, int address) {
    QMenu& menu = *bar.addMenu(QStringLiteral("모의 전원(&M)"));
    menu.menuAction()->setObjectName(QStringLiteral("mnuSIMULATED"));

    AddChoices(AddMenu(menu, "mnuTRIP", "보호 동작 일으키기(&T)"), Trips,
               [&line, address](int code) { line.Trip(address, code); });

    QMenu& loads = AddMenu(menu, "mnuLOAD", "부하(&L)");
    AddChoices(loads, Loads, [&line, address](double ohms) { line.SetLoad(address, ohms); });
    MarkChosen(loads);

    QMenu& delays = AddMenu(menu, "mnuDELAY", "응답 지연(&D)");
    AddChoices(delays, Delays, [&line](int delay) {
        Switch(line, {.Kind = FaultKind::Delay, .Amount = delay}, delay > 0);
    });
    MarkChosen(delays);

    AddSwitch(menu, "mnuSILENT", "응답 안 함(&N)",
              [&line](bool silent) { Switch(line, {FaultKind::Silent}, silent); });
    AddSwitch(menu, "mnuUNPLUG", "케이블 뽑기(&U)",
              [&line](bool out) { out ? line.Unplug() : line.Plug(); });
}

}  // namespace zps::demo

// What the operator may do. Each action stands for a way into the panel.
#include "tests/operator/operator.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>

#include <array>

namespace zps::tests {

namespace {

QString AnyText(Operator& o) {
    return QString::fromUtf8(o.Pick({"0",   "5",   "12",  "12.5", "20",     "99.9", "151",
                                     "150", "1e3", "-1",  "abc",  "0.0005", "0.5",  "50001",
                                     "",    "163", "00>", "9",    "05>01>", "0102", "4.321"}));
}

QWidget* InAnyRow(Operator& o, const char* column) {
    const auto name = std::string(column) + '_' + std::to_string(o.Draw(RowCount));
    return &o.Panel.Get<QWidget>(name.c_str());
}

QWidget* AnyField(Operator& o) {
    if (o.Chance(50)) return o.Any<QLineEdit>(true);
    if (o.Chance(25)) return &o.Panel.Get<QWidget>(o.Pick({"txtPAUTOSTEP", "txtPAUTOCOUNT"}));
    return InAnyRow(o, o.Pick({"txPVOLT", "txPCURR", "txPTIME", "txPSLOPE", "txPOVP"}));
}

void TypeValue(Operator& o) {
    QWidget* field = AnyField(o);
    if (field == nullptr) return;
    const QString text = AnyText(o);
    o.Say("into " + field->objectName() + " \"" + text + '"');
    o.Chance(80) ? o.Click(field, {}, o.Chance(20)) : field->setFocus(Qt::TabFocusReason);
    if (o.Chance(70)) o.Key(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) o.Key(Qt::Key_Delete);
    for (const QChar& one : text) o.Key(one.toUpper().unicode());
    // Or it stays half-typed.
    if (o.Chance(60))
        o.Key(o.Pick<int>({Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab}));
    if (o.Chance(15)) o.Click(InAnyRow(o, "txPSTEP"));
}

void PressKey(Operator& o) {
    const int key = o.Pick<int>(
        {Qt::Key_Tab,  Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Backtab,   Qt::Key_Return,
         Qt::Key_1,    Qt::Key_9,    Qt::Key_Period,  Qt::Key_Backspace, Qt::Key_Delete,
         Qt::Key_X,    Qt::Key_Left, Qt::Key_Up,      Qt::Key_Down,      Qt::Key_PageDown,
         Qt::Key_Home, Qt::Key_End,  Qt::Key_Escape,  Qt::Key_Space,     Qt::Key_F2,
         Qt::Key_F3,   Qt::Key_F5,   Qt::Key_F6,      Qt::Key_F7,        Qt::Key_F8,
         Qt::Key_F9});
    for (int times = o.Pick({1, 1, 1, 3}); times > 0; --times) o.Key(key);
    o.Say(QKeySequence(key).toString());
    if (key == Qt::Key_Backtab && o.Chance(50)) o.Key(Qt::Key_Space);
}

void Click(Operator& o) {
    const int which = o.Draw(4);
    if (which == 0) return o.Click(o.Any<QPushButton>(false));
    if (which == 1) return o.Click(InAnyRow(o, "txPSTEP"));
    if (which == 2) return o.Click(o.Any<QWidget>(false), {}, o.Chance(30));
    o.Click(&o.Panel.Get<QWidget>(
        o.Pick({"cmdOUTPUT", "cmdAUTO", "cmdPVsense", "cmdOCP", "cmdPREMOTE"})));
}

void TurnWheel(Operator& o) {
    QWidget* over = o.Chance(50) ? &o.Panel.Get<QWidget>("vscAUTOSTEP") : InAnyRow(o, "txPVOLT");
    const QPointF at = over->mapTo(over->window(), over->rect().center());
    QWheelEvent turn(at, over->mapToGlobal(over->rect().center()), {},
                     {0, o.Pick({120, -120, -360})}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(over->window()->windowHandle(), &turn);
}

// With a message box up the button is let go over the box.
void PressScrollBar(Operator& o) {
    auto& bar = o.Panel.Get<QScrollBar>("vscAUTOSTEP");
    const QPoint at(bar.width() / 2, o.Draw(bar.height()));
    if (!bar.visibleRegion().contains(at)) return;
    const auto boxes = o.Panel.Boxes.Shown.size();
    QWindow* window = bar.window()->windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, bar.mapTo(bar.window(), at));
    o.Run(o.Draw(30));
    o.Elsewhere.show();
    const bool box = o.Panel.Boxes.Shown.size() > boxes;
    QTest::mouseRelease(box ? o.Elsewhere.windowHandle() : window, Qt::LeftButton, {},
                        bar.mapTo(bar.window(), at));
    o.Elsewhere.hide();
    const int value = bar.value();
    if (box) o.Run(700);
    if (box && bar.value() != value) o.Complain("the list runs on by itself");
}

void OpenMenu(Operator& o) {
    auto& bar = *o.Panel.Main().findChild<QMenuBar*>();
    auto* title = bar.actions().at(o.Draw(3));
    switch (o.Draw(4)) {
        case 0:
            o.Click(&bar, bar.actionGeometry(title).center());
            break;
        case 1:
            o.Key(Qt::Key_Alt);
            break;
        case 2:
            o.Key(Qt::Key_F10);
            break;
        default:
            o.Key(o.Pick({Qt::Key_S, Qt::Key_D, Qt::Key_P}), Qt::AltModifier);
    }
    o.Run(1);
    if (o.Chance(30)) o.Key(o.Pick({Qt::Key_R, Qt::Key_T, Qt::Key_C, Qt::Key_A, Qt::Key_X}));
    if (o.Chance(70)) o.Key(Qt::Key_Escape);
}

void TriggerMenu(Operator& o) {
    const char* menu =
        o.Pick({"mnuSET_MANU", "mnuTEST", "mnuTEST", "mnuData_Clear", "mnuHELP", "mnuPROGRAM_END"});
    o.Say(QLatin1String(menu));
    o.Panel.Choose(menu);
}

void PressFromOutside(Operator& o) {
    auto* button = o.Any<QAbstractButton>(o.Chance(50));
    if (button == nullptr) return;
    o.Say(button->objectName());
    auto* bus = QAccessible::queryAccessibleInterface(button);
    bus->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

void SetTextFromOutside(Operator& o) {
    QWidget* field = o.Chance(70) ? AnyField(o) : o.Any<QLineEdit>(false);
    if (field == nullptr) return;
    const QString text = AnyText(o);
    o.Say(field->objectName() + " \"" + text + '"');
    auto* bus = QAccessible::queryAccessibleInterface(field);
    if (o.Chance(50)) return bus->setText(QAccessible::Value, text);
    if (auto* editor = bus->editableTextInterface()) editor->insertText(0, text);
}

void ScrollFromOutside(Operator& o) {
    auto* bus = QAccessible::queryAccessibleInterface(&o.Panel.Get<QWidget>("vscAUTOSTEP"));
    bus->valueInterface()->setCurrentValue(o.Pick({0, 1, 4, 50, 93, 200}));
}

void ChangeWindows(Operator& o) {
    if (o.Chance(40))
        return o.Panel.Main().resize(o.Pick({500, 700, 1000, 1400}), o.Pick({400, 700, 1000}));
    o.Elsewhere.show();
    o.Elsewhere.activateWindow();
    o.Run(o.Draw(10));
    o.Elsewhere.hide();
    // The click that brings the panel to the front may do something in the same turn.
    if (o.Chance(80))
        (o.View.MainHasPort() ? &o.Panel.Main() : o.View.PortWindow())->activateWindow();
    if (o.Chance(50)) o.Run(1);
}

void CloseWindow(Operator& o) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || (window == &o.Panel.Main() && o.Chance(80))) continue;
        window->activateWindow();
        o.Run(o.Draw(3));
        o.Chance(50) ? o.Key(Qt::Key_Escape) : static_cast<void>(window->close());
        return;
    }
}

void Replug(Operator& o) {
    o.Unplug();
    if (o.Chance(50)) o.Plug();
}

void BreakLine(Operator& o) {
    constexpr std::array names{"drop", "garble", "split", "duplicate", "delay", "silent", "refuse"};
    const auto kind = static_cast<std::size_t>(o.Draw(names.size()));
    if (kind == 1 && o.Panel.Run.Settings() != nullptr) return;
    o.Say(QLatin1String(names.at(kind)));
    std::array<simulator::Faults, names.size()> faults;
    faults[0].Drop = 0.4;
    faults[1].Garble = 0.4;
    faults[2].Split = 0.5;
    faults[3].Duplicate = 0.5;
    faults[4].Delay = std::chrono::milliseconds(20 + o.Draw(300));
    faults[5].Silent = true;
    faults[6].Refuse = true;
    o.SetFaults(faults.at(kind));
}

void Trip(Operator& o) {
    const int address = o.Pick({1, 1, 30});
    if (o.Chance(50)) return o.Panel.Line().SetLoad(address, o.Pick({0.5, 10.0, 100.0, 1e6}));
    o.Panel.Line().Trip(address, o.Pick({1, 2, 3, 4, 5, 6, 7, 7, 9}));
}

void ChooseAnother(Operator& o) {
    if (o.Panel.Run.Settings() == nullptr) return;
    const int address = o.Pick({1, 1, 30, 30, 7});
    const auto port = "optPORT_" + std::to_string(o.Pick({1, 1, 2, 3}));
    auto& list = o.Panel.GetSetting<QComboBox>("cmbADDR");
    if (o.Chance(30)) {
        o.Click(&o.Panel.GetSetting<QWidget>(port.c_str()));
    } else {
        o.Say(QString::number(address));
        list.setCurrentIndex(address - 1);
        Q_EMIT list.activated(address - 1);
    }
    o.Run(o.Pick({0, 0, 60, 150, 300}));
}

// What somebody does who wants the output on: nothing goes far without it.
void CarryOn(Operator& o) {
    if (o.Panel.Run.Settings() != nullptr) {
        o.SetFaults({});
        o.Panel.WaitForDataResult(QStringLiteral("통신ok = DATA수신!!!"), 900ms);
        if (o.Panel.Run.Settings() != nullptr) o.Panel.Run.Settings()->close();
        o.Panel.Main().activateWindow();
        return o.Run(o.Pick({0, 250, 500}));
    }
    if (!o.View.MainHasPort()) return CloseWindow(o);
    if (!o.View.Usable("cmdPREMOTE")) return OpenSettings(o);
    if (o.View.Text("Rem_Loc") == "LOCAL") return o.Panel.Click("cmdPREMOTE");
    if (!o.View.ShownOn()) return o.Panel.Click("cmdOUTPUT");
}

void Wait(Operator& o) {
    o.Run(o.Pick({20, 50, 100, 200, 400}));
}

constexpr std::array Table{
    Action{"type a value", 16, TypeValue},
    Action{"key", 16, PressKey},
    Action{"click", 22, Click},
    Action{"wheel", 3, TurnWheel},
    Action{"press the scroll bar", 2, PressScrollBar},
    Action{"open a menu", 9, OpenMenu},
    Action{"menu from outside", 4, TriggerMenu},
    Action{"press from outside", 4, PressFromOutside},
    Action{"text from outside", 4, SetTextFromOutside},
    Action{"scroll from outside", 1, ScrollFromOutside},
    Action{"change windows", 5, ChangeWindows},
    Action{"close a window", 4, CloseWindow},
    Action{"replug", 1, Replug},
    Action{"break the line", 2, BreakLine},
    Action{"trip", 2, Trip},
    Action{"choose another", 6, ChooseAnother},
    Action{"open the settings", 2, OpenSettings},
    Action{"carry on", 12, CarryOn},
    Action{"wait", 5, Wait},
};

}  // namespace

std::span<const Action> Actions() {
    return Table;
}

void ActFromOutside(Operator& o) {
    (*o.Pick({TriggerMenu, PressFromOutside, SetTextFromOutside}))(o);
}

void OpenSettings(Operator& o) {
    const auto open = [&o] {
        if (o.View.MainHasPort() && o.View.MenuUsable()) o.Panel.Choose("mnuSET_MANU");
        return !o.View.MainHasPort() || !o.View.MenuUsable();
    };
    const auto boxes = o.Panel.Boxes.Shown.size();
    if (open()) return;
    if (o.Panel.Boxes.Shown.size() == boxes) o.Complain("the settings do not open, without a word");
    const auto said = o.Panel.Boxes.LastTitle().toStdString();
    o.Panel.Main().activateWindow();
    o.Run(20);
    for (int times = 0; times < 3; ++times) o.Key(Qt::Key_Escape);  // an open menu, then the entry
    o.Run(5);
    if (!open()) o.Complain("the settings do not open, also after Escape: " + said);
}

}  // namespace zps::tests

// What the operator may do. Each action stands for one way into the panel.
#include "tests/operator/operator.h"

#include <QAccessible>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QWheelEvent>

#include <array>
#include <string_view>

namespace zps::tests {

namespace {

QString AnyText(Operator& o) {
    return QString::fromUtf8(o.Pick({"0",     "5",     "12",    "12.5", "20",     "99.9",   "151",
                                     "150",   "1e3",   "-1",    "abc",  "",       "0.0005", "0.5",
                                     "50001", "163.6", "4.321", "00>",  "05>01>", "0102",   "9"}));
}

QWidget* Place(Operator& o, const char* kind) {
    return &o.Panel.Get<QWidget>(
        qPrintable(QStringLiteral("%1_%2").arg(QLatin1String(kind)).arg(o.Draw(RowCount))));
}

QWidget* AnyField(Operator& o) {
    if (o.Chance(50)) return o.Any<QLineEdit>(true);
    if (o.Chance(25)) return &o.Panel.Get<QWidget>(o.Pick({"txtPAUTOSTEP", "txtPAUTOCOUNT"}));
    return Place(o, o.Pick({"txPVOLT", "txPCURR", "txPTIME", "txPSLOPE", "txPOVP"}));
}

void LeaveField(Operator& o) {
    switch (o.Draw(9)) {
        case 0:
            return o.Key(Qt::Key_Escape);
        case 1:
            return o.Key(Qt::Key_Return);
        case 2:
        case 3:
            return o.Key(Qt::Key_Tab);
        case 4:
            return o.Key(Qt::Key_Backtab, Qt::ShiftModifier);
        case 5:
            return o.Click(Place(o, "txPSTEP"));
        default:
            return;  // half-typed
    }
}

void TypeValue(Operator& o) {
    QWidget* field = AnyField(o);
    if (field == nullptr || field->property("readOnly").toBool()) return;
    const auto middle = field->rect().center();
    o.Chance(80) ? o.Mouse(field, middle, o.Chance(20)) : field->setFocus(Qt::TabFocusReason);
    if (o.Chance(70)) o.Key(Qt::Key_A, Qt::ControlModifier);
    const QString text = AnyText(o);
    o.Say('"' + text + '"');
    text.isEmpty() ? o.Key(Qt::Key_Delete) : o.Type(text);
    LeaveField(o);
}

void PressKey(Operator& o) {
    const int key = o.Pick<int>(
        {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Space,
         Qt::Key_1, Qt::Key_9, Qt::Key_Period, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_X,
         Qt::Key_Left, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End});
    o.Say(QKeySequence(key).toString());
    o.Key(key);
}

void PressFunctionKey(Operator& o) {
    const int key = Qt::Key_F2 + o.Pick({0, 1, 3, 4, 5, 6, 7, 7});
    o.Say(QKeySequence(key).toString());
    o.Key(key);
}

void PressBacktab(Operator& o) {
    for (int times = 1 + o.Draw(3); times > 0; --times) o.Key(Qt::Key_Backtab, Qt::ShiftModifier);
    if (o.Chance(60)) o.Key(Qt::Key_Space);
}

void ClickButton(Operator& o) {
    o.Click(o.Any<QPushButton>(o.Chance(80)));
}

void ClickSwitch(Operator& o) {
    o.Click(&o.Panel.Get<QPushButton>(
        o.Pick({"cmdOUTPUT", "cmdOUTPUT", "cmdAUTO", "cmdPVsense", "cmdOCP", "cmdPREMOTE"})));
}

void ClickStep(Operator& o) {
    o.Click(Place(o, "txPSTEP"));
}

void ClickAnywhere(Operator& o) {
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr) return;
    const QPoint at(o.Draw(window->width()), o.Draw(window->height()));
    QWidget* there = window->childAt(at);
    if (there != nullptr) o.Mouse(there, there->mapFrom(window, at), o.Chance(30));
}

void TurnWheel(Operator& o) {
    QWidget* over = o.Chance(50) ? &o.Panel.Get<QWidget>("vscAUTOSTEP") : Place(o, "txPVOLT");
    QWindow* window = over->window()->windowHandle();
    const QPoint at = over->mapTo(over->window(), over->rect().center());
    if (window == nullptr || !over->isVisible()) return;
    QWheelEvent turn(at, window->mapToGlobal(at), {}, {0, o.Pick({120, -120, -360})}, Qt::NoButton,
                     {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window, &turn);
}

void PressScrollBar(Operator& o) {
    auto& bar = o.Panel.Get<QScrollBar>("vscAUTOSTEP");
    QWindow* window = bar.window()->windowHandle();
    const QPoint at = bar.mapTo(bar.window(), QPoint(bar.width() / 2, o.Draw(bar.height())));
    if (!bar.visibleRegion().contains(bar.mapFrom(bar.window(), at))) return;
    const auto boxes = o.Panel.Boxes.Shown.size();
    QTest::mousePress(window, Qt::LeftButton, {}, at);
    o.Run(o.Draw(30));
    // With a box up, the button is let go over the box.
    o.Elsewhere.show();
    QWindow* over = o.Panel.Boxes.Shown.size() == boxes ? window : o.Elsewhere.windowHandle();
    QTest::mouseRelease(over, Qt::LeftButton, {}, at);
    o.Elsewhere.hide();
    o.Run(1);
    const int value = bar.value();
    if (over == window) return;
    o.Run(700);
    if (bar.value() != value) o.Complain("the list runs on by itself");
}

void OpenMenu(Operator& o) {
    auto* bar = o.Panel.Main().findChild<QMenuBar*>();
    const auto titles = bar->actions();
    QTest::mouseClick(
        o.Panel.Main().windowHandle(), Qt::LeftButton, {},
        bar->mapTo(&o.Panel.Main(),
                   bar->actionGeometry(titles[o.Draw(static_cast<int>(titles.size()))]).center()));
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        menu && o.Chance(40)) {
        const auto items = menu->actions();
        const auto* item = items[o.Draw(static_cast<int>(items.size()))];
        o.Say(item->objectName());
        QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {},
                          menu->actionGeometry(const_cast<QAction*>(item)).center());
    } else if (o.Chance(70)) {
        o.Key(Qt::Key_Escape);
    }
}

void MenuByKey(Operator& o) {
    QWindow* window = QGuiApplication::focusWindow();
    if (window == nullptr) return;
    const int way = o.Draw(3);
    if (way == 0) QTest::keyClick(window, Qt::Key_Alt);
    if (way == 1) o.Key(Qt::Key_F10);
    if (way == 2) o.Key(o.Pick({Qt::Key_S, Qt::Key_D, Qt::Key_P}), Qt::AltModifier);
    o.Run(1);
    if (o.Chance(30)) o.Key(o.Pick({Qt::Key_R, Qt::Key_T, Qt::Key_C, Qt::Key_A, Qt::Key_X}));
    if (o.Chance(70)) o.Key(Qt::Key_Escape);
}

// As a menu bar of the desktop does.
void TriggerMenu(Operator& o) {
    const char* menu =
        o.Pick({"mnuSET_MANU", "mnuTEST", "mnuTEST", "mnuData_Clear", "mnuHELP", "mnuPROGRAM_END"});
    o.Say(QLatin1String(menu));
    o.Panel.Choose(menu);
}

void PressFromOutside(Operator& o) {
    QObject* target = o.Any<QAbstractButton>(o.Chance(50));
    if (o.Chance(40))
        target = &o.Panel.Get<QAction>(o.Pick({"mnuSET_MANU", "mnuTEST", "mnuData_Clear"}));
    if (target == nullptr) return;
    o.Say(target->objectName());
    // A menu's command has its interface inside the menu that shows it.
    if (auto* command = qobject_cast<QAction*>(target)) {
        if (command->isEnabled()) command->trigger();
        return;
    }
    auto* bus = QAccessible::queryAccessibleInterface(target);
    if (bus != nullptr && bus->actionInterface() != nullptr)
        bus->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

void SetTextFromOutside(Operator& o) {
    QWidget* field = o.Chance(70) ? AnyField(o) : o.Any<QLineEdit>(false);
    if (field == nullptr) return;
    const QString text = AnyText(o);
    o.Say(field->objectName() + " \"" + text + '"');
    auto* bus = QAccessible::queryAccessibleInterface(field);
    if (o.Chance(50)) return bus->setText(QAccessible::Value, text);
    auto* editor = bus->editableTextInterface();
    if (editor == nullptr) return;
    if (o.Chance(50)) editor->deleteText(0, static_cast<int>(bus->text(QAccessible::Value).size()));
    editor->insertText(0, text);
}

void ScrollFromOutside(Operator& o) {
    auto* bus = QAccessible::queryAccessibleInterface(&o.Panel.Get<QWidget>("vscAUTOSTEP"));
    bus->valueInterface()->setCurrentValue(o.Pick({0, 1, 4, 50, 93, 200}));
}

void Resize(Operator& o) {
    o.Panel.Main().resize(o.Pick({500, 700, 1000, 1400}), o.Pick({400, 700, 1000}));
}

void SwitchWindows(Operator& o) {
    if (o.Chance(60)) {
        o.Elsewhere.show();
        o.Elsewhere.activateWindow();
        o.Run(o.Draw(10));
    }
    if (o.Chance(80)) {
        o.Elsewhere.hide();
        (o.PortWindow() != nullptr ? o.PortWindow() : &o.Panel.Main())->activateWindow();
    }
    if (o.Chance(50)) o.Run(1);
}

void Replug(Operator& o) {
    if (o.Chance(40)) return o.Plug();
    o.Unplug();
    if (o.Chance(50)) o.Plug();
}

void BreakLine(Operator& o) {
    constexpr std::array names{"drop", "garble", "split", "duplicate", "delay", "silent", "refuse"};
    const int kind = o.Draw(static_cast<int>(names.size()));
    if (kind == 1 && o.Panel.Run.Settings() != nullptr) return;
    o.Say(QLatin1String(names.at(static_cast<std::size_t>(kind))));
    simulator::Faults faults;
    if (kind == 0) faults.Drop = 0.4;
    if (kind == 1) faults.Garble = 0.4;
    if (kind == 2) faults.Split = 0.5;
    if (kind == 3) faults.Duplicate = 0.5;
    if (kind == 4) faults.Delay = std::chrono::milliseconds(20 + o.Draw(300));
    faults.Silent = kind == 5;
    faults.Refuse = kind == 6;
    o.SetFaults(faults);
}

void Trip(Operator& o) {
    o.Panel.Line().Trip(o.Pick({1, 30}), o.Pick({1, 2, 3, 4, 5, 6, 7, 7, 9}));
}

void ChangeLoad(Operator& o) {
    o.Panel.Line().SetLoad(o.Pick({1, 30}), o.Pick({0.5, 10.0, 100.0, 1e6}));
}

void ChooseAddress(Operator& o) {
    if (o.Panel.Run.Settings() == nullptr) return;
    auto& list = o.Panel.GetSetting<QComboBox>("cmbADDR");
    const int address = o.Pick({1, 1, 30, 30, 7});
    o.Say(QString::number(address));
    list.setCurrentIndex(address - 1);
    Q_EMIT list.activated(address - 1);
    o.Run(o.Pick({0, 0, 60, 150, 300}));
}

void ChoosePort(Operator& o) {
    if (o.Panel.Run.Settings() == nullptr) return;
    const int port = o.Pick({1, 1, 1, 2, 3});
    o.Click(&o.Panel.GetSetting<QWidget>(qPrintable(QStringLiteral("optPORT_%1").arg(port))));
    o.Run(o.Pick({0, 0, 60, 150, 300}));
}

void CloseWindow(Operator& o) {
    if (QWidget* window = o.PortWindow()) {
        o.Say(window->objectName());
        window->activateWindow();
        o.Run(o.Draw(3));
        o.Chance(50) ? o.Key(Qt::Key_Escape) : void(window->close());
    } else if (o.Chance(20)) {
        o.Panel.Main().close();  // the question is always answered with no
    }
    for (QWidget* about : QApplication::topLevelWidgets()) {
        if (about->objectName() == QStringLiteral("frmAbout")) about->close();
    }
}

// Nothing goes far without a supply that is known.
void FinishSettings(Operator& o) {
    if (o.Panel.Run.Settings() == nullptr) return;
    o.SetFaults({});
    o.Panel.WaitForDataResult(QStringLiteral("통신ok = DATA수신!!!"), 900ms);
    if (o.Panel.Run.Settings() == nullptr) return;
    o.Panel.Run.Settings()->close();
    o.Panel.Main().activateWindow();
    o.Run(o.Pick({0, 250, 500}));
}

void Wait(Operator& o) {
    o.Run(o.Pick({20, 50, 100, 200, 400}));
}

constexpr std::array Table{
    Action{"type a value", 16, TypeValue},
    Action{"key", 8, PressKey},
    Action{"function key", 6, PressFunctionKey},
    Action{"back tab", 4, PressBacktab},
    Action{"click a button", 5, ClickButton},
    Action{"click a switch", 5, ClickSwitch},
    Action{"click a step", 8, ClickStep},
    Action{"click anywhere", 4, ClickAnywhere},
    Action{"wheel", 3, TurnWheel},
    Action{"press the scroll bar", 2, PressScrollBar},
    Action{"menu by mouse", 4, OpenMenu},
    Action{"menu by key", 5, MenuByKey},
    Action{"menu command", 3, TriggerMenu},
    Action{"press from outside", 5, PressFromOutside},
    Action{"text from outside", 4, SetTextFromOutside},
    Action{"scroll from outside", 1, ScrollFromOutside},
    Action{"resize", 2, Resize},
    Action{"switch windows", 3, SwitchWindows},
    Action{"replug", 1, Replug},
    Action{"break the line", 2, BreakLine},
    Action{"trip", 1, Trip},
    Action{"load", 1, ChangeLoad},
    Action{"choose an address", 3, ChooseAddress},
    Action{"choose a port", 2, ChoosePort},
    Action{"close a window", 4, CloseWindow},
    Action{"finish the settings", 2, FinishSettings},
    Action{"open the settings", 2, OpenSettings},
    Action{"wait", 5, Wait},
};

}  // namespace

std::span<const Action> Actions() {
    return Table;
}

void ActFromOutside(Operator& o) {
    switch (o.Draw(3)) {
        case 0:
            return TriggerMenu(o);
        case 1:
            return PressFromOutside(o);
        default:
            return SetTextFromOutside(o);
    }
}

void OpenSettings(Operator& o) {
    const auto& menu = o.Panel.Get<QAction>("mnuSET_MANU");
    if (!o.View.MainHasPort() || !menu.isEnabled()) return;
    const auto boxes = o.Panel.Boxes.Shown.size();
    o.Panel.Choose("mnuSET_MANU");
    if (o.Panel.Run.Settings() != nullptr || !menu.isEnabled()) return;
    if (o.Panel.Boxes.Shown.size() == boxes) o.Complain("the settings do not open, without a word");
    const QString said = o.Panel.Boxes.LastText();
    o.Panel.Main().activateWindow();
    o.Run(20);
    o.Key(Qt::Key_Escape);
    o.Run(5);
    if (!o.View.MainHasPort() || !menu.isEnabled()) return;
    o.Panel.Choose("mnuSET_MANU");
    if (o.Panel.Run.Settings() == nullptr && o.View.MainHasPort() && menu.isEnabled())
        o.Complain("the settings do not open, also after Escape: " + said.toStdString());
}

}  // namespace zps::tests

// Somebody who does anything at all with the panel, by every way in, repeatable by a number.
#pragma once

#include "tests/operator/oracle.h"

#include <QtWidgets>

#include <array>
#include <random>

namespace zps::tests {

class Operator {
  public:
    explicit Operator(unsigned seed) : Seed(seed) {
        Panel.Boxes.WhileUp = [this](const Message& message) { AnswerBox(message); };
    }

    bool Start() {
        const bool open = Panel.Open();
        // Ratings that come garbled can't be told from good ones: the settings get a good line.
        QObject::connect(&Panel.Main(), &POWER::SettingsWanted,
                         [this] { Panel.Line().StopFaults(); });
        return open;
    }

    // The n-th action of this seed. Returns what is wrong; empty if nothing.
    std::string Act(int number) {
        Random.seed(Seed * 100'003U + static_cast<unsigned>(number));
        int left = Draw(119);  // the sum of the weights
        const Action* drawn = Actions;
        while ((left -= std::get<int>(*drawn)) >= 0) ++drawn;
        const auto& [weight, name, act] = *drawn;
        Done.push_back(std::to_string(number) + ' ' + Situation() + ": " + name + ':');
        if (Done.size() > 30) Done.pop_front();
        if (!Judge.Plugged && Chance(20)) Plug();
        if (Chance(15)) StopFaults();
        (this->*act)();
        QTest::qWait(Chance(4) ? Pick({20, 50, 100, 200, 400}) : Pick({0, 0, 1, 3, 8}));
        return Judge.Judge();
    }

    std::deque<std::string> Done{"starting"};  // the last actions

  private:
    using Action = std::tuple<int, const char*, void (Operator::*)()>;  // weight, name
    static const Action Actions[];
    static constexpr auto Nowhere = "/dev/zps-no-such-line";

    int Draw(std::size_t below) { return static_cast<int>(Random() % below); }
    bool Chance(int percent) { return Draw(100) < percent; }
    template <class One>
    One Pick(std::initializer_list<One> list) {
        return list.begin()[Draw(list.size())];
    }
    // A control of the windows that are shown; null if there is none.
    template <class Control>
    Control* Any(bool enabled) {
        QList<Control*> all;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            for (auto* one : window->findChildren<Control*>()) {
                if (one->isVisible() && (!enabled || one->isEnabled())) all.push_back(one);
            }
        }
        return all.empty() ? nullptr : all[Draw(all.size())];
    }
    QWidget* InAnyRow(const std::string& column) {
        return &Panel.Control(column + '_' + std::to_string(Draw(RowCount)));
    }
    QWidget* AnyField() {
        if (Chance(50)) return Any<QLineEdit>(true);
        if (Chance(25)) return &Panel.Control(Pick({"txtPAUTOSTEP", "txtPAUTOCOUNT"}));
        return InAnyRow(Pick({"txPVOLT", "txPCURR", "txPTIME", "txPSLOPE", "txPOVP"}));
    }
    QString AnyText() {
        return Pick({"0",   "5",   "12",  "12.5", "20",     "99.9", "151",
                     "150", "1e3", "-1",  "abc",  "0.0005", "0.5",  "50001",
                     "",    "163", "00>", "9",    "05>01>", "0102", "4.321"});
    }
    void Say(const QString& more) { Done.back() += ' ' + more.toStdString(); }
    std::string Situation() {
        if (QWidget* window = Panel.PortWindow()) return window->objectName().toStdString();
        return Panel.ShownOn() ? "on" : Panel.Seen("Rem_Loc");
    }

    // As the mouse and the keyboard do it: nothing covered is reached.
    void Click(QWidget* control, std::optional<QPoint> at = {}, bool twice = false) {
        const QPoint place = control == nullptr ? QPoint() : at.value_or(control->rect().center());
        if (control == nullptr || !control->visibleRegion().contains(place)) return;
        Say(control->objectName());
        QWindow* window = control->window()->windowHandle();
        const QPoint there = control->mapTo(control->window(), place);
        if (twice) return QTest::mouseDClick(window, Qt::LeftButton, {}, there);
        QTest::mouseClick(window, Qt::LeftButton, {}, there);
    }
    static void Key(int key, Qt::KeyboardModifiers with = {}) {
        QWindow* window = QGuiApplication::focusWindow();
        if (window != nullptr) QTest::keyClick(window, static_cast<Qt::Key>(key), with);
    }

    // A box takes the activation, or a second, or somebody else does something meanwhile.
    void AnswerBox(const Message& message) {
        if (++BoxesUp <= 2) {
            if (Chance(40)) {
                QDialog box(&Panel.Main());
                QTimer::singleShot(Draw(60), &box, &QDialog::accept);
                box.exec();
                Panel.Main().activateWindow();
            } else {
                QTest::qWait(Pick({0, 0, 0, 5, 50, 250}));
            }
            if (Chance(30)) ActFromOutside();
        }
        --BoxesUp;
        const bool ends = message.Title == QStringLiteral("프로그램 종료");
        Panel.Boxes.Answers = {!ends && Chance(50) ? Answer::Yes : Answer::No};
        Say('[' + message.Title + ']');
    }

    void TypeValue() {
        QWidget* field = AnyField();
        if (field == nullptr) return;
        const QString text = AnyText();
        Say("into " + field->objectName() + " \"" + text + '"');
        Chance(80) ? Click(field, {}, Chance(20)) : field->setFocus(Qt::TabFocusReason);
        if (Chance(70)) Key(Qt::Key_A, Qt::ControlModifier);
        if (text.isEmpty()) Key(Qt::Key_Delete);
        for (const QChar& one : text) Key(one.toUpper().unicode());
        // Or it stays half-typed.
        if (Chance(60)) Key(Pick({Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab}));
        if (Chance(15)) Click(InAnyRow("txPSTEP"));
    }

    void PressKey() {
        using enum Qt::Key;
        const auto key = Pick(
            {Key_Tab,      Key_Tab,       Key_Backtab, Key_Backtab, Key_Return, Key_1,  Key_9,
             Key_Period,   Key_Backspace, Key_Delete,  Key_X,       Key_Left,   Key_Up, Key_Down,
             Key_PageDown, Key_Home,      Key_End,     Key_Escape,  Key_Space,  Key_F2, Key_F3,
             Key_F5,       Key_F6,        Key_F7,      Key_F8,      Key_F9});
        for (int times = Pick({1, 1, 1, 3}); times > 0; --times) Key(key);
        Say(QKeySequence(key).toString());
        if (key == Key_Backtab && Chance(50)) Key(Key_Space);
    }

    void ClickAny() {
        const int which = Draw(4);
        if (which == 0) return Click(Any<QPushButton>(false));
        if (which == 1) return Click(InAnyRow("txPSTEP"));
        if (which == 2) return Click(Any<QWidget>(false), {}, Chance(30));
        Click(&Panel.Control(Pick({"cmdOUTPUT", "cmdAUTO", "cmdPVsense", "cmdOCP", "cmdPREMOTE"})));
    }

    void TurnWheel() {
        QWidget* over = Chance(50) ? &Panel.Control("vscAUTOSTEP") : InAnyRow("txPVOLT");
        const QPoint at = over->rect().center();
        QWheelEvent turn(over->mapTo(over->window(), at), over->mapToGlobal(at), {},
                         {0, Pick({120, -120, -360})}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(over->window()->windowHandle(), &turn);
    }

    void OpenMenu() {
        auto& bar = *Panel.Main().findChild<QMenuBar*>();
        const int way = Draw(4);
        if (way == 0) Click(&bar, bar.actionGeometry(bar.actions().at(Draw(3))).center());
        if (way == 1) Key(Qt::Key_Alt);
        if (way == 2) Key(Qt::Key_F10);
        if (way == 3) Key(Pick({'S', 'D', 'P'}), Qt::AltModifier);
        QTest::qWait(1);
        if (Chance(30)) Key(Pick({'R', 'T', 'L', 'H', 'C', 'A', 'X', 'S', 'P', 'U', 'N'}));
        if (Chance(70)) Key(Qt::Key_Escape);
    }

    // By the accessibility bus or a menu bar of the desktop, also while a message box is up.
    void ActFromOutside() {
        const int way = Draw(13);
        const auto bus = QAccessible::queryAccessibleInterface;
        if (way < 4) {
            const auto* menu = Pick({"mnuSET_MANU", "mnuTEST", "mnuTEST", "mnuRECORD", "mnuHISTORY",
                                     "mnuData_Clear", "mnuData_Paste", "mnuData_Undo",
                                     "mnuData_Send", "mnuHELP", "mnuPROGRAM_END"});
            Say(menu);
            Panel.Choose(menu);
        } else if (way < 8) {
            auto* button = Any<QAbstractButton>(Chance(50));
            if (button == nullptr) return;
            Say(button->objectName());
            bus(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        } else if (way < 12) {
            QWidget* field = Chance(70) ? AnyField() : Any<QLineEdit>(false);
            if (field == nullptr) return;
            const QString text = AnyText();
            Say(field->objectName() + " \"" + text + '"');
            auto* editor = Chance(50) ? bus(field)->editableTextInterface() : nullptr;
            editor != nullptr ? editor->insertText(0, text)
                              : bus(field)->setText(QAccessible::Value, text);
        } else {
            auto* bar = bus(&Panel.Control("vscAUTOSTEP"))->valueInterface();
            bar->setCurrentValue(Pick({0, 1, 4, 50, 93, 200}));
        }
    }

    // A table that may be anything, and what is done with it; most of them fit the first supply.
    void UseTable() {
        QString text;
        const int values = Pick({5, 5, 5, 5, 4, 6});
        for (int rows = Pick({1, 3, 7, 100}); rows > 0; --rows) {
            for (int cell = 0; cell < values; ++cell)
                text +=
                    (cell > 0 ? "\t" : "") + (Chance(99) ? QString::number(Draw(10)) : AnyText());
            text += '\n';
        }
        if (Chance(70)) QGuiApplication::clipboard()->setText(text);
        const auto* menu = Pick({"mnuData_Paste", "mnuData_Paste", "mnuData_Undo", "mnuData_Send",
                                 "mnuData_Send", "mnuData_Copy_All", "mnuData_Copy_Range"});
        Say(menu);
        Panel.Choose(menu);
        if (Chance(50)) QTest::qWait(Draw(400));
    }

    void ChangeWindows() {
        auto& main = Panel.Main();
        if (Chance(40)) return main.resize(Pick({500, 700, 1000, 1400}), Pick({400, 700, 1000}));
        Elsewhere.show();
        Elsewhere.activateWindow();
        QTest::qWait(Draw(10));
        Elsewhere.hide();
        // The click that brings the panel to the front may do something in the same turn.
        QWidget* window = Panel.PortWindow();
        if (Chance(80)) (window == nullptr ? &main : window)->activateWindow();
        if (Chance(50)) QTest::qWait(1);
    }

    void CloseWindow() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || (window == &Panel.Main() && Chance(80))) continue;
            window->activateWindow();
            QTest::qWait(Draw(3));
            return Chance(50) ? Key(Qt::Key_Escape) : static_cast<void>(window->close());
        }
    }

    void Plug() {
        Panel.Line().Plug();
        Panel.Link().Point(Panel.Line().DeviceName());
        Judge.Plugged = true;
    }

    void BreakLine() {
        using simulator::FaultKind;
        const int kind = Draw(10);
        if (kind > 6) return Unplug();
        Say(QString::number(kind));
        StopFaults();
        if (kind == 1 && Panel.Run.Settings() != nullptr) return;
        const std::array<simulator::Fault, 7> faults{
            {{.Kind = FaultKind::Drop, .When = {.Rate = 0.4}},
             {.Kind = FaultKind::Garble, .When = {.Rate = 0.4}},
             {.Kind = FaultKind::Split, .When = {.Rate = 0.5}},
             {.Kind = FaultKind::Duplicate, .When = {.Rate = 0.5}},
             {.Kind = FaultKind::Delay, .Amount = 20 + (kind == 4 ? Draw(300) : 0)},
             {.Kind = FaultKind::Silent},
             {.Kind = FaultKind::Refuse, .When = {.On = simulator::Stx}}}};
        Panel.Line().OrderFault(faults.at(static_cast<std::size_t>(kind)));
    }
    // The link goes first: nobody must open what takes the name of the terminal next.
    void Unplug() {
        Judge.Plugged = false;
        Panel.Link().Point(Nowhere);
        Panel.Line().Unplug();
        if (Chance(50)) Plug();
    }
    // The replies that are still under way belong to frames of before.
    void StopFaults() {
        for (const auto& fault : Panel.Line().OrderedFaults()) QTest::qWait(fault.Amount + 50);
        Panel.Line().StopFaults();
    }

    void Trip() {
        const int address = Pick({1, 1, 30});
        if (Chance(50)) return Panel.Line().SetLoad(address, Pick({0.5, 10.0, 100.0, 1e6}));
        Panel.Line().Trip(address, Pick({1, 2, 3, 4, 5, 6, 7, 7, 9}));
    }

    void ChooseAnother() {
        if (Panel.Run.Settings() == nullptr) return;
        if (Chance(30)) {
            Click(&Panel.GetSetting<QWidget>(
                Pick({"optPORT_1", "optPORT_1", "optPORT_2", "optPORT_3"})));
        } else {
            auto& list = Panel.GetSetting<QComboBox>("cmbADDR");
            list.setCurrentIndex(Pick({1, 1, 30, 30, 7}) - 1);
            Say(list.currentText());
            Q_EMIT list.activated(list.currentIndex());
        }
        QTest::qWait(Pick({0, 0, 60, 150, 300}));
    }

    // Whatever stands in the fields, the settings window opens or a message says why not; it opens
    // at the latest once Escape has been pressed.
    void OpenSettings() {
        const auto opens = [this] {
            if (Panel.PortWindow() == nullptr && Panel.MenuUsable()) Panel.Choose("mnuSET_MANU");
            return Panel.PortWindow() != nullptr || !Panel.MenuUsable();
        };
        const auto boxes = Panel.Boxes.Shown.size();
        const bool sent =
            WaitFor([&] { return Panel.Main().findChild<QProgressDialog*>() == nullptr; });
        Judge.Never(!sent, "the sending of steps does not end");
        for (auto* dialog : Panel.Main().findChildren<QDialog*>()) dialog->close();
        if (opens()) return;
        Judge.Never(Panel.Boxes.Shown.size() == boxes, "the settings do not open, without a word");
        for (int times = 0; times < 3; ++times) {  // an open menu, then the entry
            Panel.Main().activateWindow();
            Judge.Never(!QTest::qWaitForWindowActive(&Panel.Main()), "the window stays inactive");
            Key(Qt::Key_Escape);
        }
        QTest::qWait(5);
        Judge.Never(!opens(), "the settings do not open, also after Escape");
    }

    // What somebody does who wants the output on: nothing goes far without it.
    void CarryOn() {
        if (Panel.Run.Settings() != nullptr) {
            StopFaults();
            Panel.WaitForDataResult(QStringLiteral("통신ok = DATA수신!!!"), 900ms);
            if (Panel.Run.Settings() != nullptr) Panel.Run.Settings()->close();
            Panel.Main().activateWindow();
            return QTest::qWait(Pick({0, 250, 500}));
        }
        if (Panel.PortWindow() != nullptr) return CloseWindow();
        if (!Panel.Usable("cmdPREMOTE")) return OpenSettings();
        if (Panel.Seen("Rem_Loc") == "LOCAL") return Panel.Click("cmdPREMOTE");
        if (!Panel.ShownOn()) return Panel.Click("cmdOUTPUT");
    }

    // Different ratings everywhere: what is shown tells whose they are.
    SeenPanel Panel{{{}, {.Address = 30, .Volts = 20, .Amps = 5}}};
    simulator::Line SecondLine{{{.Address = 1, .Volts = 40, .Amps = 2}}};
    simulator::PortLink Second{2, SecondLine.DeviceName()};
    simulator::PortLink Absent{3, Nowhere};
    Oracle Judge{Panel, {{1, &Panel.Line()}, {2, &SecondLine}}};
    QWidget Elsewhere;  // a window of another program
    const unsigned Seed;
    std::mt19937 Random;
    int BoxesUp = 0;
};

inline const Operator::Action Operator::Actions[] = {
    {16, "type a value", &Operator::TypeValue},
    {16, "key", &Operator::PressKey},
    {22, "click", &Operator::ClickAny},
    {3, "wheel", &Operator::TurnWheel},
    {9, "open a menu", &Operator::OpenMenu},
    {13, "from outside", &Operator::ActFromOutside},
    {6, "use the table", &Operator::UseTable},
    {5, "change windows", &Operator::ChangeWindows},
    {4, "close a window", &Operator::CloseWindow},
    {3, "break the line", &Operator::BreakLine},
    {2, "trip", &Operator::Trip},
    {6, "choose another", &Operator::ChooseAnother},
    {2, "open the settings", &Operator::OpenSettings},
    {12, "carry on", &Operator::CarryOn}};

}  // namespace zps::tests

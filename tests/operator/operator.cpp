#include "tests/operator/operator.h"

#include "test/test.h"

#include <QComboBox>
#include <QDialog>
#include <QTimer>

#include <numeric>

namespace zps::tests {

namespace {

const std::string Nowhere = "/dev/zps-no-such-line";

bool IsSettings(const QObject& window) {
    return window.objectName() == QStringLiteral("SET_MANUAL");
}

}  // namespace

// Different ratings everywhere: what is shown tells whose they are.
Operator::Operator(unsigned seed)
    : Panel({{}, {.Address = 30, .Volts = 20, .Amps = 5}}),
      SecondLine({{.Address = 1, .Volts = 40, .Amps = 2}}),
      Second(2, SecondLine.DeviceName()),
      Absent(3, Nowhere),
      Judge(Panel, {{1, &Panel.Line()}, {2, &SecondLine}}),
      // Nobody can tell garbled ratings from others: the reply has no check byte that counts.
      Watch([this](QObject& watched, const QEvent& event) {
          if (event.type() == QEvent::Show && IsSettings(watched)) Panel.Line().SetFaults({});
      }),
      Seed(seed) {
    Panel.Boxes.WhileUp = [this](const Message& message) { AnswerBox(message); };
    Elsewhere.setObjectName(QStringLiteral("elsewhere"));
    Elsewhere.resize(100, 50);
}

Operator::Findings Operator::AllWrong() {
    auto all = Judge.Judge();
    all.insert(all.end(), Wrong.begin(), Wrong.end());
    Wrong.clear();
    return all;
}

Operator::Findings Operator::Start() {
    if (!Panel.Identify()) Complain("the supply was not identified");
    Panel.Run.Settings()->close();
    if (!WaitFor([&] { return View.StepOf(0).Held; })) Complain("the top step was not started");
    Run(300);
    return AllWrong();
}

Operator::Findings Operator::Act(int number) {
    Random.seed(Seed * 100'003U + static_cast<unsigned>(number));
    const auto actions = Actions();
    const auto add = [](int sum, const Action& action) { return sum + action.Weight; };
    int draw = Draw(std::accumulate(actions.begin(), actions.end(), 0, add));
    const Action* action = actions.data();
    while ((draw -= action->Weight) >= 0) ++action;
    Did = std::to_string(number) + ' ' + action->Name + ':';
    if (!Judge.Plugged && Chance(20)) Plug();
    if (Chance(15)) SetFaults({});
    action->Do(*this);
    Run(Pick({0, 0, 1, 3, 8}));
    return AllWrong();
}

Operator::Findings Operator::ComeHome() {
    Did = "coming home";
    if (const auto lost = WayHome(); !lost.empty()) Complain("no way home: " + lost);
    return AllWrong();
}

std::string Operator::WayHome() {
    Plug();
    SetFaults({});
    Run(200);
    for (int tries = 0; tries < 5 && Panel.Run.Settings() == nullptr; ++tries) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window != &Panel.Main() && window->isVisible()) window->close();
        }
        Panel.Main().activateWindow();
        Run(50);
        Key(Qt::Key_Escape);
        Key(Qt::Key_Escape);
        Run(20);
        const bool locked = !Panel.Get<QAction>("mnuSET_MANU").isEnabled();
        if (locked) Panel.Click(View.ShownOn() ? "cmdOUTPUT" : "cmdPREMOTE");
        Run(locked ? 1200 : 20);
        OpenSettings(*this);
    }
    if (Panel.Run.Settings() == nullptr) return "the settings window does not open";
    Panel.GetSetting<QAbstractButton>("optPORT_1").click();
    auto& addresses = Panel.GetSetting<QComboBox>("cmbADDR");
    addresses.setCurrentIndex(0);
    Q_EMIT addresses.activated(0);
    Run(1000);
    if (!Panel.WaitForDataResult(QStringLiteral("통신ok = DATA수신!!!")))
        return "the supply is not identified";
    Panel.Run.Settings()->close();
    Run(700);
    const int row = View.Text("txtSTEP") == View.Text("txPSTEP_3") ? 4 : 3;
    const auto button = "txPSTEP_" + std::to_string(row);
    if (!View.Usable(button.c_str())) return "a step can't be selected";
    Panel.Click(button.c_str());
    const int step = View.Text(button.c_str()).toInt();
    Run(200);
    return View.StepOf(step).Held ? "" : "a step can't be sent";
}

// A box takes the activation, or a second, or somebody else does something meanwhile.
void Operator::AnswerBox(const Message& message) {
    if (++BoxesUp <= 2) {
        if (Chance(40)) {
            QDialog box(&Panel.Main());
            QTimer::singleShot(Draw(60), &box, &QDialog::accept);
            box.exec();
            Panel.Main().activateWindow();
        } else {
            Run(Pick({0, 0, 0, 5, 50, 250}));
        }
        if (Chance(30)) ActFromOutside(*this);
    }
    --BoxesUp;
    const bool end = message.Title == QStringLiteral("프로그램 종료");
    Panel.Boxes.Answers = {!end && Chance(50) ? Answer::Yes : Answer::No};
    Say('[' + message.Title + ']');
}

void Operator::Mouse(QWidget* control, const QPoint& at, bool twice) {
    QWindow* window = control->window()->windowHandle();
    if (window == nullptr || !control->visibleRegion().contains(at)) return;
    const QPoint place = control->mapTo(control->window(), at);
    Say(control->objectName());
    twice ? QTest::mouseDClick(window, Qt::LeftButton, {}, place)
          : QTest::mouseClick(window, Qt::LeftButton, {}, place);
}

void Operator::Key(int key, Qt::KeyboardModifiers with) {
    if (QWindow* window = QGuiApplication::focusWindow())
        QTest::keyClick(window, static_cast<Qt::Key>(key), with);
}

void Operator::Type(const QString& text) {
    for (const QChar& one : text) {
        if (QWindow* window = QGuiApplication::focusWindow())
            QTest::keyClick(window, one.toLatin1());
    }
}

void Operator::Unplug() {
    Judge.Plugged = false;
    Panel.Link().Point(Nowhere);
    Panel.Line().Unplug();
}

void Operator::Plug() {
    Panel.Line().Plug();
    Panel.Link().Point(Panel.Line().DeviceName());
    Judge.Plugged = true;
}

// Replies that are still under way belong to frames that had the faults before.
void Operator::SetFaults(const simulator::Faults& faults) {
    const auto late = Panel.Line().PresentFaults().Delay;
    if (late > 0ms) Run(static_cast<int>(late.count()) + 50);
    Panel.Line().SetFaults(faults);
}

QWidget* Operator::PortWindow() {
    Program& program = Panel.Run;
    if (auto* settings = program.Settings()) return settings;
    return program.Test();
}

}  // namespace zps::tests

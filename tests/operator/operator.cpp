#include "tests/operator/operator.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QTimer>

#include <numeric>

namespace zps::tests {

namespace {
constexpr auto Nowhere = "/dev/zps-no-such-line";
const auto DataReceived = QStringLiteral("통신ok = DATA수신!!!");
}  // namespace

// Different ratings everywhere: what is shown tells whose they are. Ratings that come garbled can't
// be told from good ones, so the settings window gets a good line.
Operator::Operator(unsigned seed)
    : Panel({{}, {.Address = 30, .Volts = 20, .Amps = 5}}),
      SecondLine({{.Address = 1, .Volts = 40, .Amps = 2}}),
      Second(2, SecondLine.DeviceName()),
      Absent(3, Nowhere),
      Judge(Panel, {{1, &Panel.Line()}, {2, &SecondLine}}),
      Watch([this](QObject& watched, const QEvent& event) {
          if (event.type() == QEvent::Show && &watched == Panel.Run.Settings())
              Panel.Line().SetFaults({});
      }),
      Seed(seed) {
    Panel.Boxes.WhileUp = [this](const Message& message) { AnswerBox(message); };
}

Findings Operator::AllWrong() {
    auto all = Judge.Judge();
    all.insert(all.end(), Wrong.begin(), Wrong.end());
    Wrong.clear();
    return all;
}

Findings Operator::Start() {
    if (!Panel.Open()) Complain("the supply did not come into use");
    return AllWrong();
}

Findings Operator::Act(int number, const QStringList& without) {
    Random.seed(Seed * 100'003U + static_cast<unsigned>(number));
    const auto actions = Actions();
    int draw = Draw(std::accumulate(actions.begin(), actions.end(), 0,
                                    [](int sum, const Action& one) { return sum + one.Weight; }));
    const Action* action = actions.data();
    while ((draw -= action->Weight) >= 0) ++action;
    Doing = std::to_string(number) + ' ' + Situation() + ": " + action->Name + ':';
    if (!Judge.Plugged && Chance(20)) Plug();
    if (Chance(15)) SetFaults({});
    if (!without.contains(QLatin1String(action->Name))) action->Do(*this);
    Run(Pick({0, 0, 1, 3, 8}));
    return AllWrong();
}

std::string Operator::Situation() const {
    if (!View.MainHasPort()) return View.PortWindow()->objectName().toStdString();
    if (!View.Usable("cmdPREMOTE")) return "no panel";
    return View.ShownOn() ? "on" : View.Text("Rem_Loc");
}

Findings Operator::ComeHome() {
    Doing = "coming home:";
    Plug();
    SetFaults({});
    // A report that was under way may come between.
    std::string lost = "no way home";
    for (int tries = 0; tries < 3 && !lost.empty(); ++tries) lost = WayHome();
    if (!lost.empty()) Complain("no way home: " + lost);
    return AllWrong();
}

std::string Operator::WayHome() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != &Panel.Main()) window->close();
    }
    Panel.Main().activateWindow();
    Run(20);
    for (int times = 0; times < 3; ++times) Key(Qt::Key_Escape);
    if (!View.MenuUsable()) Panel.Click(View.ShownOn() ? "cmdOUTPUT" : "cmdPREMOTE");
    WaitFor([this] { return View.MenuUsable(); }, 1500ms);
    OpenSettings(*this);
    if (Panel.Run.Settings() == nullptr) return "the settings window does not open";
    Panel.GetSetting<QAbstractButton>("optPORT_1").click();
    auto& addresses = Panel.GetSetting<QComboBox>("cmbADDR");
    addresses.setCurrentIndex(0);
    Q_EMIT addresses.activated(0);
    Run(1000);
    if (!Panel.WaitForDataResult(DataReceived)) return "the supply is not identified";
    Panel.Run.Settings()->close();
    Run(700);
    const char* button = View.Text("txtSTEP") == View.Text("txPSTEP_3") ? "txPSTEP_4" : "txPSTEP_3";
    const auto step = std::stoul(View.Text(button));
    if (!View.Usable(button)) return "a step can't be selected";
    Panel.Click(button);
    Run(300);
    return View.Held(step) ? "" : "a step can't be sent";
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
    const bool ends = message.Title == QStringLiteral("프로그램 종료");
    Panel.Boxes.Answers = {!ends && Chance(50) ? Answer::Yes : Answer::No};
    Say('[' + message.Title + ']');
}

void Operator::Click(QWidget* control, std::optional<QPoint> at, bool twice) {
    const QPoint place = control == nullptr ? QPoint() : at.value_or(control->rect().center());
    if (control == nullptr || !control->visibleRegion().contains(place)) return;
    Say(control->objectName());
    const QPoint there = control->mapTo(control->window(), place);
    (twice ? qOverload<QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int>(
                 &QTest::mouseDClick)
           : qOverload<QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int>(
                 &QTest::mouseClick))(control->window()->windowHandle(), Qt::LeftButton, {}, there,
                                      -1);
}

void Operator::Key(int key, Qt::KeyboardModifiers with) {
    if (QWindow* window = QGuiApplication::focusWindow())
        QTest::keyClick(window, static_cast<Qt::Key>(key), with);
}

// The link goes first: nobody must open what takes the name of the terminal next.
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

// The replies that are still under way belong to frames of before.
void Operator::SetFaults(const simulator::Faults& faults) {
    const auto before = Panel.Line().PresentFaults();
    const bool late = before.Delay > 0ms || before.Split > 0 || before.Duplicate > 0;
    if (late) Run(static_cast<int>(before.Delay.count()) + 50);
    Panel.Line().SetFaults(faults);
}

}  // namespace zps::tests

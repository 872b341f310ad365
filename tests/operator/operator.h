// Somebody who does anything at all with the panel, by every way in, repeatable by a number.
#pragma once

#include "tests/operator/oracle.h"

#include <QPushButton>

#include <random>
#include <span>
#include <string>

namespace zps::tests {

class Operator {
  public:
    explicit Operator(unsigned seed);

    using Findings = std::vector<std::string>;

    // Starts the program and brings it into use. Returns what is wrong; so do those below.
    Findings Start();
    // One action at random: the n-th of this seed.
    Findings Act(int number);
    // Whatever has been done, the panel can be brought into use again.
    Findings ComeHome();
    // What the last action was.
    const std::string& Done() const { return Did; }

    // For the actions.
    int Draw(int below) { return static_cast<int>(Random() % static_cast<unsigned>(below)); }
    bool Chance(int percent) { return Draw(100) < percent; }
    template <class One>
    One Pick(std::initializer_list<One> list) {
        return list.begin()[Draw(static_cast<int>(list.size()))];
    }
    // A control of the visible windows, disabled ones too; null if there is none.
    template <class Control>
    Control* Any(bool enabled) {
        QList<Control*> all;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible()) continue;
            for (auto* one : window->findChildren<Control*>()) {
                if (one->isVisible() && (!enabled || one->isEnabled())) all.push_back(one);
            }
        }
        return all.empty() ? nullptr : all[Draw(static_cast<int>(all.size()))];
    }
    void Say(const QString& more) { Did += ' ' + more.toStdString(); }
    // What the action itself has found wrong.
    void Complain(const std::string& wrong) { Wrong.push_back(wrong); }
    static void Run(int milliseconds) { QTest::qWait(milliseconds); }

    // As a person does it: what is hidden or covered is not reached, and the keyboard has its
    // window.
    void Mouse(QWidget* control, const QPoint& at, bool twice = false);
    void Click(QWidget* control) {
        if (control != nullptr) Mouse(control, control->rect().center());
    }
    static void Key(int key, Qt::KeyboardModifiers with = {});
    static void Type(const QString& text);
    void Unplug();
    void Plug();
    void SetFaults(const simulator::Faults& faults);
    QWidget* PortWindow();

    SimulatedPanel Panel;
    PanelView View{Panel};
    QWidget Elsewhere;  // a window of another program

  private:
    void AnswerBox(const Message& message);
    Findings AllWrong();
    std::string WayHome();

    simulator::Line SecondLine;
    simulator::PortLink Second;
    simulator::PortLink Absent;
    Oracle Judge;
    EventWatch Watch;
    const unsigned Seed;
    std::mt19937 Random;
    int BoxesUp = 0;
    std::string Did;
    Findings Wrong;
};

struct Action {
    const char* Name;
    int Weight;
    void (*Do)(Operator& o);
};
std::span<const Action> Actions();
// What can be done from outside while a message box has the panel.
void ActFromOutside(Operator& o);
// Opens the settings window. Whatever stands in the fields, that works or a message says why not,
// and works at the latest once Escape has been pressed.
void OpenSettings(Operator& o);

}  // namespace zps::tests

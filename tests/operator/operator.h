// Somebody who does anything at all with the panel, by every way in, repeatable by a number.
#pragma once

#include "tests/operator/oracle.h"

#include <QApplication>
#include <QWidget>

#include <random>
#include <span>

namespace zps::tests {

class Operator {
  public:
    explicit Operator(unsigned seed);

    // Starts the program and brings it into use. Returns what is wrong; so do those below.
    Findings Start();
    // The n-th action of this seed, unless it is one of those left out.
    Findings Act(int number, const QStringList& without);
    // Whatever has been done, the panel can be brought into use again.
    Findings ComeHome();

    // For the actions.
    int Draw(int below) { return static_cast<int>(Random() % static_cast<unsigned>(below)); }
    bool Chance(int percent) { return Draw(100) < percent; }
    template <class One>
    One Pick(std::initializer_list<One> list) {
        return list.begin()[Draw(static_cast<int>(list.size()))];
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
        return all.empty() ? nullptr : all[Draw(static_cast<int>(all.size()))];
    }
    void Say(const QString& more) { Doing += ' ' + more.toStdString(); }
    void Complain(const std::string& wrong) { Wrong.push_back(wrong); }
    static void Run(int milliseconds) { QTest::qWait(milliseconds); }
    // As the mouse and the keyboard do it: nothing covered is reached, and the keys have their
    // window.
    void Click(QWidget* control, std::optional<QPoint> at = {}, bool twice = false);
    static void Key(int key, Qt::KeyboardModifiers with = {});
    void Unplug();
    void Plug();
    void SetFaults(const simulator::Faults& faults);

    SimulatedPanel Panel;
    const PanelView View{Panel};
    QWidget Elsewhere;  // a window of another program
    std::string Doing = "starting";

  private:
    void AnswerBox(const Message& message);
    std::string Situation() const;
    std::string WayHome();
    Findings AllWrong();

    simulator::Line SecondLine;
    simulator::PortLink Second;
    simulator::PortLink Absent;
    Oracle Judge;
    EventWatch Watch;
    const unsigned Seed;
    std::mt19937 Random;
    int BoxesUp = 0;
    Findings Wrong;
};

struct Action {
    const char* Name;
    int Weight;
    void (*Do)(Operator& o);
};
std::span<const Action> Actions();
// What can come over the accessibility bus or from a menu bar of the desktop, also while a message
// box has the panel.
void ActFromOutside(Operator& o);
// Opens the settings window. Whatever stands in the fields, that works or a message says why not,
// and works at the latest once Escape has been pressed.
void OpenSettings(Operator& o);

}  // namespace zps::tests

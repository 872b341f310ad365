// What has happened, with the time of day: the last of it.
#pragma once

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <deque>
#include <functional>

namespace zps {

enum class EventKind : std::uint8_t {
    Trip,       // a fault of the supply
    EndOfRun,   // an automatic run has come to its end
    OutputOff,  // the supply has switched the output off for a reason that it does not tell
    Refused,    // the supply has refused a frame, or not acknowledged the values of a step
    NotDone,    // what the operator asked for has not come about, or not as asked
    LinkLost,
    LinkBack,
    Switched,  // the operator has switched something
    Port,      // another port or address, or one that can't be opened
    Checked,   // a result of the settings window
};

// What a person calls it: "보호 동작".
QString NameOf(EventKind kind);

// Whether somebody should look: ends, recoveries and what the operator does are only told.
bool IsAlarm(EventKind kind);

struct PanelEvent {
    EventKind Kind;
    QDateTime At;
    QString Text;
};

// Whoever finds out what has happened notes it here, once. Events bear numbers from 0 on. Window
// thread only.
class History {
  public:
    static constexpr std::size_t MostEvents = 1000;

    // `clock` tells the time of day.
    explicit History(std::function<QDateTime()> clock = &QDateTime::currentDateTime);

    // The same event again within 0.1 s is kept once.
    void Note(EventKind kind, const QString& text);
    // Called after each Note with the number of the event.
    void OnNote(std::function<void(std::uint64_t number)> told) { Told = std::move(told); }

    // The numbers of the oldest event that is kept, and of the next that will be noted.
    std::uint64_t First() const { return Oldest; }
    std::uint64_t End() const { return Oldest + Events.size(); }
    // One that is kept; throws std::out_of_range at another.
    const PanelEvent& Get(std::uint64_t number) const { return Events.at(number - Oldest); }

  private:
    std::uint64_t Keep(EventKind kind, const QString& text);

    std::function<QDateTime()> Clock;
    std::deque<PanelEvent> Events;
    std::uint64_t Oldest = 0;
    std::function<void(std::uint64_t)> Told = [](std::uint64_t) {};
};

}  // namespace zps

// What has happened last to the output and on the line, as the operator is told.
#pragma once

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace zps {

enum class EventKind : std::uint8_t {
    Trip,       // a fault of the supply
    EndOfRun,   // an automatic run has come to its end
    OutputOff,  // the supply has switched the output off for a reason that it does not tell
    Refused,    // the supply has refused a frame, or not acknowledged the values of a step
    NotDone,    // what the operator asked for has not come about, or not as asked
    LinkLost,
    LinkBack,
};

struct PanelEvent {
    EventKind Kind;
    QDateTime At;
    QString Text;
};

// The one event that is shown. It stays until the output goes on. Window thread only.
class LastEvent {
  public:
    // `clock` tells the time of day.
    explicit LastEvent(std::function<QDateTime()> clock = &QDateTime::currentDateTime);

    void Note(EventKind kind, const QString& text);
    // The output goes on: whatever comes from now on belongs to this period.
    void Forget();
    const std::optional<PanelEvent>& Get() const { return Last; }

    // Called after each change.
    void OnChange(std::function<void()> told) { Told = std::move(told); }

  private:
    std::function<QDateTime()> Clock;
    std::optional<PanelEvent> Last;
    std::function<void()> Told = [] {};
};

}  // namespace zps

// The one place where errors of handlers become visible.
#pragma once

#include "controls/message_boxes.h"

#include <functional>

namespace zps {

// Whether a timer repeats the handler by itself, or a person or the line started it.
enum class Origin : std::uint8_t { Event, Timer };

class ErrorReporter {
  public:
    ErrorReporter(MessageBoxes& boxes, QWidget* parent) : Boxes(boxes), Parent(parent) {}

    // Runs `handler`. A PortError or OverflowError abandons it and is shown in a critical box; one
    // that a timer meets again is not shown again until a timer's handler has succeeded.
    void Run(Origin origin, const std::function<void()>& handler);

    // Shows that port `commPort` could not be used.
    void ReportPort(int commPort, const QString& reason);

  private:
    void Report(Origin origin, const Message& message);

    MessageBoxes& Boxes;
    QWidget* Parent;
    bool TimerErrorShown = false;
};

// The message for a port that can't be used.
Message PortMessage(int commPort, const QString& reason);

}  // namespace zps

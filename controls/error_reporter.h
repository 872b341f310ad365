// The one place where errors of handlers become visible.
#pragma once

#include "controls/message_boxes.h"

#include <functional>
#include <map>

namespace zps {

class ErrorReporter {
  public:
    ErrorReporter(MessageBoxes& boxes, QWidget* parent) : Boxes(boxes), Parent(parent) {}

    // Runs `handler`. A PortError or OverflowError abandons it and is shown in a critical box; one
    // that `timer` (null: a person or the line started the handler) meets again is not shown again
    // until that timer's handler has succeeded.
    void Run(const void* timer, const std::function<void()>& handler);

  private:
    void Report(const void* timer, const Message& message);

    MessageBoxes& Boxes;
    QWidget* Parent;
    std::map<const void*, QString> ShownForTimer;
};

}  // namespace zps

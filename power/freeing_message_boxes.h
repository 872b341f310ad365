// The main window's message boxes: while one is up the pointer is free and the window takes
// nothing.
#pragma once

#include "controls/message_boxes.h"
#include "power/panel/gate.h"
#include "power/steps/edit_lock.h"

namespace zps {

class FreeingMessageBoxes : public MessageBoxes {
  public:
    explicit FreeingMessageBoxes(MessageBoxes& boxes) : Boxes(boxes) {}

    // The lock whose confinement is lifted, and the gate that is barred.
    void Attend(EditLock& lock, Gate& gate) {
        Lock = &lock;
        Door = &gate;
    }

    Answer Show(QWidget* parent, const Message& message) override {
        if (Lock == nullptr) return Boxes.Show(parent, message);
        const Gate::Bar across(*Door);
        Lock->SuspendConfinement();
        const Answer answer = Boxes.Show(parent, message);
        Lock->ResumeConfinement();
        return answer;
    }

  private:
    MessageBoxes& Boxes;
    EditLock* Lock = nullptr;
    Gate* Door = nullptr;
};

}  // namespace zps

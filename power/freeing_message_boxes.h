// The main window's message boxes: the pointer is free while one is up.
#pragma once

#include "controls/message_boxes.h"
#include "power/steps/edit_lock.h"

namespace zps {

class FreeingMessageBoxes : public MessageBoxes {
  public:
    explicit FreeingMessageBoxes(MessageBoxes& boxes) : Boxes(boxes) {}

    // The lock whose confinement is lifted.
    void Free(EditLock& lock) { Lock = &lock; }

    Answer Show(QWidget* parent, const Message& message) override {
        if (Lock != nullptr) Lock->SuspendConfinement();
        const Answer answer = Boxes.Show(parent, message);
        if (Lock != nullptr) Lock->ResumeConfinement();
        return answer;
    }

  private:
    MessageBoxes& Boxes;
    EditLock* Lock = nullptr;
};

}  // namespace zps

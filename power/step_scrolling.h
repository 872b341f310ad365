// Moving the step list to other steps.
#pragma once

#include "power/edit_lock.h"
#include "power/entries.h"
#include "power/step_list.h"

namespace zps {

class StepScrolling {
  public:
    StepScrolling(PowerParts& parts, StepList& rows, EditLock& lock, Entries& fields);

  private:
    void vscAUTOSTEP_Change();

    PowerParts& Parts;
    StepList& Rows;
    EditLock& Lock;
    Entries& Fields;
};

}  // namespace zps

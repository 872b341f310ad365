// Moving the step list to other steps.
#pragma once

#include "power/steps/edit_lock.h"
#include "power/steps/entries.h"
#include "power/steps/step_list.h"

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

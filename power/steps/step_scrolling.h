// Moving the step list to other steps.
#pragma once

#include "power/panel/gate.h"
#include "power/steps/entries.h"
#include "power/steps/step_list.h"

#include <functional>

namespace zps {

class StepScrolling {
  public:
    // `scrolled` is told after the rows show other steps.
    StepScrolling(PowerParts& parts, const Gate& gate, StepList& rows, Entries& fields,
                  std::function<void()> scrolled);

  private:
    void vscAUTOSTEP_Change();
    bool MayScroll();

    PowerParts& Parts;
    const Gate& Door;
    StepList& Rows;
    Entries& Fields;
    std::function<void()> Scrolled;
};

}  // namespace zps

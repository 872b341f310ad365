// Selection and upload of a step.
#pragma once

#include "power/panel/power_parts.h"
#include "power/steps/edit_lock.h"
#include "power/steps/entries.h"
#include "power/steps/step_list.h"
#include "source/step_frame.h"

namespace zps {

class StepUpload {
  public:
    StepUpload(PowerParts& parts, StepList& rows, EditLock& lock, Entries& fields);

    // One-shot: sends the step in the top row to a supply that has just gone under remote control.
    // Called off by an entry in error, and where no ratings are known.
    void tmrSTART_Timer();

  private:
    // Makes the row's step the selected one: with the output off the supply gets all its values,
    // with the output on it is told to go to it.
    void txPSTEP_Click(int row);
    int ButtonStep(int row) const;
    // The row's step with all its values. Throws OverflowError where a text can't be sent.
    Frame RowFrame(int row) const;
    void SelectRow(int row);
    void SendRow(int row, Frame frame);

    PowerParts& Parts;
    StepList& Rows;
    EditLock& Lock;
    Entries& Fields;
};

}  // namespace zps

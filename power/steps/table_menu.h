// The commands of the step table as a whole: copy, paste, take back, and send what is not sent.
#pragma once

#include "power/link/history.h"
#include "power/panel/gate.h"
#include "power/panel/output_state.h"
#include "power/panel/power_parts.h"
#include "power/panel/read_outs.h"
#include "power/steps/commands.h"
#include "power/steps/copy_range.h"
#include "power/steps/edit_lock.h"
#include "power/steps/send_all.h"
#include "power/steps/send_box.h"
#include "power/steps/step_list.h"
#include "power/steps/step_upload.h"
#include "power/steps/table_messages.h"
#include "power/steps/table_paste.h"

#include <functional>
#include <optional>

namespace zps {

class TableMenu {
  public:
    struct Surround {
        StepList& Rows;
        EditLock& Lock;
        HeldSteps& Held;
        ReadOuts& Shown;
        StepUpload& Upload;
        Gate& Door;
        History& Happened;
        Timekeeper& Time;
        std::function<bool()> AnswerDue;  // the last frame may still be answered
        std::function<OutputState()> Output;
        std::function<bool()> Remote;
        std::function<void()>
            CallOffStart;  // of the top step: what is sent here comes in its place
    };
    TableMenu(PowerParts& parts, Commands& commands, Surround around);

    // The table is that of another supply, which can't be got back.
    void TableReset() { Pasted.Forget(); }
    bool Sending() const { return Uploads.Running(); }
    // Nothing is sent any more.
    void CallOff();
    // Runs `command` in the way of all commands, also while steps are sent and nothing else is let
    // in. No step is sent meanwhile; behind it the sending goes on if it has not been called off.
    void LetIn(const std::function<void()>& command);

  private:
    void Copy(int first, int last);
    void mnuData_Copy_Range_Click();
    void mnuData_Paste_Click();
    void mnuData_Undo_Click();
    void mnuData_Send_Click();
    void Paste(const std::vector<NewValue>& values);
    void ShowChanged(const std::bitset<StepCount>& steps);
    void SendingEnded(const SendAll::Report& report);
    // Whether `job` may be done now; tells why not.
    bool May(TableJob job);
    // By a box; during a run, whose polls a box would stop, by the line of the last event.
    void Tell(const Message& message);

    PowerParts& Parts;
    Commands& Ways;
    Surround Around;
    TablePaste Pasted;
    SendAll Uploads;
    SendBox Progress;
    std::optional<Gate::Shut> Shut;  // while steps are sent
    CopyRange* Range;                // the window's
};

}  // namespace zps

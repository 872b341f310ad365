// What the main window says about the link and about what has happened.
#pragma once

#include "power/link/held_steps.h"
#include "power/link/last_event.h"
#include "power/link/link_watch.h"
#include "power/panel/power_parts.h"

#include <utility>

namespace zps {

// Shows what the owners below tell, and notes a lost link, refused values and another connection as
// events.
class LinkReport {
  public:
    // All of them outlive this. `time` as LinkWatch wants it.
    LinkReport(PowerParts& parts, HeldSteps& held, LinkQuality& quality, History& happened,
               Timekeeper& time);

    // The output has been switched, by whomever.
    void OutputSwitched(bool on);
    // Port or address may have changed; `device` is what the port has opened.
    void ShowConnection(const std::string& device);

  private:
    void NoteBack(std::chrono::seconds away);

    PowerParts& Parts;
    LinkQuality& Quality;
    History& Happened;
    LastEvent Last;
    LinkWatch Link;
    std::pair<int, int> Connection{0, 0};  // port and address that were noted last
};

}  // namespace zps

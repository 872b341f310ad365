// The one door for what a person asks of the main window: clicks, menus, keys, and whatever comes
// over the accessibility bus or from a global menu.
#pragma once

#include "power/panel/gate.h"
#include "power/steps/entries.h"

#include <QAbstractButton>
#include <QAction>

#include <functional>

namespace zps {

class Commands {
  public:
    Commands(PowerParts& parts, const Gate& gate, Entries& fields)
        : Parts(parts), Door(gate), Fields(fields) {}

    // What becomes of an entry that is open: it is committed first, and one in error stops the
    // command; or the command does not care.
    enum class OpenEntry : std::uint8_t { CommitFirst, LeaveOpen };

    // Runs `command` unless the window takes nothing now.
    void Run(const std::function<void()>& command, OpenEntry entry = OpenEntry::CommitFirst);

    void Connect(QAction& menu, std::function<void()> command);
    // A button that had the focus has it again afterwards, for the next key.
    void Connect(QAbstractButton& button, std::function<void()> command,
                 OpenEntry entry = OpenEntry::CommitFirst);

  private:
    PowerParts& Parts;
    const Gate& Door;
    Entries& Fields;
};

}  // namespace zps

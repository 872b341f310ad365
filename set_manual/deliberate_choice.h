// Keeps a supply from being chosen in passing.
#pragma once

#include "set_manual/set_manual_controls.h"

#include <QObject>

class QKeyEvent;

namespace zps {

// A choice of port or address starts the initialisation of the supply there, so only what is meant
// as one counts:
// - the closed list of addresses opens at a key that would choose from it, and the key moves within
//   the open list, where Enter or a click chooses;
// - the arrow keys move the focus among the ports, where Space or a click chooses;
// - the wheel does nothing over a closed list.
class DeliberateChoice : public QObject {
  public:
    // `controls` and their window outlive it.
    explicit DeliberateChoice(const SetManualControls& controls);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool OpensAddresses(QKeyEvent& key) const;
    bool MovesAmongPorts(const QObject& from, const QKeyEvent& key) const;

    const SetManualControls& Controls;
};

}  // namespace zps

#include "power/link/last_event.h"

#include <utility>

namespace zps {

LastEvent::LastEvent(std::function<QDateTime()> clock) : Clock(std::move(clock)) {}

void LastEvent::Note(EventKind kind, const QString& text) {
    Last = PanelEvent{kind, Clock(), text};
    Told();
}

void LastEvent::Forget() {
    if (!Last) return;
    Last.reset();
    Told();
}

}  // namespace zps

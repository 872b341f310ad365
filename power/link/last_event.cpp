#include "power/link/last_event.h"

namespace zps {

namespace {

bool IsNews(EventKind kind) {
    return kind != EventKind::Switched && kind != EventKind::Port && kind != EventKind::Checked;
}

}  // namespace

LastEvent::LastEvent(History& history) : Past(history) {
    history.OnNote([this](std::uint64_t number) { Noted(number); });
}

void LastEvent::Noted(std::uint64_t number) {
    if (!IsNews(Past.Get(number).Kind)) return;
    Last = number;
    Told();
}

void LastEvent::Forget() {
    if (!Last) return;
    Last.reset();
    Told();
}

const PanelEvent* LastEvent::Get() const {
    return Last && *Last >= Past.First() ? &Past.Get(*Last) : nullptr;
}

}  // namespace zps

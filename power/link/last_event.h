// What has happened last to the output and on the line, as the operator is told.
#pragma once

#include "power/link/history.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace zps {

// The one event of a history that is shown: the last that the operator has not brought about. It
// stays until the output goes on. Window thread only.
class LastEvent {
  public:
    // `history` outlives this, and tells nobody else.
    explicit LastEvent(History& history);

    // The output goes on: whatever comes from now on belongs to this period.
    void Forget();
    const PanelEvent* Get() const;  // null if there is none

    // Called after each change.
    void OnChange(std::function<void()> told) { Told = std::move(told); }

  private:
    void Noted(std::uint64_t number);

    const History& Past;
    std::optional<std::uint64_t> Last;
    std::function<void()> Told = [] {};
};

}  // namespace zps

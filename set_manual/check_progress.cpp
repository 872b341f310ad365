#include "set_manual/check_progress.h"

#include <algorithm>

namespace zps {

void CheckProgress::Begin(CheckStage stage) {
    GiveUp();
    States.at(static_cast<std::size_t>(stage)) = StageState::Running;
}

bool CheckProgress::Running() const {
    return std::find(States.begin(), States.end(), StageState::Running) != States.end();
}

void CheckProgress::EndAs(StageState state) {
    std::replace(States.begin(), States.end(), StageState::Running, state);
}

}  // namespace zps

// How far the check of a supply has come.
#pragma once

#include <array>
#include <cstdint>

namespace zps {

// The questions of the check, in their order.
enum class CheckStage : std::uint8_t { Answer, Remote, Initialise, Ratings };
inline constexpr int CheckStageCount = 4;

enum class StageState : std::uint8_t { Open, Running, Done, Failed };

// The states of the four stages; at most one is running. A single probe of the operator counts as
// the stage that asks the same.
class CheckProgress {
  public:
    // Nothing is known of any stage.
    void Reset() { States.fill(StageState::Open); }
    // What ran before has been given up: nothing is known of it.
    void Begin(CheckStage stage);
    void GiveUp() { EndAs(StageState::Open); }
    // The running stage has its result.
    void End(bool good) { EndAs(good ? StageState::Done : StageState::Failed); }

    StageState Of(CheckStage stage) const { return States.at(static_cast<std::size_t>(stage)); }
    bool Running() const;

  private:
    void EndAs(StageState state);

    std::array<StageState, CheckStageCount> States{};
};

}  // namespace zps

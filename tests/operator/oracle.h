// What must hold after each action of the operator, told by the supplies and by what is shown.
#pragma once

#include "tests/operator/panel_view.h"

#include <array>
#include <map>
#include <string>
#include <vector>

namespace zps::tests {

class Oracle {
  public:
    // `lines`: by the number of the port behind which each is.
    Oracle(SimulatedPanel& panel, std::map<int, simulator::Line*> lines);

    // What is wrong now, or came over the lines since the last call.
    std::vector<std::string> Judge();

    // Whether the supplies hear the panel at all; counts for what they should have heard.
    bool Plugged = true;

  private:
    using Time = simulator::Time;

    // The supply that the panel talks to, if its ratings are those that the panel shows.
    std::optional<simulator::SupplyState> RatedSupply() const;
    std::string JudgeFrames();
    std::string JudgeFrame(simulator::Line& line, const simulator::Frame& frame);
    std::string JudgeCommands(const simulator::SupplyState& supply, const Bytes& frame) const;
    std::string JudgePoll(const simulator::Frame& frame);
    std::string JudgePolling();
    std::string JudgeHeldSteps();
    std::string JudgeSwitches();
    std::string JudgeReadOut();
    std::string JudgeWindows();

    SimulatedPanel& Panel;
    PanelView View;
    std::map<int, simulator::Line*> Lines;

    // How it was at the last call.
    Time LastJudged{};
    bool WasOff = true;
    bool HadPort = false;
    std::string ShownRatings;

    // Time that the panel had to act, as far as it counts: a machine that stands still takes none.
    std::chrono::milliseconds Passed{};
    int PollsWhileOff = 0;
    std::chrono::milliseconds WithoutPoll{};
    std::array<std::chrono::milliseconds, StepCount> WronglyHeld{};
    std::map<std::string, std::chrono::milliseconds> Contradicted;
};

}  // namespace zps::tests

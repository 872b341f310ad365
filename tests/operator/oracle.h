// What must hold after each action of the operator, told by the supplies and by what is shown.
#pragma once

#include "tests/operator/panel_view.h"

#include <map>
#include <string>
#include <vector>

namespace zps::tests {

using Findings = std::vector<std::string>;

class Oracle {
  public:
    // `lines`: by the number of the port behind which each is. No two supplies have equal ratings.
    Oracle(SimulatedPanel& panel, std::map<int, simulator::Line*> lines)
        : View{panel}, Lines(std::move(lines)) {}

    // What is wrong now, or came over the lines since the last call.
    Findings Judge();

    bool Plugged = true;  // whether the first line hears the panel

  private:
    using Milliseconds = std::chrono::milliseconds;

    void JudgeFrame(simulator::Line& line, const simulator::Frame& frame);
    void JudgePoll(const simulator::Frame& frame);
    void JudgeValues(const simulator::SupplyState& supply, const Bytes& frame);
    void JudgeHeldSteps();
    void JudgeSwitches();
    void JudgeWindows();
    // The supply that the panel talks to, if its ratings are those that are shown.
    std::optional<simulator::SupplyState> RatedSupply() const;
    // Wrong once it has been `so` for longer than `limit`.
    void Persists(const std::string& what, bool so, Milliseconds limit,
                  const std::string& how = {});

    PanelView View;
    std::map<int, simulator::Line*> Lines;
    Findings Wrong;
    // How it was at the last call.
    simulator::Time LastJudged{};
    bool WasOn = false;
    bool HadPort = false;
    std::string HadRatings;
    int PollsWhileOff = 0;
    // Since then, as far as the panel could act: a machine that stands still takes no time.
    Milliseconds Passed{};
    std::map<std::string, Milliseconds> Lasting;
};

}  // namespace zps::tests

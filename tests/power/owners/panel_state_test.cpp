#include "power/panel/panel_enabling.h"
#include "power/run/output.h"

#include <gtest/gtest.h>

#include <string>

namespace zps {
namespace {

// i identified, r remote, l remote switch leaves, o output on, a auto, k locked,
// p O.V.P. under load; e and a digit the edited row, S and a digit the selected one, H and a digit
// a held one.
PanelState StateOf(const std::string& text) {
    PanelState state;
    for (const auto& [letter, flag] : {std::pair{'i', &PanelState::Identified},
                                       {'r', &PanelState::Remote},
                                       {'l', &PanelState::LeavesRemote},
                                       {'o', &PanelState::OutputOn},
                                       {'a', &PanelState::AutoOn},
                                       {'k', &PanelState::Locked},
                                       {'p', &PanelState::OvpUnderLoad}})
        state.*flag = text.find(letter) != std::string::npos;
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        const int row = text[at + 1] - '0';
        if (text[at] == 'e') state.EditedRow = row;
        if (text[at] == 'S') state.SelectedRow = row;
        if (text[at] == 'H') state.Held.at(static_cast<std::size_t>(row)) = true;
    }
    return state;
}

// O output, F functions, L step list, W windows, C clear, S scrolling; keys: f functions, r remote,
// o output. Then rows 0 to 3: B button, V set-points, T times, P O.V.P.
std::string TextOf(const PanelUse& use) {
    std::string text;
    for (const auto& [letter, usable] : {std::pair{'O', use.Output},
                                         {'F', use.Functions},
                                         {'L', use.StepList},
                                         {'W', use.Windows},
                                         {'C', use.Clear},
                                         {'S', use.Scrolling},
                                         {'f', use.FunctionKeys},
                                         {'r', use.RemoteKey},
                                         {'o', use.OutputKey}}) {
        if (usable) text += letter;
    }
    for (std::size_t row = 0; row < 4; ++row) {
        const RowUse& one = use.Rows.at(row);
        text += ' ';
        for (const auto& [letter, usable] :
             {std::pair{'B', one.Step}, {'V', one.SetPoints}, {'T', one.Times}, {'P', one.Ovp}}) {
            if (usable) text += letter;
        }
        if (one == RowUse{}) text += '-';
    }
    return text;
}

TEST(Enabling, AllowsInEachStateWhatItsRowSays) {
    const std::pair<const char*, const char*> rows[]{
        {"", "WCSfro B B B B"},
        {"i S0", "Sfro BVTP B B B"},
        {"ir S0", "OFLWCSfro BVTP B B B"},
        {"irl S1 H2", "OFLWCSfro B BVTP B B"},
        {"irlk e1 S0", "OFLWCr - BVTP - -"},
        {"irk e1 S0", "OFLWC - BVTP - -"},
        {"irlo S1 H1 H3", "OLCSfro - BV - B"},
        {"irlo S1 H3", "OLCSfro - V - B"},
        {"irlop S1 H1 H3", "OLCSfro - BVP - B"},
        {"irlok S1 H1 H3", "OLCro - BV - -"},
        {"irlokp S1 H3", "OLCro - BVP - -"},
        {"irloap S1 H1 H3", "OLCSfro - - - -"},
    };
    for (const auto& [state, use] : rows) EXPECT_EQ(TextOf(UsableIn(StateOf(state))), use) << state;
}

TEST(OutputState, TellsEachSwitchingAndCountsObjections) {
    Output output;
    std::string told;
    output.OnChange([&] { told += output.On() ? "on " : "off "; });
    output.WentOn();
    output.WentOff();
    output.Refused();
    output.Tripped(5);
    output.Tripped(2);
    EXPECT_EQ(told, "on off off off ");
    const auto& [faults, refusals, last] = output.Objected();
    EXPECT_EQ(std::tuple(faults, refusals, last), std::tuple(2, 1, 2));
}

}  // namespace
}  // namespace zps

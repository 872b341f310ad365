#include "power/panel/panel_enabling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace zps {
namespace {

// i identified, r remote, l remote switch leaves, o output on, s shown on, a auto, k locked,
// p O.V.P. under load; e and a digit the edited row, S and a digit the selected one, H and a digit
// a held one.
PanelState StateOf(const std::string& text) {
    PanelState state;
    const auto has = [&](char c) { return text.find(c) != std::string::npos; };
    state.Identified = has('i');
    state.Remote = has('r');
    state.LeavesRemote = has('l');
    state.OutputOn = has('o');
    state.OutputShown = has('s');
    state.AutoOn = has('a');
    state.Locked = has('k');
    state.OvpUnderLoad = has('p');
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
        {"irls S0", "OFLWCSfro BVTP B B B"},
        {"irlsk e0 S0", "OFLWCro BVTP - - -"},
        {"irlos S1 H1 H3", "OLCSfro - BV - B"},
        {"irlos S1 H3", "OLCSfro - V - B"},
        {"irlosp S1 H1 H3", "OLCSfro - BVP - B"},
        {"irlosk S1 H1 H3", "OLCro - BV - -"},
        {"irloskp S1 H3", "OLCro - BVP - -"},
        {"irlosap S1 H1 H3", "OLCSfro - - - -"},
        {"irlosa", "OLCSfro - - - -"},
    };
    for (const auto& [state, use] : rows) EXPECT_EQ(TextOf(UsableIn(StateOf(state))), use) << state;
}

TEST(Enabling, KeepsTheOutputWithinReachAndALiveOutputFromTimeAndSlopeInAllStates) {
    for (unsigned flags = 0; flags < 1U << 11; ++flags) {
        std::string text;
        for (unsigned bit = 0; bit < 11; ++bit) {
            const char* const parts[]{"i", "r", "l", "o", "s", "a", "k", "p", "H0", "H3", "H6"};
            if ((flags >> bit & 1) != 0) text += parts[bit];
        }
        for (const char* rows : {"", "e0", "e3", "S0", "S3", "e0S0", "e0S3", "e3S3"}) {
            const PanelState state = StateOf(text + rows);
            const PanelUse use = UsableIn(state);
            const bool on = state.OutputOn;
            EXPECT_TRUE(use.Output || !state.Remote);
            EXPECT_TRUE(use.OutputKey || !(on || state.OutputShown));
            EXPECT_TRUE(use.RemoteKey || !state.LeavesRemote);
            EXPECT_FALSE(on && (use.Windows || use.Functions));
            EXPECT_TRUE(use.Clear || state.Identified);
            EXPECT_NE(use.Scrolling, state.Locked);
            int usable = 0;
            for (int row = 0; row < RowCount; ++row) {
                const RowUse& one = use.Rows.at(static_cast<std::size_t>(row));
                const bool selected = row == state.SelectedRow;
                usable += one == RowUse{} ? 0 : 1;
                EXPECT_FALSE(on && one.Times);
                EXPECT_FALSE(on && one.Ovp && !(selected && state.OvpUnderLoad));
                EXPECT_FALSE(on && one.SetPoints && !selected);
                EXPECT_FALSE(on && state.AutoOn && one.Step);
                EXPECT_TRUE(selected || !one.SetPoints || (state.Locked && !on));
            }
            EXPECT_LE(usable, state.Locked ? 1 : RowCount);
            if (HasFailure()) FAIL() << text << rows;
        }
    }
}

}  // namespace
}  // namespace zps

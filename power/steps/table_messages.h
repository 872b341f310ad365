// What is said about copying, pasting and sending steps.
#pragma once

#include "controls/message_boxes.h"
#include "power/panel/output_state.h"
#include "power/steps/send_all.h"
#include "power/steps/table_paste.h"

#include <optional>

namespace zps {

enum class TableJob : std::uint8_t { Paste, Undo, Send };

// Everything that decides whether a job may be done.
struct TableState {
    bool RatingsKnown = false;
    OutputState Output = OutputState::Off;
    bool Remote = false;
    std::optional<int> EditedStep{};  // whose row is locked
};

// Why it may not be done now; none if it may. Steps are sent only to an output that is known to be
// off; values are pasted unless it is on.
std::optional<Message> Objection(TableJob job, const TableState& state);

// Why nothing has been pasted.
Message PasteRefusal(const BadCell& cell, const SOURCE& source);
Message PasteRefusal(const TooLarge& text);
Message PasteRefusal(const Ambiguous& text);
Message NothingToPaste();
Message NothingToUndo();
Message NothingToSend();

// Title and text of a message where there is no box for it.
QString InOneLine(const Message& message);

// The line about a text that has been copied or pasted, or about steps sent.
QString CopiedText(int first, int last);
QString PastedText(int steps, int changed);
QString UndoneText(int changed);
QString ProgressText(const SendAll::Report& report);
QString SentText(const SendAll::Report& report);
// What has to be looked at once sending has ended; none if everything has come out or was wanted.
std::optional<Message> SendingTrouble(const SendAll::Report& report);
// What the history keeps of it.
QString SendingEvent(const SendAll::Report& report);

}  // namespace zps

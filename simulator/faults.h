// The faults that can be ordered between the supplies and the panel: their kinds, what belongs to
// each, and which frames they strike.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace zps::simulator {

enum class FaultKind {
    // What becomes of a frame on its way to the supplies, and who answers.
    Silent,   // nobody hears it
    Damage,   // one byte of it is changed
    Refuse,   // it is answered with NAK and not carried out
    Other,    // another supply, of 20 V and 5 A, hears and answers it in place of the one asked
    Overlay,  // such a supply does so as well: a bit is 1 only where it is 1 in both replies

    // What becomes of the bytes of a reply, in this order.
    Replay,   // the reply that came `Amount` replies before takes its place
    Address,  // it bears the address `Amount`, with a sum that is right
    Lose,     // one byte is taken out
    Insert,   // a stray byte comes in between
    Garble,   // one byte is changed
    Baud,     // it is sent at `Amount` baud and read at 9600
    Before,   // `Amount` stray bytes come ahead of it
    After,    // and behind it, without a pause

    // When they come, in this order.
    Drop,       // not at all
    Split,      // in two halves with `Pause` between
    Duplicate,  // twice, `Pause` apart
    Between,    // `Amount` stray bytes follow after `Pause`, when the panel has taken the reply
    Delay,      // `Amount` ms later
    Jitter,     // up to `Amount` ms later, each time another delay
    Gap,        // byte by byte, with `Amount` ms between two
    Late,       // ahead of the reply to the next frame

    // What happens without a frame.
    Deaf,  // nothing is read: the line fills, and what the panel writes has to wait
    Flood  // `Amount` stray bytes come in each second
};

inline constexpr std::chrono::milliseconds ForEver = std::chrono::hours(24) * 36500;

// When a fault strikes: where all of this holds.
struct Trigger {
    double Rate = 1;  // the share of the frames, 0 to 1
    // Only frames with this control code, or this letter among their commands; Stx is all commands.
    std::optional<std::uint8_t> On{};
    int Nth = 0;  // only the n-th of these frames, counted from 1; 0 is each
    // Since the fault was ordered.
    std::chrono::milliseconds From{0};
    std::chrono::milliseconds Until = ForEver;
};

struct Fault {
    FaultKind Kind;
    int Amount = 0;  // of the kinds that have one
    std::optional<std::chrono::milliseconds> Pause{};
    std::optional<std::uint8_t> Byte{};  // every stray byte; without it they are random
    // Deaf and Flood are struck by no frame: they have From and Until alone.
    Trigger When{};
};

// What belongs to a kind.
struct FaultRule {
    FaultKind Kind;
    std::string_view Name;
    int Least = 0;  // bounds of the amount; a kind without one has 0 as both
    int Most = 0;
    std::optional<std::chrono::milliseconds> Pause{};  // the usual one
    bool HasByte = false;
    bool HasFrame = true;

    bool HasAmount() const { return Most > 0; }
};

std::span<const FaultRule> FaultRules();
const FaultRule& RuleOf(FaultKind kind);

// Throws std::invalid_argument where something is out of its bounds or doesn't belong to the kind.
void CheckFault(const Fault& fault);

}  // namespace zps::simulator

#include "record/line_trace.h"

namespace zps {

LineTrace::LineTrace() : Entries(MostMessages), Bytes(Room) {}

void LineTrace::Note(LineEvent what, int commPort, const EventTime& when, const Scales& known,
                     std::span<const std::uint8_t> data) {
    Entries[Next % MostMessages] = {.When = when,
                                    .Place = Stored,
                                    .Known = known,
                                    .What = what,
                                    .CommPort = static_cast<std::uint8_t>(commPort)};
    ++Next;
    if (Next - Oldest > MostMessages) ++Oldest;
    for (const std::uint8_t byte : data) Append(byte);
}

void LineTrace::Append(std::uint8_t byte) {
    ++Entries[(Next - 1) % MostMessages].Length;
    Bytes[Stored++ % Room] = byte;
    while (Oldest < Next && EntryOf(Oldest).Place + Room < Stored) ++Oldest;
}

std::optional<LineMessage> LineTrace::Find(std::uint64_t number) const {
    if (number < Oldest || number >= Next) return std::nullopt;
    const Entry& entry = EntryOf(number);
    LineMessage message{entry.What, entry.CommPort, entry.When, entry.Known, {}};
    message.Data.reserve(entry.Length);
    for (std::uint32_t i = 0; i < entry.Length; ++i)
        message.Data.push_back(Bytes[(entry.Place + i) % Room]);
    return message;
}

}  // namespace zps

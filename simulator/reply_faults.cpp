#include "simulator/reply_faults.h"

#include <algorithm>
#include <array>

namespace zps::simulator {

namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

template <class Subject>
struct Change {
    FaultKind Kind;
    void (*Make)(OrderedFault& fault, Subject& subject);
};

template <class Subject, std::size_t Count>
void MakeChanges(const std::array<Change<Subject>, Count>& changes, FaultOrders& faults,
                 Subject& subject) {
    for (const auto& [kind, make] : changes)
        if (OrderedFault* const fault = faults.Striking(kind)) make(*fault, subject);
}

Bytes StrayBytes(OrderedFault& fault) {
    Bytes stray(static_cast<std::size_t>(fault.What.Amount));
    std::ranges::generate(stray, [&fault] { return StrayByte(fault); });
    return stray;
}

void Readdress(OrderedFault& fault, Bytes& reply) {
    reply.front() = static_cast<std::uint8_t>(fault.What.Amount);
    reply.back() = SumOf(ByteView(reply).first(reply.size() - 1));
}

void LoseOne(OrderedFault& fault, Bytes& reply) {
    reply.erase(reply.begin() + static_cast<std::ptrdiff_t>(fault.Random() % reply.size()));
}

// Between two bytes, never in front of the first or behind the last.
void InsertOne(OrderedFault& fault, Bytes& reply) {
    const auto at = static_cast<std::ptrdiff_t>(1 + fault.Random() % (reply.size() - 1));
    reply.insert(reply.begin() + at, StrayByte(fault));
}

void SendAtBaud(OrderedFault& fault, Bytes& reply) {
    reply = ReadAtWrongBaud(reply, fault.What.Amount);
}

void PutBefore(OrderedFault& fault, Bytes& reply) {
    const Bytes stray = StrayBytes(fault);
    reply.insert(reply.begin(), stray.begin(), stray.end());
}

void PutAfter(OrderedFault& fault, Bytes& reply) {
    const Bytes stray = StrayBytes(fault);
    reply.insert(reply.end(), stray.begin(), stray.end());
}

constexpr std::array<Change<Bytes>, 7> ByteChanges{{{FaultKind::Address, Readdress},
                                                    {FaultKind::Lose, LoseOne},
                                                    {FaultKind::Insert, InsertOne},
                                                    {FaultKind::Garble, GarbleOne},
                                                    {FaultKind::Baud, SendAtBaud},
                                                    {FaultKind::Before, PutBefore},
                                                    {FaultKind::After, PutAfter}}};

using Pieces = std::vector<Piece>;

milliseconds PauseOf(const OrderedFault& fault) {
    return fault.What.Pause.value_or(*RuleOf(fault.What.Kind).Pause);
}

void Shift(Pieces& pieces, Clock::duration later) {
    for (Piece& piece : pieces) piece.LeavesAt += later;
}

void Split(OrderedFault& fault, Pieces& pieces) {
    Bytes& first = pieces.back().Content;
    const auto middle = first.begin() + static_cast<std::ptrdiff_t>(first.size() / 2);
    Bytes second(middle, first.end());
    first.erase(middle, first.end());
    pieces.push_back({pieces.back().LeavesAt + PauseOf(fault), std::move(second)});
}

void Repeat(OrderedFault& fault, Pieces& pieces) {
    Bytes whole;
    for (const Piece& piece : pieces)
        whole.insert(whole.end(), piece.Content.begin(), piece.Content.end());
    const Time end = pieces.back().LeavesAt + PauseOf(fault) + LineTime(whole.size());
    pieces.push_back({end, std::move(whole)});
}

void PutBetween(OrderedFault& fault, Pieces& pieces) {
    pieces.push_back({pieces.back().LeavesAt + PauseOf(fault), StrayBytes(fault)});
}

void DelayAll(OrderedFault& fault, Pieces& pieces) {
    Shift(pieces, milliseconds(fault.What.Amount));
}

void DelayAtRandom(OrderedFault& fault, Pieces& pieces) {
    const auto most = static_cast<std::uint64_t>(fault.What.Amount) * 1000;
    Shift(pieces, microseconds(fault.Random() % (most + 1)));
}

void SpaceOut(OrderedFault& fault, Pieces& pieces) {
    const milliseconds gap(fault.What.Amount);
    Clock::duration later{0};
    Pieces spaced;
    for (const auto& [leavesAt, content] : pieces) {
        const Time begins = leavesAt - LineTime(content.size());
        for (std::size_t at = 0; at < content.size(); ++at) {
            if (at > 0) later += gap;
            spaced.push_back({begins + LineTime(at + 1) + later, {content[at]}});
        }
    }
    pieces = std::move(spaced);
}

constexpr std::array<Change<Pieces>, 6> TimeChanges{{{FaultKind::Split, Split},
                                                     {FaultKind::Duplicate, Repeat},
                                                     {FaultKind::Between, PutBetween},
                                                     {FaultKind::Delay, DelayAll},
                                                     {FaultKind::Jitter, DelayAtRandom},
                                                     {FaultKind::Gap, SpaceOut}}};

// The levels on a wire with bytes sent at some baud rate, looked at sixteen times for each bit at
// 9600 baud, as a receiver does.
class Wire {
  public:
    Wire(ByteView sent, int baud) : Sent(sent), Baud(static_cast<std::size_t>(baud)) {}
    bool IsOver(std::size_t look) const { return BitAt(look) >= Sent.size() * BitsOfByte; }
    // A byte is a 0, its bits from the lowest on, and a 1; 1 is also the level of a silent wire.
    bool Level(std::size_t look) const {
        if (IsOver(look)) return true;
        const std::size_t bit = BitAt(look) % BitsOfByte;
        if (bit == 0 || bit == BitsOfByte - 1) return bit != 0;
        return ((Sent[BitAt(look) / BitsOfByte] >> (bit - 1)) & 1U) != 0;
    }

  private:
    static constexpr std::size_t BitsOfByte = 10;
    static constexpr std::size_t LooksPerSecond = std::size_t{9600} * 16;
    std::size_t BitAt(std::size_t look) const { return look * Baud / LooksPerSecond; }

    ByteView Sent;
    std::size_t Baud;
};

}  // namespace

std::uint8_t StrayByte(OrderedFault& fault) {
    return fault.What.Byte.value_or(static_cast<std::uint8_t>(fault.Random() & 0xFF));
}

void GarbleOne(OrderedFault& fault, Bytes& bytes) {
    const auto change = static_cast<std::uint8_t>(1 + fault.Random() % 255);
    bytes[fault.Random() % bytes.size()] ^= change;
}

Bytes Overlaid(Bytes one, ByteView other) {
    const std::size_t both = std::min(one.size(), other.size());
    for (std::size_t at = 0; at < both; ++at) one[at] &= other[at];
    one.insert(one.end(), other.begin() + static_cast<std::ptrdiff_t>(both), other.end());
    return one;
}

Bytes ReadAtWrongBaud(ByteView sent, int baud) {
    constexpr std::size_t bit = 16;  // looks
    const Wire wire(sent, baud);
    Bytes read;
    for (std::size_t look = 0; !wire.IsOver(look);) {
        if (wire.Level(look)) {
            ++look;
            continue;
        }
        unsigned byte = 0;
        for (unsigned at = 0; at < 8; ++at)
            byte |= unsigned{wire.Level(look + bit + bit / 2 + at * bit)} << at;
        read.push_back(static_cast<std::uint8_t>(byte));
        look += 9 * bit + bit / 2;  // the middle of the bit that ends it
    }
    return read;
}

void ChangeBytes(FaultOrders& faults, Bytes& reply) {
    MakeChanges(ByteChanges, faults, reply);
}

std::vector<Piece> ChangeTimes(FaultOrders& faults, const Bytes& reply, Time due) {
    if (faults.Striking(FaultKind::Drop) != nullptr) return {};
    Pieces pieces{{due, reply}};
    MakeChanges(TimeChanges, faults, pieces);
    return pieces;
}

}  // namespace zps::simulator

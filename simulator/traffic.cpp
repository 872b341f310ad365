#include "simulator/traffic.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace zps::simulator {

namespace {

constexpr std::size_t MostReceived = 100'000;

template <class Item>
void Remember(std::deque<Item>& items, Item item, std::size_t most) {
    items.push_back(std::move(item));
    if (items.size() > most) items.pop_front();
}

}  // namespace

Traffic::Traffic(const std::vector<SupplyOptions>& supplies, std::uint32_t seed) : Faults(seed) {
    for (const SupplyOptions& option : supplies) {
        if (std::ranges::find(Supplies, option.Address, &Supply::Address) != Supplies.end())
            throw std::invalid_argument("two supplies have one address");
        Supplies.emplace_back(option);
    }
}

std::vector<Piece> Traffic::Come(Time now) {
    for (Frame& frame : Splitter.Frames(now)) {
        Handle(frame, now);
        Remember(Received, std::move(frame), MostReceived);
    }
    SendFlood(now);
    std::vector<Piece> pieces;
    const auto end = Outgoing.upper_bound(now);
    for (auto next = Outgoing.begin(); next != end; ++next)
        pieces.push_back({next->first, std::move(next->second)});
    Outgoing.erase(Outgoing.begin(), end);
    return pieces;
}

Time Traffic::NextEvent(Time now) const {
    const Time next = std::min(Splitter.NextLook(), Faults.NextChange(now));
    return Outgoing.empty() ? next : std::min(next, Outgoing.begin()->first);
}

void Traffic::Cut() {
    Splitter.Clear();
    Outgoing.clear();
    Held.clear();
}

std::vector<Frame> Traffic::TakeReceived() {
    auto taken = std::exchange(Received, {});
    return {std::make_move_iterator(taken.begin()), std::make_move_iterator(taken.end())};
}

std::vector<int> Traffic::Addresses() const {
    std::vector<int> addresses;
    for (const Supply& supply : Supplies) addresses.push_back(supply.Address());
    return addresses;
}

Supply& Traffic::SupplyAt(int address) {
    const auto supply = std::ranges::find(Supplies, address, &Supply::Address);
    if (supply == Supplies.end())
        throw std::out_of_range("no supply has the address " + std::to_string(address));
    return *supply;
}

void Traffic::Handle(const Frame& frame, Time now) {
    if (frame.Kind == FrameKind::Noise) return;
    Faults.Meet(frame, now);
    if (!Held.empty()) {
        const Time due = Occupy(frame, Held.size(), now);
        Outgoing.emplace(due, std::exchange(Held, {}));
    }
    if (Faults.Striking(FaultKind::Silent) != nullptr) return;
    for (const Frame& heard : Heard(frame, now))
        for (Supply& supply : Supplies)
            if (const auto reply = AnswerOf(supply, heard, now)) Send(frame, *reply, now);
}

// What the supplies hear where `frame` was sent.
std::vector<Frame> Traffic::Heard(const Frame& frame, Time now) {
    std::vector<Frame> heard{frame};
    if (OrderedFault* const damage = Faults.Striking(FaultKind::Damage)) {
        Bytes bytes = frame.Content;
        GarbleOne(*damage, bytes);
        FrameSplitter splitter;
        splitter.Take(bytes, now);
        heard = splitter.Frames(now + FrameSplitter::IdleGap);
    }
    if (Faults.Striking(FaultKind::Refuse) != nullptr)
        for (Frame& one : heard)
            if (one.Kind != FrameKind::Noise) one.Kind = FrameKind::Broken;
    return heard;
}

std::optional<Bytes> Traffic::AnswerOf(Supply& supply, const Frame& heard, Time now) {
    const bool instead = Faults.Striking(FaultKind::Other) != nullptr;
    if (!instead && Faults.Striking(FaultKind::Overlay) == nullptr)
        return supply.Answer(heard, now);
    auto other = StrangerAt(supply.Address()).Answer(heard, now);
    if (instead || !other) return other;
    return Overlaid(supply.Answer(heard, now).value_or(Bytes{}), *other);
}

Supply& Traffic::StrangerAt(int address) {
    const SupplyOptions options{.Address = address, .Volts = 20, .Amps = 5};
    return Strangers.try_emplace(address, options).first->second;
}

Bytes Traffic::ReplayedFor(const Bytes& reply) {
    const OrderedFault* const replay = Faults.Striking(FaultKind::Replay);
    const auto back = static_cast<std::size_t>(replay != nullptr ? replay->What.Amount : 0);
    Remember(Replies, reply, static_cast<std::size_t>(RuleOf(FaultKind::Replay).Most) + 1);
    return back < Replies.size() ? *(Replies.rbegin() + static_cast<std::ptrdiff_t>(back)) : reply;
}

void Traffic::Send(const Frame& request, const Bytes& reply, Time now) {
    Bytes content = ReplayedFor(reply);
    ChangeBytes(Faults, content);
    const Time due = Occupy(request, content.size(), now);
    const bool late = Faults.Striking(FaultKind::Late) != nullptr;
    for (Piece& piece : ChangeTimes(Faults, content, due)) {
        if (late)
            Held.insert(Held.end(), piece.Content.begin(), piece.Content.end());
        else
            Outgoing.emplace(piece.LeavesAt, std::move(piece.Content));
    }
}

// A request comes in at once here but would have taken its time on a line; bytes that trickled in
// have taken it already.
Time Traffic::Occupy(const Frame& request, std::size_t count, Time now) {
    const Time requestEnd = request.FirstAt + LineTime(request.Content.size());
    const Time lineFree = std::max({requestEnd, request.LastAt, BusyUntil});
    BusyUntil = std::max(lineFree, now) + LineTime(count);
    return BusyUntil;
}

void Traffic::SendFlood(Time now) {
    OrderedFault* const flood = Faults.Find(FaultKind::Flood);
    if (flood == nullptr || now <= flood->Begins()) return;
    const std::chrono::duration<double> passed = std::min(now, flood->Ends()) - flood->Begins();
    const auto due = static_cast<std::uint64_t>(passed.count() * flood->What.Amount);
    if (due <= flood->Struck) return;
    Bytes lump(due - flood->Struck);
    std::ranges::generate(lump, [flood] { return StrayByte(*flood); });
    flood->Struck = due;
    Outgoing.emplace(now, std::move(lump));
}

}  // namespace zps::simulator

#include "simulator/fault_orders.h"

#include "simulator/command.h"

#include <algorithm>
#include <cmath>

namespace zps::simulator {

namespace {

// Of a flood: it comes in lumps, as an adapter hands bytes over.
constexpr std::chrono::milliseconds LumpInterval{5};

bool Concerns(std::uint8_t code, const Frame& frame) {
    if (frame.Kind == FrameKind::Control) return frame.Content[1] == code;
    if (frame.Kind != FrameKind::Commands) return false;
    if (code == Stx) return true;
    const ByteView content = frame.Content;
    const auto commands = ParseCommands(content.subspan(3, content[2]));
    return commands && std::ranges::any_of(*commands, [code](const Command& command) {
               return static_cast<std::uint8_t>(command.Letter) == code;
           });
}

bool Happens(OrderedFault& fault) {
    const double rate = fault.What.When.Rate;
    return static_cast<double>(fault.Random()) < std::ldexp(rate, 64) || rate == 1;
}

bool Strikes(OrderedFault& fault, const Frame& frame, Time now) {
    const Trigger& when = fault.What.When;
    if (!RuleOf(fault.What.Kind).HasFrame || !fault.IsOn(now)) return false;
    if (when.On && !Concerns(*when.On, frame)) return false;
    ++fault.Seen;
    if (when.Nth != 0 && fault.Seen != when.Nth) return false;
    return Happens(fault);
}

Time NextChangeOf(const OrderedFault& fault, Time now) {
    if (now < fault.Begins()) return fault.Begins();
    if (now >= fault.Ends()) return Time::max();
    if (fault.What.Kind == FaultKind::Deaf) return fault.Ends();
    const auto byteInterval = std::chrono::nanoseconds(std::chrono::seconds(1)) / fault.What.Amount;
    return std::min(now + std::max<Clock::duration>(LumpInterval, byteInterval), fault.Ends());
}

}  // namespace

void FaultOrders::Order(const Fault& fault, Time now) {
    CheckFault(fault);
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
    const std::uint64_t seed = Seed * spread + static_cast<std::uint64_t>(fault.Kind);
    Orders.insert_or_assign(fault.Kind, OrderedFault{fault, now, std::mt19937_64(seed)});
}

std::vector<Fault> FaultOrders::Ordered() const {
    std::vector<Fault> faults;
    for (const auto& [kind, ordered] : Orders) faults.push_back(ordered.What);
    return faults;
}

std::uint64_t FaultOrders::Struck(FaultKind kind) const {
    const auto found = Orders.find(kind);
    return found == Orders.end() ? 0 : found->second.Struck;
}

void FaultOrders::Meet(const Frame& frame, Time now) {
    for (auto& [kind, fault] : Orders) {
        fault.Strikes = Strikes(fault, frame, now);
        if (fault.Strikes) ++fault.Struck;
    }
}

OrderedFault* FaultOrders::Striking(FaultKind kind) {
    OrderedFault* const fault = Find(kind);
    return fault != nullptr && fault->Strikes ? fault : nullptr;
}

OrderedFault* FaultOrders::Find(FaultKind kind) {
    const auto found = Orders.find(kind);
    return found == Orders.end() ? nullptr : &found->second;
}

bool FaultOrders::IsDeaf(Time now) const {
    const auto found = Orders.find(FaultKind::Deaf);
    return found != Orders.end() && found->second.IsOn(now);
}

Time FaultOrders::NextChange(Time now) const {
    Time next = Time::max();
    for (const FaultKind kind : {FaultKind::Deaf, FaultKind::Flood})
        if (const auto found = Orders.find(kind); found != Orders.end())
            next = std::min(next, NextChangeOf(found->second, now));
    return next;
}

}  // namespace zps::simulator

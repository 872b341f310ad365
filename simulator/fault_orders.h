// Which faults are ordered on a line, and which of them strike the frame that has just come.
#pragma once

#include "simulator/faults.h"
#include "simulator/splitter.h"

#include <map>
#include <random>
#include <vector>

namespace zps::simulator {

// A fault that is ordered. Each draws numbers of its own, so that what one does is the same
// whatever others are ordered beside it.
struct OrderedFault {
    Fault What;
    Time Since;
    // Not the engine of 32 bits: Qt has it too, and g++ 12 for Windows calls the one copy that the
    // linker keeps as if it were still the other, and loses registers.
    std::mt19937_64 Random;
    int Seen = 0;              // frames that its code let through
    std::uint64_t Struck = 0;  // frames, or of a flood the bytes
    bool Strikes = false;      // the frame that was met last

    Time Begins() const { return Since + What.When.From; }
    Time Ends() const { return Since + What.When.Until; }
    // Up to the ends, without the last instant.
    bool IsOn(Time now) const { return now >= Begins() && now < Ends(); }
};

class FaultOrders {
  public:
    // The same seed, orders and frames give the same faults.
    explicit FaultOrders(std::uint32_t seed) : Seed(seed) {}

    // Takes the place of what was ordered of that kind; its counts and times begin at `now`. Throws
    // std::invalid_argument as CheckFault.
    void Order(const Fault& fault, Time now);
    void Stop(FaultKind kind) { Orders.erase(kind); }
    void StopAll() { Orders.clear(); }
    std::vector<Fault> Ordered() const;
    std::uint64_t Struck(FaultKind kind) const;

    // Decides for each fault whether it strikes this frame. Call it once for a frame, in their
    // order.
    void Meet(const Frame& frame, Time now);
    // The fault that strikes the frame met last; null if that kind does not.
    OrderedFault* Striking(FaultKind kind);
    // The fault of that kind whether it strikes or not; null if none is ordered.
    OrderedFault* Find(FaultKind kind);
    bool IsDeaf(Time now) const;
    // When something changes next after `now` without a frame; Time::max() if never.
    Time NextChange(Time now) const;

  private:
    std::uint32_t Seed;
    std::map<FaultKind, OrderedFault> Orders;
};

}  // namespace zps::simulator

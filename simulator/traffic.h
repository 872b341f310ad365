// What passes on a line in time: frames from the panel, the supplies that answer them, and the
// faults on the way.
//
// Pure logic: no thread, no input or output, and the time is passed in. Times must not run
// backwards.
#pragma once

#include "simulator/reply_faults.h"
#include "simulator/supply.h"

#include <deque>
#include <map>

namespace zps::simulator {

class Traffic {
  public:
    // Throws std::invalid_argument where an option is out of its range or two supplies have one
    // address. The same seed, faults and frames give the same bytes.
    Traffic(const std::vector<SupplyOptions>& supplies, std::uint32_t seed);

    // Bytes that the panel has sent; none while IsDeaf.
    void Take(ByteView bytes, Time now) { Splitter.Take(bytes, now); }
    bool IsDeaf(Time now) const { return Faults.IsDeaf(now); }
    // What has come to the panel by `now`, in the order of its times. Each piece is given out once.
    std::vector<Piece> Come(Time now);
    // When Come() should be asked again even if nothing is taken; Time::max() if never.
    Time NextEvent(Time now) const;
    // The line is cut: what is on its way is lost.
    void Cut();

    FaultOrders& Orders() { return Faults; }
    const FaultOrders& Orders() const { return Faults; }

    // The frames since the last call, whether somebody heard them or not; the oldest are dropped
    // where nobody takes them for 100000 frames.
    std::vector<Frame> TakeReceived();
    std::vector<int> Addresses() const;
    // Throws std::out_of_range for an address nobody has.
    Supply& SupplyAt(int address);

  private:
    void Handle(const Frame& frame, Time now);
    std::vector<Frame> Heard(const Frame& frame, Time now);
    std::optional<Bytes> AnswerOf(Supply& supply, const Frame& heard, Time now);
    Supply& StrangerAt(int address);
    Bytes ReplayedFor(const Bytes& reply);
    void Send(const Frame& request, const Bytes& reply, Time now);
    // The time at which `count` more bytes will have passed to the panel after `request`.
    Time Occupy(const Frame& request, std::size_t count, Time now);
    void SendFlood(Time now);

    std::vector<Supply> Supplies;
    std::map<int, Supply> Strangers;  // who answers in place of the supply with that address
    FrameSplitter Splitter;
    std::deque<Frame> Received;
    FaultOrders Faults;
    std::deque<Bytes> Replies;            // the latest true ones, in their order
    Bytes Held;                           // late replies
    std::multimap<Time, Bytes> Outgoing;  // by the time at which each piece has come
    Time BusyUntil{};                     // the end of the last reply on the line
};

}  // namespace zps::simulator

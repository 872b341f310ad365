// What the ordered faults make of the bytes that pass on a line, and of their times.
#pragma once

#include "simulator/fault_orders.h"

#include <vector>

namespace zps::simulator {

// Bytes of which the last one has passed over the line at that time.
struct Piece {
    Time LeavesAt;
    Bytes Content;

    bool operator==(const Piece&) const = default;
};

// A byte as the fault's order says, or a random one.
std::uint8_t StrayByte(OrderedFault& fault);
// Changes one byte of `bytes`, which are not empty.
void GarbleOne(OrderedFault& fault, Bytes& bytes);

// What two who send at the same time leave of each other's bytes.
Bytes Overlaid(Bytes one, ByteView other);
// What a receiver at 9600 baud makes of bytes that are sent at `baud`, without a gap between them.
Bytes ReadAtWrongBaud(ByteView sent, int baud);

// Lets the faults that strike change the bytes of `reply`, from Address to After.
void ChangeBytes(FaultOrders& faults, Bytes& reply);
// Lets those that strike say when the reply comes, from Drop to Gap: the pieces in which it does,
// where the whole would be over at `due`.
std::vector<Piece> ChangeTimes(FaultOrders& faults, const Bytes& reply, Time due);

}  // namespace zps::simulator

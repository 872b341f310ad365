#include "simulator/faults.h"

#include <cmath>

namespace zps::simulator {

namespace {

constexpr std::chrono::milliseconds SplitPause{30};

std::vector<Piece> CutInTwo(const Bytes& reply, Time due) {
    const auto middle = reply.begin() + static_cast<std::ptrdiff_t>(reply.size() / 2);
    return {{due, Bytes(reply.begin(), middle)}, {due + SplitPause, Bytes(middle, reply.end())}};
}

}  // namespace

std::vector<Piece> ReplyFaults::Apply(const Faults& faults, Bytes reply, Time due) {
    if (Happens(faults.Drop)) return {};
    due += faults.Delay;
    if (Happens(faults.Garble)) {
        const auto change = static_cast<std::uint8_t>(1 + Random() % 255);
        reply[Random() % reply.size()] ^= change;
    }
    auto pieces = Happens(faults.Split) ? CutInTwo(reply, due) : std::vector{Piece{due, reply}};
    if (Happens(faults.Duplicate))
        pieces.push_back({pieces.back().LeavesAt + LineTime(reply.size()), reply});
    return pieces;
}

bool ReplyFaults::Happens(double share) {
    return static_cast<double>(Random()) < std::ldexp(share, 64);
}

}  // namespace zps::simulator

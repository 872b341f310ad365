#include "simulator/line.h"

#include <array>
#include <mutex>
#include <thread>
#include <utility>

namespace zps::simulator {

struct Line::Inside {
    Inside(std::unique_ptr<LineEnd> wire, const std::vector<SupplyOptions>& options,
           std::uint32_t seed);
    ~Inside();

    void Serve(const std::stop_token& stop);
    void ReadBytes(Time now);
    template <class Change>
    void ChangeOrders(Change change) {
        const std::lock_guard lock(Guard);
        change(Passing.Orders());
        Wire->Wake();
    }

    // Guards everything below but Wire->Wait and Wire->Wake.
    std::mutex Guard;
    const std::unique_ptr<LineEnd> Wire;
    Traffic Passing;
    bool IsFull = false;
    std::jthread Server;
};

Line::Inside::Inside(std::unique_ptr<LineEnd> wire, const std::vector<SupplyOptions>& options,
                     std::uint32_t seed)
    : Wire(std::move(wire)), Passing(options, seed) {
    Wire->Open();
    Server = std::jthread([this](const std::stop_token& stop) { Serve(stop); });
}

Line::Inside::~Inside() {
    Server.request_stop();
    Wire->Wake();
    Server.join();
}

void Line::Inside::Serve(const std::stop_token& stop) {
    while (!stop.stop_requested()) {
        Time next;
        {
            const std::lock_guard lock(Guard);
            const Time now = Clock::now();
            ReadBytes(now);
            for (const Piece& piece : Passing.Come(now)) Wire->Write(piece.Content);
            next = Passing.NextEvent(now);
        }
        Wire->Wait(next);
    }
}

void Line::Inside::ReadBytes(Time now) {
    if (Passing.IsDeaf(now) != IsFull) Wire->Fill(IsFull = !IsFull);
    if (IsFull) return;
    std::array<std::uint8_t, 512> room{};
    while (const std::size_t count = Wire->Read(room))
        Passing.Take(ByteView(room).first(count), now);
}

Line::Line(std::unique_ptr<LineEnd> end, const std::vector<SupplyOptions>& supplies,
           std::uint32_t seed)
    : Self(std::make_unique<Inside>(std::move(end), supplies, seed)) {}

Line::~Line() = default;

std::string Line::DeviceName() const {
    const std::lock_guard lock(Self->Guard);
    return Self->Wire->Name();
}

void Line::OrderFault(const Fault& fault) {
    Self->ChangeOrders([&](FaultOrders& orders) { orders.Order(fault, Clock::now()); });
}

void Line::StopFault(FaultKind kind) {
    Self->ChangeOrders([kind](FaultOrders& orders) { orders.Stop(kind); });
}

void Line::StopFaults() {
    Self->ChangeOrders([](FaultOrders& orders) { orders.StopAll(); });
}

std::vector<Fault> Line::OrderedFaults() const {
    const std::lock_guard lock(Self->Guard);
    return Self->Passing.Orders().Ordered();
}

std::uint64_t Line::Struck(FaultKind kind) const {
    const std::lock_guard lock(Self->Guard);
    return Self->Passing.Orders().Struck(kind);
}

std::vector<Frame> Line::TakeReceivedTimed() {
    const std::lock_guard lock(Self->Guard);
    return Self->Passing.TakeReceived();
}

std::vector<std::vector<std::uint8_t>> Line::TakeReceived() {
    std::vector<Bytes> contents;
    for (Frame& frame : TakeReceivedTimed()) contents.push_back(std::move(frame.Content));
    return contents;
}

void Line::Unplug() {
    const std::lock_guard lock(Self->Guard);
    Self->Wire->Close();
    Self->Passing.Cut();
}

void Line::Plug() {
    const std::lock_guard lock(Self->Guard);
    Self->Wire->Open();
    Self->IsFull = false;
    Self->Wire->Wake();
}

std::vector<int> Line::Addresses() const {
    return Self->Passing.Addresses();
}

SupplyState Line::StateOf(int address) const {
    const std::lock_guard lock(Self->Guard);
    Supply& supply = Self->Passing.SupplyAt(address);
    supply.Advance(Clock::now());
    return supply.State();
}

void Line::SetLoad(int address, double ohms) {
    const std::lock_guard lock(Self->Guard);
    Self->Passing.SupplyAt(address).SetLoad(ohms, Clock::now());
}

void Line::Trip(int address, int errorCode) {
    const std::lock_guard lock(Self->Guard);
    Self->Passing.SupplyAt(address).Trip(errorCode, Clock::now());
}

}  // namespace zps::simulator

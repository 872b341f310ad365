#include "simulator/line.h"

#include <algorithm>
#include <array>
#include <deque>
#include <iterator>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

namespace zps::simulator {

namespace {

constexpr std::size_t MostReceived = 100'000;

}  // namespace

struct Line::Inside {
    Inside(std::unique_ptr<LineEnd> wire, const std::vector<SupplyOptions>& options,
           std::uint32_t seed);
    ~Inside();

    void Serve(const std::stop_token& stop);
    void ReadBytes(Time now);
    void HandleFrames(Time now);
    void HandleFrame(const Frame& frame, Time now);
    void Schedule(const Frame& request, const Bytes& reply, Time now);
    void SendDueReplies(Time now);
    Time NextEvent() const;
    Supply& SupplyAt(int address);

    // Guards everything below but Wire->Wait and Wire->Wake.
    std::mutex Guard;
    const std::unique_ptr<LineEnd> Wire;
    std::vector<Supply> Supplies;
    FrameSplitter Splitter;
    std::deque<Frame> Received;
    Faults Present;
    ReplyFaults Mangler;
    std::multimap<Time, Bytes> Outgoing;  // by the time at which each piece leaves
    Time BusyUntil{};                     // the end of the last reply on the line
    std::jthread Server;
};

Line::Inside::Inside(std::unique_ptr<LineEnd> wire, const std::vector<SupplyOptions>& options,
                     std::uint32_t seed)
    : Wire(std::move(wire)), Mangler(seed) {
    for (const SupplyOptions& option : options) {
        if (std::ranges::find(Supplies, option.Address, &Supply::Address) != Supplies.end())
            throw std::invalid_argument("two supplies have one address");
        Supplies.emplace_back(option);
    }
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
            HandleFrames(now);
            SendDueReplies(now);
            next = NextEvent();
        }
        Wire->Wait(next);
    }
}

void Line::Inside::ReadBytes(Time now) {
    std::array<std::uint8_t, 512> room{};
    while (const std::size_t count = Wire->Read(room))
        Splitter.Take(ByteView(room).first(count), now);
}

void Line::Inside::HandleFrames(Time now) {
    for (Frame& frame : Splitter.Frames(now)) {
        HandleFrame(frame, now);
        Received.push_back(std::move(frame));
        if (Received.size() > MostReceived) Received.pop_front();
    }
}

void Line::Inside::HandleFrame(const Frame& frame, Time now) {
    if (Present.Silent) return;
    Frame heard = frame;
    if (Present.Refuse && frame.Kind == FrameKind::Commands) heard.Kind = FrameKind::Broken;
    for (Supply& supply : Supplies)
        if (const auto reply = supply.Answer(heard, now)) Schedule(frame, *reply, now);
}

// A request comes in at once here but would have taken its time on a line; bytes that trickled in
// have taken it already.
void Line::Inside::Schedule(const Frame& request, const Bytes& reply, Time now) {
    const Time requestEnd = request.FirstAt + LineTime(request.Content.size());
    const Time lineFree = std::max({requestEnd, request.LastAt, BusyUntil});
    BusyUntil = std::max(lineFree, now) + LineTime(reply.size());
    for (Piece& piece : Mangler.Apply(Present, reply, BusyUntil))
        Outgoing.emplace(piece.LeavesAt, std::move(piece.Content));
}

void Line::Inside::SendDueReplies(Time now) {
    while (!Outgoing.empty() && Outgoing.begin()->first <= now) {
        Wire->Write(Outgoing.begin()->second);
        Outgoing.erase(Outgoing.begin());
    }
}

Time Line::Inside::NextEvent() const {
    const Time look = Splitter.NextLook();
    return Outgoing.empty() ? look : std::min(look, Outgoing.begin()->first);
}

Supply& Line::Inside::SupplyAt(int address) {
    const auto supply = std::ranges::find(Supplies, address, &Supply::Address);
    if (supply == Supplies.end())
        throw std::out_of_range("no supply has the address " + std::to_string(address));
    return *supply;
}

Line::Line(std::unique_ptr<LineEnd> end, const std::vector<SupplyOptions>& supplies,
           std::uint32_t seed)
    : Self(std::make_unique<Inside>(std::move(end), supplies, seed)) {}

Line::~Line() = default;

std::string Line::DeviceName() const {
    const std::lock_guard lock(Self->Guard);
    return Self->Wire->Name();
}

void Line::SetFaults(const Faults& faults) {
    const std::lock_guard lock(Self->Guard);
    Self->Present = faults;
}

Faults Line::PresentFaults() const {
    const std::lock_guard lock(Self->Guard);
    return Self->Present;
}

std::vector<Frame> Line::TakeReceivedTimed() {
    const std::lock_guard lock(Self->Guard);
    auto taken = std::exchange(Self->Received, {});
    return {std::make_move_iterator(taken.begin()), std::make_move_iterator(taken.end())};
}

std::vector<std::vector<std::uint8_t>> Line::TakeReceived() {
    std::vector<Bytes> contents;
    for (Frame& frame : TakeReceivedTimed()) contents.push_back(std::move(frame.Content));
    return contents;
}

void Line::Unplug() {
    const std::lock_guard lock(Self->Guard);
    Self->Wire->Close();
    Self->Splitter.Clear();
    Self->Outgoing.clear();
}

void Line::Plug() {
    const std::lock_guard lock(Self->Guard);
    Self->Wire->Open();
}

std::vector<int> Line::Addresses() const {
    std::vector<int> addresses;
    for (const Supply& supply : Self->Supplies) addresses.push_back(supply.Address());
    return addresses;
}

SupplyState Line::StateOf(int address) const {
    const std::lock_guard lock(Self->Guard);
    Supply& supply = Self->SupplyAt(address);
    supply.Advance(Clock::now());
    return supply.State();
}

void Line::SetLoad(int address, double ohms) {
    const std::lock_guard lock(Self->Guard);
    Self->SupplyAt(address).SetLoad(ohms, Clock::now());
}

void Line::Trip(int address, int errorCode) {
    const std::lock_guard lock(Self->Guard);
    Self->SupplyAt(address).Trip(errorCode, Clock::now());
}

}  // namespace zps::simulator

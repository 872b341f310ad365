#include "tests/support/scripted_port.h"

#include "serial/inbox.h"
#include "serial/receive_event.h"

#include <algorithm>
#include <span>
#include <utility>

namespace zps::tests {

using namespace serial;
using std::chrono::milliseconds;

class ScriptedPort final : public serial::Port {
  public:
    ScriptedPort(EventLoop& loop, std::shared_ptr<ScriptedLine> line, int maker)
        : Maker(maker),
          Loop(loop),
          Line(std::move(line)),
          Event(loop, [this] { return Arrived.Count() > 0; }) {}
    ~ScriptedPort() override { SetPortOpen(false); }

    bool PortOpen() const override { return Opening != nullptr; }
    std::string Device() const override {
        return PortOpen() ? Line->Folder + std::to_string(OpenNumber) : std::string();
    }
    void SetPortOpen(bool open) override;
    std::size_t InBufferCount() const override { return Arrived.Count(); }
    Bytes DiscardInput() override {
        if (InBufferCount() > 0) Event.BytesDiscarded();
        return Arrived.Clear();
    }
    std::uint8_t Input() override { return Arrived.Take(); }
    void Output(std::span<const std::uint8_t> block) override;
    bool WaitForInput(std::size_t count, milliseconds limit, WaitMode mode) override;
    void Pause(milliseconds limit, WaitMode mode) override;
    void OnReceive(EventKind kind, std::function<void()> handler) override {
        Event.SetHandler(kind, std::move(handler));
    }

    void Receive(const Bytes& bytes) {
        Arrived.Put(bytes);
        Event.BytesArrived();
    }

    const int Maker;
    int OpenNumber = 0;

  private:
    // True while the opening it belongs to lasts; a wait keeps its own hold on it, since the port
    // may be destroyed in one of its events.
    using Lasting = std::shared_ptr<bool>;
    template <typename Done>
    void Wait(const Done& done, milliseconds limit, WaitMode mode);

    EventLoop& Loop;
    const std::shared_ptr<ScriptedLine> Line;
    Lasting Opening;
    serial::Inbox Arrived;
    serial::ReceiveEvent Event;
};

void ScriptedPort::SetPortOpen(bool open) {
    if (open == PortOpen()) return;
    Arrived.Clear();
    if (!open) {
        *std::exchange(Opening, nullptr) = false;
        Line->Open = nullptr;
        Event.Stop();
        return;
    }
    if (const auto refused = Line->Refused.find(CommPort()); refused != Line->Refused.end())
        throw PortError(CommPort(), std::make_error_code(refused->second));
    if (Line->Open)
        throw PortError(CommPort(), std::make_error_code(std::errc::device_or_resource_busy));
    Opening = std::make_shared<bool>(true);
    OpenNumber = CommPort();
    Line->Open = this;
    Line->OnTheWay.clear();
    Event.Start();
}

void ScriptedPort::Output(std::span<const std::uint8_t> block) {
    if (!PortOpen())
        throw PortError(CommPort(), std::make_error_code(std::errc::bad_file_descriptor));
    Event.BlockGone();
    Line->Take(*this, Bytes(block.begin(), block.end()));
}

template <typename Done>
void ScriptedPort::Wait(const Done& done, milliseconds limit, WaitMode mode) {
    const auto lasting = Opening;
    const auto line = Line;
    auto& loop = Loop;
    // Runs what has been posted up to now, or less if the opening ends.
    const auto runDue = [&] {
        const auto reached = std::make_shared<bool>(false);
        loop.Post([reached] { *reached = true; });
        loop.RunUntil([&] { return *reached || !*lasting; },
                      Clock::now() + std::chrono::seconds(10));
    };
    const auto deadline = line->Now + limit;
    bool more = true;
    while (more && *lasting && !done()) {
        if (mode == WaitMode::RunEvents) runDue();
        if (*lasting && !done()) more = line->Advance(deadline);
    }
    if (!more && mode == WaitMode::RunEvents) runDue();
}

bool ScriptedPort::WaitForInput(std::size_t count, milliseconds limit, WaitMode mode) {
    const auto lasting = Opening;
    if (!lasting) return false;
    Wait([this, count] { return Arrived.Count() >= count; }, limit, mode);
    return *lasting && Arrived.Count() >= count;
}

void ScriptedPort::Pause(milliseconds limit, WaitMode mode) {
    if (PortOpen()) Wait([] { return false; }, limit, mode);
}

void ScriptedLine::Arrive(const Bytes& bytes) {
    if (Open && !bytes.empty()) Open->Receive(bytes);
}

std::vector<Bytes> ScriptedLine::WrittenData() const {
    std::vector<Bytes> data;
    for (const auto& block : Blocks) data.push_back(block.Data);
    return data;
}

int ScriptedLine::OpenMaker() const {
    return Open ? Open->Maker : 0;
}

void ScriptedLine::Take(const ScriptedPort& from, Bytes block) {
    std::vector<Piece> pieces;
    if (!Answers.empty()) {
        pieces = std::move(Answers.front());
        Answers.pop_front();
    } else if (Script) {
        pieces.push_back({Script(block), ScriptDelay});
    }
    Blocks.push_back({from.Maker, from.OpenNumber, std::move(block)});
    for (auto& piece : pieces) OnTheWay.emplace(Now + piece.After, std::move(piece.Data));
    DeliverDue();
}

void ScriptedLine::DeliverDue() {
    while (!OnTheWay.empty() && OnTheWay.begin()->first <= Now)
        Arrive(OnTheWay.extract(OnTheWay.begin()).mapped());
}

bool ScriptedLine::Advance(milliseconds limit) {
    if (OnTheWay.empty() || OnTheWay.begin()->first > limit) {
        Now = std::max(Now, limit);
        return false;
    }
    Now = std::max(Now, OnTheWay.begin()->first);
    DeliverDue();
    return true;
}

std::unique_ptr<serial::Port> ScriptedPortMaker::MakePort() {
    return std::make_unique<ScriptedPort>(Loop, Line, ++Line->Made);
}

}  // namespace zps::tests

#include "record/traced_ports.h"

#include <utility>

namespace zps {

using serial::EventKind;
using serial::WaitMode;
using std::chrono::milliseconds;

namespace {

class TracedPort final : public serial::Port {
  public:
    TracedPort(std::unique_ptr<serial::Port> port, LineTrace& trace,
               const std::function<Scales(int)>& scalesAt)
        : Of(std::move(port)), Trace(trace), ScalesAt(scalesAt) {}
    ~TracedPort() override { SetPortOpen(false); }

    bool PortOpen() const override { return Of->PortOpen(); }
    void SetPortOpen(bool open) override;
    std::string Device() const override { return Of->Device(); }
    std::size_t InBufferCount() const override { return Of->InBufferCount(); }
    std::vector<std::uint8_t> DiscardInput() override;
    std::uint8_t Input() override;
    void Output(std::span<const std::uint8_t> block) override;
    // Either may run events that destroy this port.
    bool WaitForInput(std::size_t count, milliseconds limit, WaitMode mode) override {
        Reading = false;
        return Of->WaitForInput(count, limit, mode);
    }
    void Pause(milliseconds limit, WaitMode mode) override { Of->Pause(limit, mode); }
    void OnReceive(EventKind kind, std::function<void()> handler) override {
        Of->OnReceive(kind, std::move(handler));
    }

  private:
    void Open();
    void Note(LineEvent what, const EventTime& when, std::span<const std::uint8_t> data);

    const std::unique_ptr<serial::Port> Of;
    LineTrace& Trace;
    const std::function<Scales(int)>& ScalesAt;
    int OpenNumber = 0;
    bool Reading = false;  // the next byte belongs to the message noted last
};

void TracedPort::SetPortOpen(bool open) {
    if (open == PortOpen()) return;
    if (open) return Open();
    DiscardInput();
    Of->SetPortOpen(false);
    Trace.Note(LineEvent::Closed, OpenNumber, EventTime::Now());
}

void TracedPort::Open() {
    Of->SetCommPort(CommPort());
    OpenNumber = CommPort();
    try {
        Of->SetPortOpen(true);
    } catch (const serial::PortError&) {
        Trace.Note(LineEvent::NotOpened, OpenNumber, EventTime::Now());
        throw;
    }
    Trace.Note(LineEvent::Opened, OpenNumber, EventTime::Now());
}

std::vector<std::uint8_t> TracedPort::DiscardInput() {
    Reading = false;
    auto thrown = Of->DiscardInput();
    if (!thrown.empty()) Note(LineEvent::Thrown, EventTime::Now(), thrown);
    return thrown;
}

std::uint8_t TracedPort::Input() {
    const std::uint8_t byte = Of->Input();
    if (std::exchange(Reading, true))
        Trace.Append(byte);
    else
        Note(LineEvent::Read, EventTime::Now(), {&byte, 1});
    return byte;
}

void TracedPort::Output(std::span<const std::uint8_t> block) {
    Reading = false;
    const EventTime when = EventTime::Now();       // writing takes its time
    if (!PortOpen()) Of->SetCommPort(CommPort());  // for the error
    Of->Output(block);
    Note(LineEvent::Sent, when, block);
}

void TracedPort::Note(LineEvent what, const EventTime& when, std::span<const std::uint8_t> data) {
    const Scales known = data.empty() ? Scales{} : ScalesAt(data.front());
    Trace.Note(what, OpenNumber, when, known, data);
}

}  // namespace

TracedPorts::TracedPorts(serial::PortMaker& ports, LineTrace& trace,
                         std::function<Scales(int)> scalesAt)
    : Ports(ports), Trace(trace), ScalesAt(std::move(scalesAt)) {}

std::unique_ptr<serial::Port> TracedPorts::MakePort() {
    return std::make_unique<TracedPort>(Ports.MakePort(), Trace, ScalesAt);
}

}  // namespace zps

#include "serial/receive_event.h"

#include <atomic>
#include <utility>

namespace zps::serial {

struct ReceiveEvent::State : std::enable_shared_from_this<State> {
    State(EventLoop& loop, std::function<bool()> bytesWait)
        : Loop(loop), BytesWait(std::move(bytesWait)) {}

    void Notify();
    void Deliver();

    EventLoop& Loop;
    const std::function<bool()> BytesWait;
    std::atomic<bool> Posted = false;  // a delivery is on its way; all else is the owning thread's

    EventKind Kind = EventKind::Input;
    std::shared_ptr<const std::function<void()>> Handler;
    bool Started = false;
    bool Running = false;
    bool Kept = false;       // a delivery came while the handler ran
    bool BlockOut = false;   // a block has gone out since the handler last began
    bool BytesGone = false;  // bytes came, and were thrown away before their event
};

namespace {

// Ends a run of the handler, also when it throws.
template <typename State>
class Run {
  public:
    explicit Run(State& state) : Of(state) { Of.Running = true; }
    ~Run() {
        Of.Running = false;
        if (std::exchange(Of.Kept, false)) Of.Notify();
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

  private:
    State& Of;
};

}  // namespace

void ReceiveEvent::State::Notify() {
    if (Posted.exchange(true)) return;
    Loop.Post([weak = weak_from_this()] {
        if (const auto state = weak.lock()) state->Deliver();
    });
}

void ReceiveEvent::State::Deliver() {
    // An exchange, not a store: it orders the reader's bytes before every look at the buffer that
    // follows, also those of a wait that this delivery has woken.
    Posted.exchange(false);
    if (Running) {
        Kept = true;
        return;
    }
    if (!Started || !Handler || !(BlockOut || BytesGone || BytesWait())) return;
    BlockOut = false;
    BytesGone = false;
    const auto handler = Handler;
    const Run<State> run(*this);
    (*handler)();
}

ReceiveEvent::ReceiveEvent(EventLoop& loop, std::function<bool()> bytesWait)
    : Self(std::make_shared<State>(loop, std::move(bytesWait))) {}

ReceiveEvent::~ReceiveEvent() {
    Stop();
}

void ReceiveEvent::SetHandler(EventKind kind, std::function<void()> handler) {
    Self->Kind = kind;
    Self->Handler =
        handler ? std::make_shared<const std::function<void()>>(std::move(handler)) : nullptr;
}

void ReceiveEvent::Start() {
    Self->Started = true;
}

void ReceiveEvent::Stop() {
    Self->Started = false;
    Self->Kept = false;
    Self->BlockOut = false;
    Self->BytesGone = false;
}

void ReceiveEvent::BytesArrived() {
    Self->Notify();
}

void ReceiveEvent::BytesDiscarded() {
    if (!Self->Running) Self->BytesGone = true;
}

void ReceiveEvent::BlockGone() {
    if (Self->Kind != EventKind::InputAndOutput) return;
    Self->BlockOut = true;
    Self->Notify();
}

}  // namespace zps::serial

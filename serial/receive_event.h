// The receive event of a port: when it is raised, and what happens to notifications that come while
// its handler runs. Every port raises its event through one of these, so that all ports keep the
// same rule.
//
// The rule: notifications are delivered by the event loop, one at a time, never inside each other.
// Those that come before the present one was delivered, or while the handler runs (its waits and
// message boxes included), count as one. At delivery the event is raised only if bytes wait, or
// were discarded before they had their event, or, for EventKind::InputAndOutput, a block has gone
// out since the handler last began. So a reply that the handler has read already is not judged a
// second time, and bytes that a new frame swept away still tell that something came.
#pragma once

#include "serial/event_loop.h"
#include "serial/port.h"

#include <functional>
#include <memory>

namespace zps::serial {

class ReceiveEvent {
  public:
    // `loop` must outlive this object. `bytesWait` tells whether bytes are in the port's buffer; it
    // is asked on the owning thread, and only between Start and Stop.
    ReceiveEvent(EventLoop& loop, std::function<bool()> bytesWait);
    // May happen inside the handler: the handler runs on to its end, nothing is raised after it.
    ~ReceiveEvent();
    ReceiveEvent(const ReceiveEvent&) = delete;
    ReceiveEvent& operator=(const ReceiveEvent&) = delete;

    // The handler may throw: the exception passes on to the loop, the event stays in order.
    // Replacing the handler while it runs is safe.
    void SetHandler(EventKind kind, std::function<void()> handler);

    // The port has been opened or closed. Closing forgets every notification not yet raised.
    void Start();
    void Stop();

    // Bytes have arrived. On any thread; always wakes the loop.
    void BytesArrived();
    // Bytes that had arrived were thrown away unread. Owning thread.
    void BytesDiscarded();
    // A block has gone out. Owning thread.
    void BlockGone();

  private:
    struct State;
    std::shared_ptr<State> Self;  // posted calls hold it weakly
};

}  // namespace zps::serial

// Keeps the mouse pointer within a frame of a window.
#pragma once

#include <memory>

class QWidget;

namespace zps::platform {

// All calls are made on the thread of the windows. None of them throws: where the system refuses,
// the pointer stays free.
class PointerConfinement {
  public:
    virtual ~PointerConfinement() = default;

    // Keeps the pointer within what can be seen of `frame` on the screen now, moving it there if it
    // is elsewhere; free while that is nothing. Call it again, as often as you like, after the
    // window has moved, was scrolled or was laid out anew. A frame that isn't shown changes
    // nothing. `frame` stays the caller's, who releases before destroying it.
    virtual void Confine(QWidget& frame) = 0;

    // Lets the pointer go everywhere. Does nothing if it is free.
    virtual void Release() = 0;
};

// The means of the system that the program runs on; one that does nothing where there is none.
// Destroying it releases the pointer, and so does the end of the process, whatever ended it.
std::unique_ptr<PointerConfinement> MakePointerConfinement();

}  // namespace zps::platform

// On Windows the pointer is kept in by ClipCursor, which takes a rectangle of the screen.
//
// - The clip is one for all programs and does not move along: each call sets it anew, and only what
//   was set here is taken away. The system ends it when another window comes to the front, and so
//   when this process ends.
// - While the window is moved or sized, or its system menu is open, the system leads the pointer: a
//   clip set then would drag the window along with it. It is set once that is over.
// - The entries of a pop-up may lie outside the frame: the clip goes while one is up.
#include "platform/pointer_confinement.h"
#include "platform/popup_watch.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <qt_windows.h>

#include <chrono>

namespace zps::platform {
namespace {

using namespace std::chrono_literals;

bool SystemLeadsPointer() {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof(thread);
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) &&
           (thread.flags & (GUI_INMOVESIZE | GUI_SYSTEMMENUMODE)) != 0;
}

// What can be seen of the frame, on the screen; null where the system refuses or nothing can.
RECT SeenPart(QWidget& frame) {
    const QRect seen = frame.visibleRegion().boundingRect();
    RECT area;
    if (seen.isEmpty() || !GetWindowRect(reinterpret_cast<HWND>(frame.winId()), &area)) return {};
    const qreal scale = frame.devicePixelRatio();
    const auto pixels = [scale](int length) { return static_cast<LONG>(qRound(length * scale)); };
    return {area.left + pixels(seen.left()), area.top + pixels(seen.top()),
            area.left + pixels(seen.left() + seen.width()),
            area.top + pixels(seen.top() + seen.height())};
}

class WindowsPointerConfinement : public PointerConfinement {
  public:
    WindowsPointerConfinement() {
        Again.setSingleShot(true);
        Again.setInterval(100ms);
        Again.callOnTimeout(&Again, [this] { Clip(); });
    }
    ~WindowsPointerConfinement() override { Release(); }

    void Confine(QWidget& frame) override {
        if (!frame.isVisible()) return;
        Frame = &frame;
        Popups.Start();
        Clip();
    }

    void Release() override {
        Frame.clear();
        Again.stop();
        Popups.Stop();
        Free();
    }

  private:
    void Clip() {
        if (!Frame) return;
        if (SystemLeadsPointer()) {
            Again.start();
            return;
        }
        const RECT area = SeenPart(*Frame);
        if (IsRectEmpty(&area) || QApplication::activePopupWidget())
            Free();
        else
            Confined = ClipCursor(&area) || Confined;
    }
    void Free() {
        if (Confined) ClipCursor(nullptr);
        Confined = false;
    }

    QPointer<QWidget> Frame;  // what the pointer is to be kept in
    QTimer Again;             // until the next attempt
    PopupWatch Popups{[this] { Free(); }, [this] { Again.start(); }};
    bool Confined = false;
};

}  // namespace

std::unique_ptr<PointerConfinement> MakePointerConfinement() {
    return std::make_unique<WindowsPointerConfinement>();
}

}  // namespace zps::platform

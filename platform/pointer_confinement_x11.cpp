// On X11 the pointer is kept in by an active pointer grab that is confined to a window, the fence.
//
// - The server ends the grab when the client's connection ends, so that a killed process leaves no
//   captive pointer. Pointer barriers end with it too, but stop relative moves only: tablets,
//   touch screens, pointers of virtual machines and warps pass through them.
// - The grab is made on Qt's own connection, with owner_events: presses, releases, moves and wheel
//   go to the windows of this program as ever. From a connection of its own it would take them.
// - The frame has no X window. The fence stands in for it: an input-only child of its top-level
//   window, so that it moves and vanishes along, and with an empty input shape, so that the pointer
//   is never in it and Qt sees no leave event.
// - Destroying the fence ends the grab; nothing else needs to be undone.
// - A pop-up (menu, drop-down list) needs a pointer grab of its own, which the server refuses while
//   this one is there, and its entries may lie outside the frame. So the fence goes when a pop-up
//   shows and comes back when the last one hides.
#include "platform/pointer_confinement.h"
#include "platform/popup_watch.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <xcb/shape.h>
#include <xcb/xcb.h>

namespace zps::platform {
namespace {

using namespace std::chrono_literals;

// Qt's connection to the server, or null where Qt runs on another window system.
xcb_connection_t* Connection() {
    if (!qApp || QGuiApplication::platformName() != QLatin1String("xcb")) return nullptr;
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

// Where the frame is in its top-level window, as far as it can be seen, in the server's pixels.
QRect PixelsInWindow(const QWidget& frame) {
    const QRect seen = frame.visibleRegion().boundingRect();
    const QPointF corner = frame.mapTo(frame.window(), seen.topLeft());
    const qreal scale = frame.devicePixelRatio();
    return QRectF(corner * scale, QSizeF(seen.size()) * scale).toAlignedRect();
}

xcb_window_t TopLevelOf(const QWidget& frame) {
    return static_cast<xcb_window_t>(frame.window()->winId());
}

// Any error of these requests shows in the grab, which then fails.
xcb_window_t MakeFence(xcb_connection_t* connection, xcb_window_t window, const QRect& area) {
    const auto fence = xcb_generate_id(connection);
    const auto made = xcb_create_window_checked(
        connection, XCB_COPY_FROM_PARENT, fence, window, static_cast<std::int16_t>(area.x()),
        static_cast<std::int16_t>(area.y()), static_cast<std::uint16_t>(area.width()),
        static_cast<std::uint16_t>(area.height()), 0, XCB_WINDOW_CLASS_INPUT_ONLY,
        XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_discard_reply(connection, made.sequence);
    if (xcb_get_extension_data(connection, &xcb_shape_id)->present) {
        const auto shaped =
            xcb_shape_rectangles_checked(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                                         XCB_CLIP_ORDERING_UNSORTED, fence, 0, 0, 0, nullptr);
        xcb_discard_reply(connection, shaped.sequence);
    }
    xcb_discard_reply(connection, xcb_map_window_checked(connection, fence).sequence);
    return fence;
}

bool GrabPointer(xcb_connection_t* connection, xcb_window_t window, xcb_window_t fence) {
    constexpr std::uint8_t OwnerEvents = 1;
    const auto asked =
        xcb_grab_pointer(connection, OwnerEvents, window, 0, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, fence, XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    xcb_generic_error_t* error = nullptr;
    auto* answer = xcb_grab_pointer_reply(connection, asked, &error);
    const bool grabbed = answer && answer->status == XCB_GRAB_STATUS_SUCCESS;
    std::free(answer);
    std::free(error);
    return grabbed;
}

class X11PointerConfinement final : public PointerConfinement {
  public:
    X11PointerConfinement() {
        Again.setSingleShot(true);
        Again.setInterval(100ms);
        Again.callOnTimeout(&Again, [this] { PutFence(); });
    }
    ~X11PointerConfinement() override { Release(); }

    void Confine(QWidget& frame) override {
        if (!Connection() || !frame.isVisible()) return;
        Frame = &frame;
        Popups.Start();
        PutFence();
    }

    void Release() override {
        Frame.clear();
        Again.stop();
        Popups.Stop();
        TakeFence();
    }

  private:
    void PutFence();
    void TakeFence();

    QPointer<QWidget> Frame;  // what the pointer is to be kept in
    QTimer Again;             // until the next attempt
    PopupWatch Popups{[this] { TakeFence(); }, [this] { Again.start(); }};
    xcb_window_t Fence = XCB_WINDOW_NONE;
};

// Another program (a window manager that is moving a window, say) may hold the pointer, or the
// window may not be on the screen yet: then it is tried again until it works or is given up.
void X11PointerConfinement::PutFence() {
    TakeFence();
    auto* connection = Connection();
    if (!connection || !Frame || QApplication::activePopupWidget()) return;
    const QRect area = PixelsInWindow(*Frame);
    if (area.isEmpty()) return;
    Fence = MakeFence(connection, TopLevelOf(*Frame), area);
    if (GrabPointer(connection, TopLevelOf(*Frame), Fence)) return;
    TakeFence();
    Again.start();
}

void X11PointerConfinement::TakeFence() {
    auto* connection = Connection();
    if (connection && Fence != XCB_WINDOW_NONE) {
        // Where the window is gone, the fence went with it.
        xcb_discard_reply(connection, xcb_destroy_window_checked(connection, Fence).sequence);
        xcb_flush(connection);
    }
    Fence = XCB_WINDOW_NONE;
}

}  // namespace

std::unique_ptr<PointerConfinement> MakePointerConfinement() {
    return std::make_unique<X11PointerConfinement>();
}

}  // namespace zps::platform

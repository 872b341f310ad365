#include "platform/pointer_confinement.h"

#include <QWidget>
#include <qt_windows.h>

namespace zps::platform {
namespace {

class WindowsPointerConfinement : public PointerConfinement {
  public:
    ~WindowsPointerConfinement() override { Release(); }

    void Confine(QWidget& frame) override {
        if (!frame.isVisible()) return;
        RECT area;
        if (GetWindowRect(reinterpret_cast<HWND>(frame.winId()), &area))
            Confined = ClipCursor(&area) || Confined;
    }

    // The clip is one for all programs: only what was set here is taken away.
    void Release() override {
        if (Confined) ClipCursor(nullptr);
        Confined = false;
    }

  private:
    bool Confined = false;
};

}  // namespace

std::unique_ptr<PointerConfinement> MakePointerConfinement() {
    return std::make_unique<WindowsPointerConfinement>();
}

}  // namespace zps::platform

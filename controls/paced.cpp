#include "controls/paced.h"

#include <utility>

namespace zps {

Paced::Paced(std::function<void()> show, std::chrono::milliseconds beat) : Show(std::move(show)) {
    Beat.setSingleShot(true);
    Beat.setInterval(beat);
    Beat.callOnTimeout([this] {
        if (Behind) RunShow();
    });
}

void Paced::Changed() {
    Behind = true;
    if (!Beat.isActive()) RunShow();
}

void Paced::RunShow() {
    Behind = false;
    Show();
    Beat.start();
}

}  // namespace zps

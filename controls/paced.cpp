#include "controls/paced.h"

#include <chrono>
#include <utility>

namespace zps {

Paced::Paced(std::function<void()> show) : Show(std::move(show)) {
    Beat.setSingleShot(true);
    Beat.setInterval(std::chrono::milliseconds(40));
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

// Showing what changes faster than anyone can read.
#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace zps {

// Bytes may come thousands of times a second, and having the toolkit show one costs a thousand
// times as much as the byte. So what shows them runs at once after a quiet time, and else at a
// beat.
class Paced {
  public:
    // `show` shows what is to be seen at the time of the call. It must not throw.
    explicit Paced(std::function<void()> show,
                   std::chrono::milliseconds beat = std::chrono::milliseconds(40));

    // There is something else to be seen.
    void Changed();

  private:
    void RunShow();

    const std::function<void()> Show;
    QTimer Beat;          // runs while it may not be shown yet
    bool Behind = false;  // it has yet to be shown
};

}  // namespace zps

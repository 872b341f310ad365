// An application that knows how long its events keep the window thread at work.
#pragma once

#include <QAbstractEventDispatcher>
#include <QApplication>

#include <chrono>
#include <ctime>
#include <string>
#include <utility>

namespace zps::tests {

// Work is the thread's own processor time: neither a loaded machine nor a wait that sleeps counts.
class WatchedApplication : public QApplication {
  public:
    using Duration = std::chrono::nanoseconds;

    WatchedApplication(int& count, char** arguments) : QApplication(count, arguments) {
        // An event that runs events of its own does not hold them up.
        const auto* loop = QAbstractEventDispatcher::instance();
        connect(loop, &QAbstractEventDispatcher::awake, this, [this] { Begin(); });
    }

    bool notify(QObject* receiver, QEvent* event) override {
        if (!std::exchange(Between, false)) return QApplication::notify(receiver, event);
        Begun = Worked();
        const std::string what = std::string(receiver->metaObject()->className()) + ", event " +
                                 std::to_string(event->type());
        const bool done = QApplication::notify(receiver, event);
        Longest = std::max(Longest, {Worked() - Begun, what});
        Begin();
        return done;
    }

    // The longest work in one go since the last call, and on what.
    std::pair<Duration, std::string> TakeLongest() { return std::exchange(Longest, {}); }

  private:
    static Duration Worked() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + Duration(time.tv_nsec);
    }
    void Begin() {
        Begun = Worked();
        Between = true;
    }

    bool Between = true;  // the next event is not part of one that is being handled
    Duration Begun{};
    std::pair<Duration, std::string> Longest;
};

}  // namespace zps::tests

// An application that knows how long its events keep the window thread at work.
#pragma once

#include <QAbstractEventDispatcher>
#include <QApplication>

#include <chrono>
#include <ctime>
#include <string>
#include <utility>

namespace zps::tests {

// Work is counted in the thread's own processor time, so that neither a loaded machine nor a wait
// that sleeps looks like it.
class WatchedApplication : public QApplication {
  public:
    using Duration = std::chrono::nanoseconds;

    WatchedApplication(int& count, char** arguments) : QApplication(count, arguments) {
        auto* dispatcher = QAbstractEventDispatcher::instance();
        // An event that runs events of its own does not hold them up.
        connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] { Begin(); });
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] { Begin(); });
    }

    bool notify(QObject* receiver, QEvent* event) override {
        const bool outermost = std::exchange(Between, false);
        if (!outermost) return QApplication::notify(receiver, event);
        Begin();
        Between = false;
        const char* who = receiver->metaObject()->className();
        const int what = event->type();
        const bool done = QApplication::notify(receiver, event);
        const Duration took = Worked() - Begun;
        if (took > Longest) {
            Longest = took;
            Of = std::string(who) + ", event " + std::to_string(what);
        }
        Begin();
        return done;
    }

    // The longest work in one go since the last call, and on what.
    std::pair<Duration, std::string> TakeLongest() {
        return {std::exchange(Longest, {}), std::exchange(Of, {})};
    }

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

    bool Between = true;  // no event is being handled that has not given way to others
    Duration Begun{};
    Duration Longest{};
    std::string Of;
};

}  // namespace zps::tests

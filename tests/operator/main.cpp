// Runs one operator: test_operator --seed 1234 --actions 300
#include "tests/operator/operator.h"
#include "tests/operator/watched_application.h"

#include <QCommandLineParser>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <deque>
#include <thread>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

// No action takes longer, also on a loaded machine.
constexpr auto Patience = 60s;
#ifdef __SANITIZE_ADDRESS__
constexpr auto LongestWork = 600ms;
#else
constexpr auto LongestWork = 120ms;
#endif
constexpr std::size_t Remembered = 30;

// How to do it again, and what was done last. Also for a signal's handler, which must not build it.
std::string Again;
std::string Report;

void Tell(const char* wrong) {
    for (const std::string_view text : {"wrong: ", wrong, "\n", Again.c_str(), Report.c_str()}) {
        [[maybe_unused]] const auto count = write(STDOUT_FILENO, text.data(), text.size());
    }
}

void Crashed(int number) {
    Tell(number == SIGSEGV ? "crash: segmentation fault" : "crash: abort");
    std::signal(number, SIG_DFL);
    std::raise(number);
}

class History {
  public:
    void Add(const std::string& action) {
        Last.push_back(action);
        if (Last.size() > Remembered) Last.pop_front();
        Report.clear();
        for (const auto& one : Last) Report += "    " + one + '\n';
    }

  private:
    std::deque<std::string> Last;
};

// Ends the program when nothing moves any more.
class Watchdog {
  public:
    void Moved() { ++Moves; }

  private:
    void Watch(const std::stop_token& stop) {
        unsigned seen = 0;
        for (auto quiet = 0ms; !stop.stop_requested(); quiet += 100ms) {
            if (seen != Moves) quiet = 0ms;
            seen = Moves;
            if (quiet > Patience) {
                Tell("hang");
                _exit(2);
            }
            std::this_thread::sleep_for(100ms);
        }
    }

    std::atomic<unsigned> Moves = 0;
    std::jthread Thread{[this](const std::stop_token& stop) { Watch(stop); }};
};

struct Task {
    unsigned Seed;
    int Actions;
    QStringList Known;  // how findings begin that are passed over
    bool Verbose;
};

// The first thing that is wrong and not known; empty if nothing is.
std::string RunOne(zps::tests::WatchedApplication& application, const Task& task) {
    Watchdog watchdog;
    History history;
    zps::tests::Operator person(task.Seed);
    const auto judged = [&](std::vector<std::string> wrong) {
        watchdog.Moved();
        history.Add(person.Done());
        if (task.Verbose) std::printf("%s\n", person.Done().c_str());
        const auto [held, of] = application.TakeLongest();
        if (held > LongestWork)
            wrong.push_back("the window thread was held: " +
                            std::to_string(duration_cast<std::chrono::milliseconds>(held).count()) +
                            " ms, by " + of);
        std::erase_if(wrong, [&](const std::string& one) {
            return std::ranges::any_of(task.Known, [&](const QString& known) {
                return one.starts_with(known.toStdString());
            });
        });
        return wrong.empty() ? std::string() : wrong.front();
    };
    const auto start = person.Start();
    application.TakeLongest();  // the first showing of a window loads its fonts
    std::string wrong = judged(start);
    for (int number = 0; number < task.Actions && wrong.empty(); ++number) {
        wrong = judged(person.Act(number));
    }
    return wrong.empty() ? judged(person.ComeHome()) : wrong;
}

}  // namespace

int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    zps::tests::WatchedApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    zps::DressApplication();
    // The toolkit's remarks on windows that are not there any more.
    qInstallMessageHandler([](QtMsgType kind, const QMessageLogContext&, const QString& text) {
        if (kind == QtFatalMsg) std::printf("%s\n", qPrintable(text));
    });
    QCommandLineParser words;
    words.addOptions({{"seed", "which operator", "number", "1"},
                      {"actions", "how many actions", "number", "300"},
                      {"known", "passes over findings that begin so; repeatable", "text"},
                      {"verbose", "tells each action"}});
    words.addHelpOption();
    words.process(application);
    const Task task{words.value("seed").toUInt(), words.value("actions").toInt(),
                    words.values("known"), words.isSet("verbose")};
    Again = "again: test_operator --seed " + std::to_string(task.Seed) + " --actions " +
            std::to_string(task.Actions) + '\n';
    for (const int number : {SIGSEGV, SIGABRT}) std::signal(number, Crashed);
    const std::string wrong = RunOne(application, task);
    if (!wrong.empty()) Tell(wrong.c_str());
    return wrong.empty() ? 0 : 1;
}

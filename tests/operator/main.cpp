// Runs one operator: test_operator --seed 1234 --actions 300
#include "tests/operator/operator.h"

#include <QAbstractEventDispatcher>
#include <QCommandLineParser>
#include <QLoggingCategory>

#include <csignal>
#include <cstring>
#include <ctime>
#include <unistd.h>

namespace {

constexpr unsigned Patience = 60;  // seconds for one action, on a loaded machine
#ifdef __SANITIZE_ADDRESS__
constexpr int LongestWork = 600;  // ms
#else
constexpr int LongestWork = 120;
#endif

// How long the window thread works between two looks at its events. Work is its own processor
// time: neither a loaded machine nor a wait that sleeps counts.
class WorkWatch {
  public:
    explicit WorkWatch(QAbstractEventDispatcher& events) {
        QObject::connect(&events, &QAbstractEventDispatcher::awake, [this] { Look(); });
        QObject::connect(&events, &QAbstractEventDispatcher::aboutToBlock, [this] { Look(); });
    }
    // The longest since the last call, in ms.
    long TakeLongest() {
        Look();
        return std::exchange(Longest, 0);
    }

  private:
    void Look() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        const long worked = time.tv_sec * 1000 + time.tv_nsec / 1'000'000;
        Longest = std::max(Longest, worked - std::exchange(Before, worked));
    }
    long Longest = 0;
    long Before = 0;
};

std::string Again;
const zps::tests::Operator* Person = nullptr;

// What is wrong, how to do it again, and what was done last.
bool Tell(const std::string& wrong) {
    std::printf("wrong: %s\nagain: test_operator %s\n", wrong.c_str(), Again.c_str());
    for (const auto& one : Person->Done) std::printf("    %s\n", one.c_str());
    std::fflush(stdout);
    return false;
}

void Crashed(int number) {
    Tell(number == SIGALRM ? "hang" : strsignal(number));
    std::_Exit(1);
}

}  // namespace

int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit's remarks on windows that are not there any more.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    WorkWatch work(*QAbstractEventDispatcher::instance());
    zps::DressApplication();
    QCommandLineParser words;
    words.addOptions({{"seed", "which operator", "number", "1"},
                      {"actions", "how many actions", "number", "300"},
                      {"verbose", "tells each action"}});
    words.process(application);
    const QString seed = words.value("seed"), actions = words.value("actions");
    Again = ("--seed " + seed + " --actions " + actions).toStdString();

    zps::tests::Operator person(seed.toUInt());
    Person = &person;
    for (const int number : {SIGSEGV, SIGABRT, SIGALRM}) std::signal(number, Crashed);
    alarm(Patience);
    bool right = person.Start() || Tell("the supply did not come into use");
    work.TakeLongest();  // the first showing of a window loads its fonts
    for (int number = 0; right && number < actions.toInt(); ++number) {
        alarm(Patience);
        auto wrong = person.Act(number);
        const long held = work.TakeLongest();
        if (held > LongestWork)
            wrong = "the window thread was held: " + std::to_string(held) + " ms";
        if (words.isSet("verbose")) std::printf("%s\n", person.Done.back().c_str());
        right = wrong.empty() || Tell(wrong);
    }
    return right ? 0 : 1;
}

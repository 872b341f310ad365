// Runs one operator: test_operator --seed 1234 --actions 300
#include "tests/operator/operator.h"
#include "tests/operator/watched_application.h"

#include <QCommandLineParser>

#include <csignal>
#include <cstdio>
#include <deque>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

constexpr unsigned Patience = 60;  // seconds for one action, on a loaded machine
#ifdef __SANITIZE_ADDRESS__
constexpr auto LongestWork = 600ms;
#else
constexpr auto LongestWork = 120ms;
#endif
constexpr std::size_t Remembered = 30;

// How to do it again, and what was done last: told also where the program ends in the middle.
std::string Again;
std::deque<std::string> Done;
const std::string* Doing = &Again;

void Tell(const std::string& wrong) {
    std::printf("wrong: %s\n%s", wrong.c_str(), Again.c_str());
    for (const auto& one : Done) std::printf("    %s\n", one.c_str());
    std::printf("    %s\n", Doing->c_str());
    std::fflush(stdout);
}

void Crashed(int number) {
    std::signal(number, SIG_DFL);
    Tell(number == SIGSEGV ? "crash" : number == SIGALRM ? "hang" : "abort");
    std::raise(number == SIGALRM ? SIGABRT : number);
}

}  // namespace

int main(int count, char** arguments) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The toolkit's remarks on windows that are not there any more.
    qInstallMessageHandler([](QtMsgType kind, const QMessageLogContext&, const QString& text) {
        if (kind == QtFatalMsg) std::printf("%s\n", qPrintable(text));
    });
    zps::tests::WatchedApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    zps::DressApplication();
    QCommandLineParser words;
    words.addOptions({{"seed", "which operator", "number", "1"},
                      {"actions", "how many actions", "number", "300"},
                      {"known", "passes over findings that begin so; repeatable", "text"},
                      {"without", "leaves out an action; repeatable", "name"},
                      {"verbose", "tells each action"}});
    words.addHelpOption();
    words.process(application);
    Again = "again: test_operator --seed " + words.value("seed").toStdString() + " --actions " +
            words.value("actions").toStdString() + '\n';
    for (const int number : {SIGSEGV, SIGABRT, SIGALRM}) std::signal(number, Crashed);

    zps::tests::Operator person(words.value("seed").toUInt());
    Doing = &person.Doing;
    const auto good = [&](zps::tests::Findings wrong) {
        alarm(Patience);
        const auto [held, by] = application.TakeLongest();
        const auto span = std::chrono::duration_cast<std::chrono::milliseconds>(held);
        if (span > LongestWork)
            wrong.push_back("the window thread was held: " + std::to_string(span.count()) +
                            " ms, by " + by);
        for (const QString& known : words.values("known")) {
            std::erase_if(wrong,
                          [&](const auto& one) { return one.starts_with(known.toStdString()); });
        }
        if (words.isSet("verbose")) std::printf("%s\n", Doing->c_str());
        if (!wrong.empty()) Tell(wrong.front());
        Done.push_back(*Doing);
        if (Done.size() > Remembered) Done.pop_front();
        return wrong.empty();
    };
    const auto start = person.Start();
    application.TakeLongest();  // the first showing of a window loads its fonts
    bool right = good(start);
    for (int number = 0; number < words.value("actions").toInt() && right; ++number) {
        right = good(person.Act(number, words.values("without")));
    }
    return right && good(person.ComeHome()) ? 0 : 1;
}

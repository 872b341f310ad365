// zps-simulator: simulated supplies on a pseudo-terminal, driven by options and typed commands.
#include "simulator/console.h"
#include "simulator/options.h"
#include "simulator/typed.h"

#include <array>
#include <csignal>
#include <exception>
#include <iostream>
#include <poll.h>
#include <random>
#include <string>
#include <sys/signalfd.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace zps::simulator;

constexpr int BadUsage = 2;

// The signals that end the program come through a descriptor, so that its link is removed. Called
// before any other thread begins: threads inherit the block.
int EndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, number);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);  // nobody reading the output is no reason to end
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

// True if the command ends the program.
bool RunTyped(const std::string& text, Line& line, PortLink& link) {
    try {
        const ConsoleAnswer answer = RunCommand(text, line, link);
        std::cout << answer.Text << std::flush;
        return answer.Quit;
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return false;
    }
}

bool RunWholeLines(std::string& typed, Line& line, PortLink& link) {
    for (auto end = typed.find('\n'); end != std::string::npos; end = typed.find('\n')) {
        const std::string text = typed.substr(0, end);
        typed.erase(0, end + 1);
        if (RunTyped(text, line, link)) return true;
    }
    return false;
}

void ServeUntilEnd(int signals, Line& line, PortLink& link) {
    std::array<pollfd, 2> sources{pollfd{signals, POLLIN, 0}, pollfd{STDIN_FILENO, POLLIN, 0}};
    std::string typed;
    while (true) {
        if (poll(sources.data(), sources.size(), -1) < 0) continue;
        if (sources[0].revents != 0) return;
        std::array<char, 512> room{};
        const auto count = read(STDIN_FILENO, room.data(), room.size());
        if (count > 0) {
            typed.append(room.data(), static_cast<std::size_t>(count));
            if (RunWholeLines(typed, line, link)) return;
        } else {
            // Ctrl+D ends the program; a script or a service without input goes on.
            if (isatty(STDIN_FILENO)) return;
            sources[1].fd = -1;
        }
    }
}

int Run(const ProgramOptions& options, const std::vector<std::string>& words) {
    const int signals = EndSignals();
    const std::uint32_t seed = options.Seed.value_or(std::random_device()() >> 1);
    Line line(options.Supplies, seed);
    for (const Fault& fault : options.LineFaults) line.OrderFault(fault);
    PortLink link(options.Port, line.DeviceName());
    std::cout << "device " << line.DeviceName() << "\nlink   " << link.Path() << "\nagain  "
              << RepeatText(words, seed) << '\n';
    for (const int address : line.Addresses()) std::cout << DescribeState(line.StateOf(address));
    std::cout << std::flush;
    ServeUntilEnd(signals, line, link);
    return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        const std::vector<std::string> words(argv + 1, argv + argc);
        const ProgramOptions options = ParseOptions(words);
        if (!options.Help) return Run(options, words);
        std::cout << HelpText();
        return 0;
    } catch (const UsageError& error) {
        std::cerr << "zps-simulator: " << error.what() << "\nTry zps-simulator --help\n";
        return BadUsage;
    } catch (const std::exception& error) {
        std::cerr << "zps-simulator: " << error.what() << '\n';
        return 1;
    }
}

#include "tests/serial/pseudo_terminal.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <system_error>
#include <unistd.h>

namespace zps::tests {
namespace {

[[noreturn]] void Fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

PseudoTerminal::PseudoTerminal() : Master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    char name[64];
    if (Master < 0 || grantpt(Master) != 0 || unlockpt(Master) != 0 ||
        ptsname_r(Master, name, sizeof name) != 0)
        Fail("pseudo-terminal");
    DeviceName = name;
}

void PseudoTerminal::Write(const Bytes& bytes) const {
    if (write(Master, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        Fail("write");
}

Bytes PseudoTerminal::Read(std::size_t count) const {
    Bytes all(count);
    std::size_t have = 0;
    pollfd ready{Master, POLLIN, 0};
    while (have < count && poll(&ready, 1, 5000) > 0) {
        const auto more = read(Master, all.data() + have, count - have);
        if (more <= 0) break;
        have += static_cast<std::size_t>(more);
    }
    all.resize(have);
    return all;
}

void PseudoTerminal::HangUp() {
    if (Master >= 0) close(Master);
    Master = -1;
}

TemporaryFolder::TemporaryFolder() {
    auto name = (std::filesystem::temp_directory_path() / "zps-test-XXXXXX").string();
    if (!mkdtemp(name.data())) Fail("folder");
    Path = name;
}

PortLinks::PortLinks() {
    setenv("XDG_RUNTIME_DIR", Folder.Path.c_str(), 1);
    std::filesystem::create_directory(Folder.Path / "zps-rs232");
    std::filesystem::permissions(Folder.Path / "zps-rs232", std::filesystem::perms::owner_all);
}

void PortLinks::Link(int number, const std::string& device) const {
    const auto link = Folder.Path / "zps-rs232" / ("COM" + std::to_string(number));
    std::filesystem::remove(link);
    std::filesystem::create_symlink(device, link);
}

}  // namespace zps::tests

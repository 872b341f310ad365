#include "serial/device_linux.h"

#include "serial/device.h"
#include "serial/port.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <termios.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace zps::serial {
namespace {

namespace fs = std::filesystem;

// The kinds of serial device, in the order in which they are numbered.
struct DeviceKind {
    std::string_view Prefix;
    bool MayBeAbsent;  // the name exists whether or not there is a UART behind it
};
constexpr DeviceKind Kinds[] = {{"ttyUSB", false}, {"ttyACM", false}, {"ttyS", true}};

bool IsPrivateFolder(const fs::path& folder) {
    struct stat status {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == getuid() && (status.st_mode & 07777) == 0700;
}

// Also true where that can't be seen.
bool MayExist(const fs::path& name) {
    struct stat status {};
    return lstat(name.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

// A pseudo-terminal's far end holds the terminal open, and with it an exclusive use whose program
// has died; nobody but root could open it again. The lock ends with its program in any case.
bool IsPseudoTerminal(NativeHandle device) {
    constexpr unsigned first = 136, last = 143;  // the kernel's major numbers for them
    struct stat status {};
    if (fstat(device, &status) != 0) return false;
    return major(status.st_rdev) >= first && major(status.st_rdev) <= last;
}

bool UartExists(const fs::path& terminal) {
    int type = 0;
    std::ifstream(terminal / "type") >> type;
    return type != 0;
}

std::optional<unsigned> NumberAfter(std::string_view prefix, std::string_view name) {
    if (!name.starts_with(prefix)) return {};
    const auto digits = name.substr(prefix.size());
    const char* const end = digits.data() + digits.size();
    unsigned number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || stop != end) return {};
    return number;
}

// Devices of one kind, ttyUSB2 before ttyUSB10.
std::vector<fs::path> DevicesOf(const DeviceKind& kind, const DeviceRoots& roots) {
    std::vector<std::pair<unsigned, fs::path>> found;
    std::error_code error;
    for (fs::directory_iterator entry(roots.Devices, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto name = entry->path().filename();
        const auto number = NumberAfter(kind.Prefix, name.string());
        if (!number || (kind.MayBeAbsent && !UartExists(roots.Terminals / name))) continue;
        found.emplace_back(*number, entry->path());
    }
    std::ranges::sort(found);
    std::vector<fs::path> devices;
    for (auto& [number, path] : found) devices.push_back(std::move(path));
    return devices;
}

}  // namespace

fs::path LinkFolderPath() {
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime && *runtime) return fs::path(runtime) / "zps-rs232";
    return "/tmp/zps-rs232-" + std::to_string(getuid());
}

std::string DevicePath(int number, const DeviceRoots& roots) {
    const auto link = roots.Links / ("COM" + std::to_string(number));
    if (MayExist(link)) return link.string();
    int place = 0;
    for (const auto& kind : Kinds) {
        for (const auto& device : DevicesOf(kind, roots)) {
            if (++place == number) return device.string();
        }
    }
    return {};
}

std::string DevicePath(int number) {
    return DevicePath(number, {.Links = LinkFolderPath()});
}

std::error_code Refusal(const std::string& device) {
    const auto folder = fs::path(device).parent_path();
    if (folder == LinkFolderPath() && !IsPrivateFolder(folder))
        return PortFault::LinkFolderNotPrivate;
    struct stat status {};
    if (stat(device.c_str(), &status) != 0) return {errno, std::generic_category()};
    // Opening /dev/ptmx would make a new line that leads to nobody.
    const bool multiplexer = status.st_rdev == makedev(5, 2);
    if (S_ISCHR(status.st_mode) && !multiplexer) return {};
    return std::make_error_code(std::errc::inappropriate_io_control_operation);
}

std::error_code Claim(NativeHandle device) {
    // A program started from this one (a web browser) would keep the claim alive.
    const bool own = fcntl(device, F_SETFD, FD_CLOEXEC) == 0;
    // The lock holds against root too, whom TIOCEXCL lets pass.
    if (!own || flock(device, LOCK_EX | LOCK_NB) != 0) {
        const int reason = errno == EWOULDBLOCK ? EBUSY : errno;
        return {reason, std::generic_category()};
    }
    if (!IsPseudoTerminal(device) && ioctl(device, TIOCEXCL) != 0)
        return {errno, std::generic_category()};
    return {};
}

std::size_t PendingOutput(NativeHandle device) {
    int bytes = 0;
    if (ioctl(device, TIOCOUTQ, &bytes) != 0 || bytes < 0) return 0;
    return static_cast<std::size_t>(bytes);
}

void Release(NativeHandle device) {
    // Only then: on a pseudo-terminal it would take away what the other side has yet to read.
    if (PendingOutput(device) > 0) tcflush(device, TCOFLUSH);
    // Both would outlive the handle: exclusive use where another one is open on the same terminal,
    // the lock where a program that is just being started shares it.
    ioctl(device, TIOCNXCL);
    flock(device, LOCK_UN);
}

}  // namespace zps::serial

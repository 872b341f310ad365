// The links by which the panel finds a simulated line.
#include "simulator/line.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace zps::simulator {

namespace {

std::string FolderName() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (runtime != nullptr && *runtime != '\0') return std::string(runtime) + "/zps-rs232";
    return "/tmp/zps-rs232-" + std::to_string(getuid());
}

[[noreturn]] void Fail(const std::string& name, int error) {
    throw std::runtime_error(name + ": " + std::generic_category().message(error));
}

bool PointsTo(const std::string& link, const std::string& device) {
    std::error_code error;
    return std::filesystem::read_symlink(link, error) == device && !error;
}

}  // namespace

std::string LinkFolder() {
    std::string folder = FolderName();
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) Fail(folder, errno);
    struct stat status {};
    // A link in place of the folder would let somebody else choose where our links go.
    if (lstat(folder.c_str(), &status) != 0) Fail(folder, errno);
    const bool isOwn = S_ISDIR(status.st_mode) && status.st_uid == getuid();
    if (!isOwn || (status.st_mode & 07777) != 0700)
        throw std::runtime_error(folder + " is not a folder of this user alone (mode 0700)");
    return folder;
}

PortLink::PortLink(int number, std::string device)
    : Name(LinkFolder() + "/COM" + std::to_string(number)) {
    Point(std::move(device));
}

PortLink::~PortLink() {
    if (PointsTo(Name, Device)) unlink(Name.c_str());
}

void PortLink::Point(std::string device) {
    const std::string fresh = Name + "." + std::to_string(getpid());
    unlink(fresh.c_str());
    if (symlink(device.c_str(), fresh.c_str()) != 0) Fail(fresh, errno);
    if (rename(fresh.c_str(), Name.c_str()) != 0) {
        const int error = errno;
        unlink(fresh.c_str());
        Fail(Name, error);
    }
    Device = std::move(device);
}

}  // namespace zps::simulator

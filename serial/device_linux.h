// How Linux devices are found, with the places to look at as parameters.
#pragma once

#include <filesystem>
#include <string>

namespace zps::serial {

struct DeviceRoots {
    std::filesystem::path Devices = "/dev";
    std::filesystem::path Terminals = "/sys/class/tty";
    std::filesystem::path Links;  // the folder of the links COMn
};

// $XDG_RUNTIME_DIR/zps-rs232, else /tmp/zps-rs232-<uid>.
std::filesystem::path LinkFolderPath();

// As DevicePath(number). The link folder counts only if it belongs to the user and nobody else may
// enter it (mode 0700): in /tmp anyone could make one. A link counts even if its device is absent:
// taking another device instead could switch the wrong supply.
std::string DevicePath(int number, const DeviceRoots& roots);

}  // namespace zps::serial

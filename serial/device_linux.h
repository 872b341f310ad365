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

// As DevicePath(number). Whatever stands under the name COMn in the link folder is port n: taking
// another device in its place could switch the wrong supply. Refusal looks at what it is, and
// whether the folder belongs to the user and nobody else may enter it (mode 0700): in /tmp anyone
// could make one. A folder that can't be looked into counts as one that has the link.
std::string DevicePath(int number, const DeviceRoots& roots);

}  // namespace zps::serial

#include "serial/device_linux.h"
#include "tests/support/runtime_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace zps::tests {
namespace {

namespace fs = std::filesystem;

class DeviceMapping : public testing::Test {
  protected:
    DeviceMapping() {
        for (const auto& folder : {Roots.Devices, Roots.Links}) fs::create_directory(folder);
        fs::permissions(Roots.Links, fs::perms::owner_all);
    }
    void AddDevice(const std::string& name) const { std::ofstream(Roots.Devices / name) << "x"; }
    std::string DeviceOf(int number) const { return serial::DevicePath(number, Roots); }
    std::string Named(const std::string& name) const { return Roots.Devices / name; }

    RuntimeFolder Folder;
    serial::DeviceRoots Roots{Folder.Path() / "dev", Folder.Path() / "tty",
                              Folder.Path() / "links"};
};

TEST_F(DeviceMapping, NumbersUsbAdaptersBeforeUartsThatExistInNaturalOrder) {
    for (const auto* name : {"ttyUSB10", "ttyUSB2", "ttyACM0", "ttySAC0", "ttyUSBx", "tty1",
                             "ttyS0", "ttyS10", "ttyS4", "ttyS5"})
        AddDevice(name);
    for (const auto& [name, type] : {std::pair{"ttyS0", 0}, {"ttyS10", 4}, {"ttyS4", 4}}) {
        fs::create_directories(Roots.Terminals / name);
        std::ofstream(Roots.Terminals / name / "type") << type << "\n";
    }
    int number = 0;
    for (const auto* name : {"ttyUSB2", "ttyUSB10", "ttyACM0", "ttyS4", "ttyS10"})
        EXPECT_EQ(DeviceOf(++number), Named(name));
    EXPECT_EQ(DeviceOf(6), "");
}

TEST_F(DeviceMapping, TakesNoOtherDeviceInPlaceOfWhateverBearsTheNameOfTheLink) {
    for (const auto* name : {"ttyUSB0", "ttyUSB1", "ttyUSB2"}) AddDevice(name);
    fs::create_symlink("/nowhere/pts", Roots.Links / "COM1");
    std::ofstream(Roots.Links / "COM2") << "x";
    for (const auto folder : {fs::perms::owner_all, fs::perms::all}) {
        fs::permissions(Roots.Links, folder);
        EXPECT_EQ(DeviceOf(1), Roots.Links / "COM1");
        EXPECT_EQ(DeviceOf(2), Roots.Links / "COM2");
        EXPECT_EQ(DeviceOf(3), Named("ttyUSB2"));
    }
    Roots.Links /= "COM2";  // no folder: it has no link
    EXPECT_EQ(DeviceOf(1), Named("ttyUSB0"));
}

}  // namespace
}  // namespace zps::tests

// The real port, over a pseudo-terminal.
#include "serial/asio_port.h"

#include "tests/support/plain_event_loop.h"
#include "tests/support/processor_time.h"
#include "tests/support/runtime_folder.h"
#include "tests/support/terminal.h"

#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <numeric>
#include <sys/wait.h>
#include <termios.h>
#include <thread>

namespace zps::tests {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using serial::Clock;
using serial::EventKind;
using serial::PortError;
using serial::WaitMode;

// Port 1 is a link to the far end, in a folder of the test's own.
class AsioPort : public testing::Test {
  protected:
    AsioPort() {
        fs::create_directory(Link.parent_path());
        fs::permissions(Link.parent_path(), fs::perms::owner_all);
        Replug();
        Port->SetPortOpen(true);
    }
    // Another far end in place of this one, if there is one.
    void Replug() {
        if (Far) Far->HangUp();
        Far = std::make_unique<PseudoTerminal>();
        PointTo(Far->Name());
    }
    void PointTo(const std::string& device) const {
        fs::remove(Link);
        fs::create_symlink(device, Link);
    }
    // Why a port can't be opened.
    static std::error_code Refusal(serial::Port& port) {
        try {
            port.SetPortOpen(true);
            return {};
        } catch (const PortError& error) {
            return error.code();
        }
    }

    const RuntimeFolder Folder;
    const fs::path Link = Folder.Path() / "zps-rs232" / "COM1";
    std::unique_ptr<PseudoTerminal> Far;
    PlainEventLoop Loop;
    serial::AsioPortMaker Maker{Loop};
    std::unique_ptr<serial::Port> Port = Maker.MakePort();
};

TEST_F(AsioPort, CarriesEveryByteUnchangedAt9600Baud8N1WithoutFlowControl) {
    Bytes all(256);
    std::iota(all.begin(), all.end(), std::uint8_t{0});
    Port->Output(all);
    EXPECT_EQ(Far->Read(256), all);
    Far->Write(all);
    ASSERT_TRUE(Port->WaitForInput(256, 10s, WaitMode::HoldEvents));
    for (const auto byte : all) EXPECT_EQ(Port->Input(), byte);
    termios set{};
    ASSERT_EQ(tcgetattr(Far->Handle(), &set), 0);
    EXPECT_EQ(cfgetospeed(&set), static_cast<speed_t>(B9600));
    EXPECT_EQ(set.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), static_cast<tcflag_t>(CS8));
    EXPECT_EQ(set.c_iflag & (IXON | IXOFF | ICRNL), 0U);
    EXPECT_EQ(set.c_lflag & (ECHO | ICANON | ISIG), 0U);
}

TEST_F(AsioPort, IsForOneProgramUntilItIsClosedWhichLetsWrittenBytesLeave) {
    const auto other = Maker.MakePort();
    EXPECT_EQ(Refusal(*other), std::errc::device_or_resource_busy);
    const Bytes block(8000, 17);  // more than the far end holds ready for its reader
    Port->Output(block);
    const pid_t child = fork();  // a program that is just being started shares every handle
    if (child == 0) pause();
    Port->SetPortOpen(false);
    EXPECT_EQ(Far->Read(block.size()), block);
    EXPECT_THROW(Port->Output(Bytes{1}), PortError);
    EXPECT_NO_THROW(other->SetPortOpen(true));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST_F(AsioPort, TellsWhyItCantBeOpenedInCodesThatAllSystemsShare) {
    Port->SetPortOpen(false);
    PointTo("/dev/zps-absent");
    EXPECT_EQ(Refusal(*Port), std::errc::no_such_file_or_directory);
    for (const char* device : {"/dev/null", "/dev/ptmx", "/dev"}) {
        PointTo(device);
        EXPECT_EQ(Refusal(*Port), std::errc::inappropriate_io_control_operation) << device;
    }
}

TEST_F(AsioPort, FollowsALinkOnlyWhileItsFolderIsForTheUserAloneAndSaysSo) {
    using fs::perms;
    const auto folder = Link.parent_path();
    fs::permissions(folder, perms::all);
    Replug();
    for (int time = 0; time < 2; ++time) Port->Output(Bytes{1});  // the first finds it gone
    EXPECT_FALSE(Far->HasInput(100));
    Port->SetPortOpen(false);
    const auto refused = serial::make_error_code(serial::PortFault::LinkFolderNotPrivate);
    for (const auto mode : {perms::all, perms::owner_all | perms::group_exec}) {
        fs::permissions(folder, mode);
        EXPECT_EQ(Refusal(*Port), refused);
        EXPECT_THROW(Maker.DeviceOf(1), PortError);
    }
    fs::permissions(folder, perms::owner_all);
    EXPECT_EQ(Maker.DeviceOf(1), Far->Name());
    fs::rename(folder, Folder.Path() / "other");
    fs::create_directory_symlink(Folder.Path() / "other", folder);
    EXPECT_EQ(Refusal(*Port), refused);
}

TEST_F(AsioPort, AWaitEndsWhenTheBytesAreThereOrTheTimeIsUpAndRunsEventsOnlyIfItSaysSo) {
    bool ran = false;
    Loop.Post([&] { ran = true; });
    for (const auto mode : {WaitMode::HoldEvents, WaitMode::RunEvents}) {
        std::thread supply([this] { Far->Write({1, 6, 7}); });
        EXPECT_TRUE(Port->WaitForInput(3, 10s, mode));
        supply.join();
        EXPECT_EQ(Port->DiscardInput(), (std::vector<std::uint8_t>{1, 6, 7}));
        const auto begin = Clock::now();
        EXPECT_FALSE(Port->WaitForInput(1, 50ms, mode));
        Port->Pause(50ms, mode);
        EXPECT_GE(Clock::now(), begin + 100ms);
        EXPECT_LT(Clock::now(), begin + 5s);
        EXPECT_EQ(ran, mode == WaitMode::RunEvents);
    }
}

TEST_F(AsioPort, AWaitCostsNoProcessorTimeOnAHungUpLine) {
    Far->HangUp();
    for (const auto mode : {WaitMode::HoldEvents, WaitMode::RunEvents}) {
        Port->Pause(20ms, mode);
        const double before = ProcessorTime();
        Port->Pause(200ms, mode);
        EXPECT_LT(ProcessorTime() - before, 0.002);
    }
    EXPECT_TRUE(Port->PortOpen());
}

TEST_F(AsioPort, ClosingEndsEveryWaitUpTheStackEvenIfItIsOpenedAgainOrDestroyed) {
    const auto begin = Clock::now();
    Loop.Post([&] {
        Loop.Post([&] {
            Port->SetPortOpen(false);
            Port->SetPortOpen(true);
        });
        EXPECT_FALSE(Port->WaitForInput(1, 60s, WaitMode::RunEvents));
    });
    EXPECT_FALSE(Port->WaitForInput(1, 60s, WaitMode::RunEvents));
    Loop.Post([this] { Port.reset(); });
    Port->Pause(60s, WaitMode::RunEvents);
    EXPECT_LT(Clock::now(), begin + 20s);
}

TEST_F(AsioPort, IsASilentLineWhileTheDeviceIsAwayAndComesBackWithTheNextWrite) {
    int verdicts = 0;
    Port->OnReceive(EventKind::InputAndOutput, [&] { ++verdicts; });
    Far->HangUp();
    PointTo("/dev/zps-absent");
    Port->Output(Bytes{0});  // finds it gone
    EXPECT_NO_THROW(Port->Output(Bytes{1, 5, 6}));
    Loop.RunPosted();
    EXPECT_EQ(verdicts, 1);
    Replug();
    Port->Output(Bytes{1, 16, 17});
    EXPECT_EQ(Far->Read(3), (Bytes{1, 16, 17}));
    Far->Write({1});
    EXPECT_TRUE(Port->WaitForInput(1, 10s, WaitMode::RunEvents));
}

TEST_F(AsioPort, GivesUpADeviceThatTakesNothing) {
    const auto begin = Clock::now();
    Port->Output(Bytes(1 << 20));
    EXPECT_GE(Clock::now(), begin + 200ms);
    EXPECT_LT(Clock::now(), begin + 2s);
    const PseudoTerminal other;
    PointTo(other.Name());
    Port->Output(Bytes{1, 5, 6});
    EXPECT_EQ(other.Read(3), (Bytes{1, 5, 6}));
}

}  // namespace
}  // namespace zps::tests

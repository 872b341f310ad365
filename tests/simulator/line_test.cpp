#include "simulator/line.h"

#include "simulator/console.h"
#include "simulator/typed.h"
#include "tests/support/runtime_folder.h"
#include "tests/support/terminal.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace zps::simulator::tests {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace zps::tests;

// The panel's side of a line.
struct Opened : Terminal {
    explicit Opened(const std::string& device)
        : Terminal(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
    Bytes Ask(const Bytes& frame, std::size_t count = 3) const {
        Write(frame);
        return Read(count);
    }
};

const Bytes Acknowledged{1, Ack, 7};
const std::vector<SupplyOptions> One(1);

TEST(Line, CarriesEveryByteBothWaysUnchangedInLineTime) {
    Line line({SupplyOptions{}, SupplyOptions{.Address = 7}});
    const Opened panel(line.DeviceName());
    // Ten, thirteen, seventeen, nineteen and 127 mean something to a terminal that is not raw.
    const Bytes step = Framed(1, {Esc, 'S', 10, Esc, 'T', 0, 17, 0, 19, 13, Esc, 'V', 127, 3});
    const std::vector<Bytes> sent{Control(1, Dc3), step, Control(9, Enq), Control(7, Enq)};
    const Time begun = Clock::now();
    EXPECT_EQ(panel.Ask(Joined({sent[0], sent[1]}), 6), Joined({Acknowledged, Acknowledged}));
    EXPECT_GE(Clock::now() - begun, LineTime(step.size() + 3));
    EXPECT_EQ(panel.Ask(Joined({sent[2], sent[3]})), (Bytes{7, Ack, 13}));
    EXPECT_EQ(line.TakeReceived(), sent);
    EXPECT_EQ(panel.Ask(Control(1, Dle), 14),
              Summed({1, 2, 9, 0xC0, 0, 0x05, 0xDC, 0x06, 0x63, 0x00, 0x64, 10, 3}));
}

TEST(Line, UnpluggedIsAnErrorToReadersKeepsItsNameAndPluggedIsADeviceAgain) {
    Line line(One);
    const std::string name = line.DeviceName();
    {
        const Opened panel(name);
        EXPECT_EQ(panel.Ask(Control(1, Dc3)), Acknowledged);
        line.Unplug();
        EXPECT_EQ(line.DeviceName(), "");
        EXPECT_TRUE(panel.HasInput(5000));
        EXPECT_EQ(write(panel.Handle(), "x", 1), -1);
    }
    EXPECT_NE(Line(One).DeviceName(), name);
    line.Plug();
    EXPECT_EQ(Opened(line.DeviceName()).Ask(Control(1, Enq)), Acknowledged);
}

TEST(Line, TakesNothingWhileItIsDeafAndAllOfItAfterwards) {
    Line line(One);
    const Opened panel(line.DeviceName());
    EXPECT_EQ(panel.Ask(Control(1, Dc3)), Acknowledged);
    const auto isFull = [&] {
        pollfd room{panel.Handle(), POLLOUT, 0};
        return poll(&room, 1, 0) == 0;
    };
    for (const bool full : {true, false}) {
        if (full)
            line.OrderFault({FaultKind::Deaf});
        else
            line.StopFaults();
        const Time limit = Clock::now() + 5s;
        while (isFull() != full && Clock::now() < limit) std::this_thread::sleep_for(1ms);
        EXPECT_EQ(write(panel.Handle(), "x", 1), full ? -1 : 1);
    }
    EXPECT_EQ(panel.Ask(Control(1, Enq)), Acknowledged);
}

struct Links : testing::Test {
    RuntimeFolder Runtime;
};

TEST_F(Links, PointToTheirDeviceAndGoAtTheEndInAFolderForTheUserAlone) {
    const fs::path folder = Runtime.Path() / "zps-rs232";
    const fs::path com2 = folder / "COM2";
    {
        PortLink link(2, "/dev/pts/77");
        EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
        link.Point("/dev/pts/78");
        EXPECT_EQ(fs::read_symlink(com2), "/dev/pts/78");
        fs::remove(com2);
        fs::create_symlink("/dev/ttyS0", com2);
    }
    EXPECT_EQ(fs::read_symlink(com2), "/dev/ttyS0");
    { const PortLink link(2, "/dev/pts/80"); }
    EXPECT_TRUE(fs::is_empty(folder));
    fs::permissions(folder, fs::perms(0755));
    EXPECT_THROW(LinkFolder(), std::runtime_error);
}

TEST_F(Links, FollowALineThatATypedCommandPlugsInAgain) {
    Line line(One);
    PortLink link(1, line.DeviceName());
    const auto run = [&](const char* text) { return RunCommand(text, line, link); };
    for (const char* text : {"unplug", "plug", "  trip 1 5 ", "load 1 20", "silent", "drop 0.5"})
        run(text);
    EXPECT_EQ(fs::read_symlink(link.Path()), line.DeviceName());
    EXPECT_EQ(line.StateOf(1).Code, 5);
    EXPECT_EQ(line.StateOf(1).Options.LoadOhms, 20);
    EXPECT_EQ(run("faults").Text, "silent 1: struck 0\ndrop 0.5: struck 0\n");
    for (const char* text : {"back", "drop 0", "garble 1,on=ENQ", "healthy"}) run(text);
    EXPECT_EQ(run("faults").Text, "no faults\n");
    EXPECT_TRUE(run("quit").Quit);
    for (const char* bad : {"quiet", "trip 1", "trip 2 5", "load 1 0", "quit now", "drop 1 2"})
        EXPECT_THROW(run(bad), UsageError) << bad;
}

}  // namespace
}  // namespace zps::simulator::tests

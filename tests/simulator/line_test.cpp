#include "simulator/line.h"

#include "simulator/console.h"
#include "simulator/options.h"
#include "tests/simulator/bench.h"
#include "tests/support/runtime_folder.h"
#include "tests/support/terminal.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/ioctl.h>
#include <unistd.h>

namespace zps::simulator::tests {
namespace {

namespace fs = std::filesystem;

// The panel's side of a line.
struct Opened : zps::tests::Terminal {
    explicit Opened(const std::string& device) : Terminal(Open(device)) {}
    Bytes Ask(const Bytes& frame, std::size_t count = 3) const {
        Write(frame);
        return Read(count);
    }

  private:
    // The line ends the exclusive use of a panel that has gone on a thread of its own.
    static int Open(const std::string& device) {
        const Time limit = Clock::now() + 5s;
        int handle = -1;
        do handle = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        while (handle < 0 && errno == EBUSY && Clock::now() < limit);
        return handle;
    }
};

const Bytes Probe = Control(1, Enq);
const Bytes Acknowledged{1, Ack, 7};
const std::vector<SupplyOptions> One(1);

TEST(Line, CarriesEveryByteBothWaysUnchangedInLineTime) {
    Line line({SupplyOptions{}, SupplyOptions{.Address = 7}});
    const Opened panel(line.DeviceName());
    const Time sent = Clock::now();
    EXPECT_EQ(panel.Ask(Joined({Probe, Control(1, Dc3)}), 6), Joined({Acknowledged, Acknowledged}));
    EXPECT_GE(Clock::now() - sent, LineTime(9));
    // Ten, thirteen, seventeen, nineteen and 127 mean something to a terminal that is not raw.
    const Bytes step =
        Framed(1, {Esc, 'S', 10, Esc, 'T', 0, 17, 0, 19, 13, Esc, 'V', 127, 3, Esc, 'C', 27, 27});
    EXPECT_EQ(panel.Ask(step), Acknowledged);
    EXPECT_EQ(line.StateOf(1).Steps[10].TimeRaw, (std::array<std::uint8_t, 5>{0, 17, 0, 19, 13}));
    EXPECT_EQ(line.StateOf(1).Steps[10].CurrRaw, 0x1B1B);
    EXPECT_EQ(panel.Ask(Control(1, Dle), 14),
              Summed({1, 2, 9, 0xC0, 0, 0x05, 0xDC, 0x06, 0x63, 0x00, 0x64, 10, 3}));
    panel.Write(Control(9, Enq));
    EXPECT_EQ(panel.Ask(Control(7, Enq)), (Bytes{7, Ack, 13}));
    EXPECT_EQ(line.TakeReceived(),
              (std::vector<Bytes>{Probe, Control(1, Dc3), step, Control(1, Dle), Control(9, Enq),
                                  Control(7, Enq)}));
    EXPECT_TRUE(line.TakeReceivedTimed().empty());
}

TEST(Line, OutlivesAPanelThatComesAndGoesAndKeepsNothingForTheNextOne) {
    Line line(One);
    for (int round = 0; round < 3; ++round) {
        const Opened panel(line.DeviceName());
        EXPECT_EQ(panel.Ask(Control(1, Dle), 14).size(), 14U);
        panel.Write(Probe);
        EXPECT_TRUE(panel.HasInput(5000));
        EXPECT_EQ(ioctl(panel.Handle(), TIOCEXCL), 0);
    }
    // The line notices on its own thread that the panel has gone.
    const Time limit = Clock::now() + 5s;
    while (Opened(line.DeviceName()).HasInput(1) && Clock::now() < limit) continue;
    EXPECT_FALSE(Opened(line.DeviceName()).HasInput(0));
}

TEST(Line, UnpluggedIsAnErrorToReadersAndPluggedIsADeviceAgain) {
    Line line(One);
    {
        const Opened panel(line.DeviceName());
        EXPECT_EQ(panel.Ask(Control(1, Dc3)), Acknowledged);
        line.Unplug();
        EXPECT_EQ(line.DeviceName(), "");
        EXPECT_TRUE(panel.HasInput(5000));
        EXPECT_TRUE(panel.Read(1).empty());
        EXPECT_EQ(write(panel.Handle(), "x", 1), -1);
        line.Plug();
    }
    const Opened panel(line.DeviceName());
    EXPECT_EQ(panel.Ask(Probe), Acknowledged);
    EXPECT_TRUE(line.StateOf(1).Remote);
}

TEST(Line, UnpluggedLeavesItsNameToNoOtherTerminal) {
    Line line(One);
    const std::string name = line.DeviceName();
    line.Unplug();
    Line other(One);
    EXPECT_NE(other.DeviceName(), name);
}

TEST(ReplyFaults, LoseChangeDivideDoubleAndDelayAReply) {
    const Time due{1h};
    ReplyFaults mangler(1);
    int lost = 0;
    for (int reply = 0; reply < 1000; ++reply)
        lost += mangler.Apply({.Drop = 0.3}, Acknowledged, due).empty() ? 1 : 0;
    EXPECT_NEAR(lost, 300, 60);
    EXPECT_NE(mangler.Apply({.Garble = 1}, Acknowledged, due).at(0).Content, Acknowledged);
    const auto pieces =
        mangler.Apply({.Split = 1, .Duplicate = 1, .Delay = 50ms}, Acknowledged, due);
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_EQ(Joined({pieces[0].Content, pieces[1].Content}), Acknowledged);
    EXPECT_EQ(pieces[2].Content, Acknowledged);
    EXPECT_EQ(pieces[1].LeavesAt, due + 80ms);
}

struct Links : testing::Test {
    zps::tests::RuntimeFolder Runtime;
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
    EXPECT_TRUE(line.PresentFaults().Silent);
    EXPECT_EQ(line.PresentFaults().Drop, 0.5);
    EXPECT_TRUE(run("quit").Quit);
    for (const char* bad : {"quiet", "trip 1", "trip 2 5", "load 1 0", "trip 1 x", "quit now"})
        EXPECT_THROW(run(bad), UsageError) << bad;
}

}  // namespace
}  // namespace zps::simulator::tests

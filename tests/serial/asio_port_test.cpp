// The real port, over a pseudo-terminal.
#include "serial/asio_port.h"

#include "tests/serial/pseudo_terminal.h"
#include "tests/support/plain_event_loop.h"

#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <numeric>
#include <termios.h>
#include <thread>

namespace zps::tests {
namespace {

using namespace std::chrono_literals;
using serial::Clock;
using serial::EventKind;
using serial::PortError;
using serial::WaitMode;

class AsioPort : public testing::Test {
  protected:
    AsioPort() {
        Links.Link(1, Far->Name());
        Links.Link(2, "/dev/zps-absent");
        Port->SetPortOpen(true);
    }
    // Runs the loop until `done`, for 10 s at most.
    bool Comes(const std::function<bool()>& done) {
        Loop.RunUntil(done, Clock::now() + 10s);
        return done();
    }
    Bytes ReadAll() const {
        Bytes all;
        while (Port->InBufferCount() > 0) all.push_back(Port->Input());
        return all;
    }
    // The device is away: what is written goes nowhere, and the port has seen it.
    void Lose() {
        Far->HangUp();
        Links.Link(1, "/dev/zps-absent");
        Port->Output(Bytes{0});
    }

    PortLinks Links;
    std::unique_ptr<PseudoTerminal> Far = std::make_unique<PseudoTerminal>();
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
    EXPECT_EQ(ReadAll(), all);
    EXPECT_THROW(Port->Input(), std::logic_error);

    termios set{};
    ASSERT_EQ(tcgetattr(Far->Handle(), &set), 0);
    EXPECT_EQ(cfgetospeed(&set), static_cast<speed_t>(B9600));
    EXPECT_EQ(set.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), static_cast<tcflag_t>(CS8));
    EXPECT_EQ(set.c_iflag & (IXON | IXOFF | ICRNL), 0U);
    EXPECT_EQ(set.c_lflag & (ECHO | ICANON | ISIG), 0U);
}

TEST_F(AsioPort, IsForOneProgramUntilItIsClosed) {
    const auto other = Maker.MakePort();
    try {
        other->SetPortOpen(true);
        FAIL() << "opened twice";
    } catch (const PortError& error) {
        EXPECT_EQ(error.CommPort, 1);
        EXPECT_STREQ(error.what(), "Device or resource busy");
    }
    EXPECT_FALSE(other->PortOpen());
    Port->SetPortOpen(false);
    EXPECT_NO_THROW(other->SetPortOpen(true));
}

TEST_F(AsioPort, TellsWhyItCannotBeOpenedAndRefusesToWriteWhileClosed) {
    EXPECT_EQ(Maker.DeviceOf(1), Far->Name());
    Port->SetCommPort(2);
    EXPECT_TRUE(Port->PortOpen());
    Port->Output(Bytes{1});
    EXPECT_EQ(Far->Read(1), Bytes{1});  // the number counts from the next opening on
    Port->SetPortOpen(false);
    EXPECT_THROW(Port->SetPortOpen(true), PortError);
    EXPECT_FALSE(Port->PortOpen());
    EXPECT_THROW(Port->Output(Bytes{1}), PortError);
    EXPECT_FALSE(Port->WaitForInput(0, 10s, WaitMode::HoldEvents));
}

TEST_F(AsioPort, LetsWrittenBytesLeaveBeforeItCloses) {
    const Bytes block(8000, 17);  // more than the far end holds ready for its reader
    Port->Output(block);
    Port->SetPortOpen(false);
    EXPECT_EQ(Far->Read(block.size()), block);
}

class AsioPortWait : public AsioPort, public testing::WithParamInterface<WaitMode> {};

TEST_P(AsioPortWait, EndsWhenTheBytesAreThereOrTheTimeIsUp) {
    std::thread supply([this] { Far->Write({1, 6, 7}); });
    EXPECT_TRUE(Port->WaitForInput(3, 10s, GetParam()));
    supply.join();
    const auto begin = Clock::now();
    EXPECT_FALSE(Port->WaitForInput(4, 50ms, GetParam()));
    Port->Pause(50ms, GetParam());
    EXPECT_GE(Clock::now(), begin + 100ms);
    EXPECT_LT(Clock::now(), begin + 5s);
    Port->DiscardInput();
    EXPECT_EQ(Port->InBufferCount(), 0U);
}

TEST_P(AsioPortWait, CostsNoProcessorTimeOnAHungUpLine) {
    Far->HangUp();
    Port->Pause(20ms, GetParam());
    const auto before = std::clock();
    Port->Pause(500ms, GetParam());
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 200);
    EXPECT_TRUE(Port->PortOpen());
}

INSTANTIATE_TEST_SUITE_P(Modes, AsioPortWait,
                         testing::Values(WaitMode::HoldEvents, WaitMode::RunEvents));

TEST_F(AsioPort, RunsEventsOnlyInTheWaitThatSaysSo) {
    bool ran = false;
    Loop.Post([&] { ran = true; });
    Port->Pause(10ms, WaitMode::HoldEvents);
    EXPECT_FALSE(ran);
    Port->Pause(10ms, WaitMode::RunEvents);
    EXPECT_TRUE(ran);
}

TEST_F(AsioPort, ClosingEndsEveryWaitUpTheStackEvenIfItIsOpenedAgain) {
    const auto begin = Clock::now();
    bool outer = true;
    bool inner = true;
    Loop.Post([&] {
        Loop.Post([&] {
            Port->SetPortOpen(false);
            Port->SetPortOpen(true);
        });
        inner = Port->WaitForInput(1, 60s, WaitMode::RunEvents);
    });
    outer = Port->WaitForInput(1, 60s, WaitMode::RunEvents);
    EXPECT_FALSE(inner);
    EXPECT_FALSE(outer);
    Loop.Post([this] { Port->SetPortOpen(false); });
    Port->Pause(60s, WaitMode::RunEvents);
    EXPECT_LT(Clock::now(), begin + 20s);
}

TEST_F(AsioPort, MayBeDestroyedByAnEventOfItsHandlersWait) {
    bool ended = false;
    Port->OnReceive(EventKind::Input, [&] {
        Loop.Post([&] { Port.reset(); });
        EXPECT_FALSE(Port->WaitForInput(3, 60s, WaitMode::RunEvents));
        ended = true;
    });
    Far->Write({1});
    EXPECT_TRUE(Comes([&] { return ended; }));
    EXPECT_EQ(Port, nullptr);
}

TEST_F(AsioPort, RaisesItsEventForBytesAndOnceForAnExchange) {
    int raised = 0;
    Bytes reply;
    Port->OnReceive(EventKind::InputAndOutput, [&] {
        ++raised;
        Port->WaitForInput(3, 10s, WaitMode::RunEvents);
        reply = ReadAll();
    });
    Port->Output(Bytes{1, 5, 6});
    Far->Write({1, 6});
    Loop.Post([&] { Far->Write({7}); });
    EXPECT_TRUE(Comes([&] { return reply.size() == 3; }));
    Loop.RunPosted();
    EXPECT_EQ(raised, 1);
}

TEST_F(AsioPort, IsASilentLineWhileTheDeviceIsAwayAndComesBackWithTheNextWrite) {
    int verdicts = 0;
    Port->OnReceive(EventKind::InputAndOutput, [&] { ++verdicts; });
    Lose();
    EXPECT_NO_THROW(Port->Output(Bytes{1, 5, 6}));
    EXPECT_TRUE(Port->PortOpen());
    EXPECT_TRUE(Comes([&] { return verdicts > 0; }));
    EXPECT_FALSE(Port->WaitForInput(1, 20ms, WaitMode::HoldEvents));

    Far = std::make_unique<PseudoTerminal>();
    Links.Link(1, Far->Name());
    Port->Output(Bytes{1, 16, 17});
    EXPECT_EQ(Far->Read(3), (Bytes{1, 16, 17}));
    Far->Write({1, 6, 7});
    EXPECT_TRUE(Port->WaitForInput(3, 10s, WaitMode::RunEvents));
}

TEST_F(AsioPort, GivesUpADeviceThatTakesNothingAndOpensItAgain) {
    const auto begin = Clock::now();
    Port->Output(Bytes(1 << 20));
    EXPECT_GE(Clock::now(), begin + 200ms);
    EXPECT_LT(Clock::now(), begin + 2s);
    Far = std::make_unique<PseudoTerminal>();
    Links.Link(1, Far->Name());
    Port->Output(Bytes{1, 5, 6});
    EXPECT_EQ(Far->Read(3), (Bytes{1, 5, 6}));
}

}  // namespace
}  // namespace zps::tests

// The far end of a serial line, and a folder of the test's own.
#pragma once

#include "tests/support/scripted_port.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <stdlib.h>
#include <string>
#include <unistd.h>

namespace zps::tests {

class PseudoTerminal {
  public:
    PseudoTerminal() { EXPECT_TRUE(grantpt(Master) == 0 && unlockpt(Master) == 0); }
    ~PseudoTerminal() { HangUp(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    std::string Name() const { return ptsname(Master); }
    int Handle() const { return Master; }
    void Write(const Bytes& bytes) const {
        EXPECT_EQ(write(Master, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // What arrives until there are `count` bytes, for 5 s at most.
    Bytes Read(std::size_t count) const {
        Bytes all;
        std::uint8_t byte = 0;
        pollfd ready{Master, POLLIN, 0};
        while (all.size() < count && poll(&ready, 1, 5000) > 0 && read(Master, &byte, 1) == 1)
            all.push_back(byte);
        return all;
    }
    void HangUp() {
        if (Master >= 0) close(Master);
        Master = -1;
    }

  private:
    int Master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
};

struct TemporaryFolder {
    TemporaryFolder() { EXPECT_NE(mkdtemp(Name.data()), nullptr); }
    ~TemporaryFolder() { std::filesystem::remove_all(Name); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::filesystem::path Path() const { return Name; }

    std::string Name = std::filesystem::temp_directory_path() / "zps-test-XXXXXX";
};

}  // namespace zps::tests

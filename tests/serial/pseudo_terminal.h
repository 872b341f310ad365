// The far end of a serial line.
#pragma once

#include "tests/support/frames.h"

#include <gtest/gtest.h>

#include <fcntl.h>
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

}  // namespace zps::tests

// The two ends of a serial line.
#pragma once

#include "tests/support/frames.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <string>
#include <unistd.h>

namespace zps::tests {

// One end of a line, closed in the end.
class Terminal {
  public:
    explicit Terminal(int handle) : Own(handle) { EXPECT_GE(Own, 0); }
    ~Terminal() { HangUp(); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    int Handle() const { return Own; }
    void Write(const Bytes& bytes) const {
        EXPECT_EQ(write(Own, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // What arrives until there are `count` bytes, for 5 s at most.
    Bytes Read(std::size_t count) const {
        Bytes all;
        std::uint8_t byte = 0;
        while (all.size() < count && HasInput(5000) && read(Own, &byte, 1) == 1)
            all.push_back(byte);
        return all;
    }
    // Whether there is something to read within `limit` ms.
    bool HasInput(int limit) const {
        pollfd ready{Own, POLLIN, 0};
        return poll(&ready, 1, limit) > 0;
    }
    void HangUp() {
        if (Own >= 0) close(Own);
        Own = -1;
    }

  private:
    int Own;
};

// The far end of a pseudo-terminal.
struct PseudoTerminal : Terminal {
    PseudoTerminal() : Terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        EXPECT_TRUE(grantpt(Handle()) == 0 && unlockpt(Handle()) == 0);
    }
    std::string Name() const { return ptsname(Handle()); }
};

}  // namespace zps::tests

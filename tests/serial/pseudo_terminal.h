// The far end of a serial line, and a folder of links in which the ports find it.
#pragma once

#include "tests/support/scripted_port.h"

#include <filesystem>
#include <string>

namespace zps::tests {

class PseudoTerminal {
  public:
    PseudoTerminal();
    ~PseudoTerminal() { HangUp(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    std::string Name() const { return DeviceName; }
    int Handle() const { return Master; }
    void Write(const Bytes& bytes) const;
    // What arrives until there are `count` bytes, for 5 s at most.
    Bytes Read(std::size_t count) const;
    void HangUp();

  private:
    int Master = -1;
    std::string DeviceName;
};

// A folder of this test's own, removed at the end.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder() { std::filesystem::remove_all(Path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path Path;
};

// While it lives, links made with Link are what the port numbers stand for.
class PortLinks {
  public:
    PortLinks();
    void Link(int number, const std::string& device) const;

  private:
    TemporaryFolder Folder;
};

}  // namespace zps::tests

// A simulated serial line with one or more supplies on it, served by a thread of its own on the
// master side of a pseudo-terminal. The panel, a person or a test opens DeviceName().
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "simulator/supply.h"

namespace zps::simulator {

// What goes wrong on the line, each as a share of the replies, 0 to 1.
struct Faults {
    double Drop = 0;       // the reply is lost
    double Garble = 0;     // one of its bytes is changed
    double Split = 0;      // it comes in two pieces with a pause of 30 ms between
    double Duplicate = 0;  // it comes twice
    std::chrono::milliseconds Delay{0};  // every reply leaves this much later
    bool Silent = false;   // nothing is answered at all
};

class Line {
  public:
    // Throws std::system_error where no pseudo-terminal can be had. `seed` makes the faults
    // repeatable.
    explicit Line(std::vector<SupplyOptions> supplies, std::uint32_t seed = 1);
    ~Line();

    // The name of the device to open, for example "/dev/pts/5".
    std::string DeviceName() const;

    // All calls below may be made on any thread at any time.
    void SetFaults(const Faults& faults);
    // Every byte that came from the panel since the last call, frame by frame.
    std::vector<std::vector<std::uint8_t>> TakeReceived();
    // Hangs the line up as a pulled adapter does: readers see an error. Comes back with Plug() as
    // a fresh device under a fresh name.
    void Unplug();
    void Plug();
    // A copy of the supply's whole state; throws std::out_of_range for an address nobody has.
    SupplyState StateOf(int address) const;
    // Changes the load or forces a trip, as a person at the bench would.
    void SetLoad(int address, double ohms);
    void Trip(int address, int errorCode);

  private:
    struct Inside;
    std::unique_ptr<Inside> Self;
};

// The folder in which links named COMn tell the panel which device a port is:
// $XDG_RUNTIME_DIR/zps-rs232, else /tmp/zps-rs232-<uid>. Made with mode 0700 if absent; throws
// std::runtime_error if it is not the user's own.
std::string LinkFolder();

// A link COMn in that folder to `device`, replaced atomically if one is there, removed at the end
// of its life if it still points to the device.
class PortLink {
  public:
    PortLink(int number, std::string device);
    ~PortLink();
    PortLink(const PortLink&) = delete;
    PortLink& operator=(const PortLink&) = delete;
    void Point(std::string device);

  private:
    std::string Name;
    std::string Device;
};

}  // namespace zps::simulator

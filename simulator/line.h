// A simulated serial line with one or more supplies on it, served by a thread of its own. The
// panel, a person or a test opens DeviceName(), as often as it likes.
#pragma once

#include "simulator/line_end.h"
#include "simulator/traffic.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zps::simulator {

class Line {
  public:
    // Throws what `end` throws when it is opened, and std::invalid_argument where an option is out
    // of its range or two supplies have one address. `seed` makes the faults repeatable.
    Line(std::unique_ptr<LineEnd> end, const std::vector<SupplyOptions>& supplies,
         std::uint32_t seed = 1);
    // On a pseudo-terminal, where the system has them; std::system_error where none can be had.
    explicit Line(const std::vector<SupplyOptions>& supplies, std::uint32_t seed = 1);
    ~Line();

    // All calls below may be made on any thread at any time.

    // The name of the device to open, for example "/dev/pts/5"; empty while unplugged.
    std::string DeviceName() const;

    // Faults for the frames that come from now on (FaultOrders). OrderFault throws as CheckFault.
    void OrderFault(const Fault& fault);
    void StopFault(FaultKind kind);
    void StopFaults();
    std::vector<Fault> OrderedFaults() const;
    // On how many frames an ordered fault has struck; of a flood its bytes.
    std::uint64_t Struck(FaultKind kind) const;
    // Every byte that came from the panel since the last call, frame by frame: frames for other
    // addresses, broken frames and noise too. The oldest are dropped where nobody takes them for
    // 100000 frames.
    std::vector<std::vector<std::uint8_t>> TakeReceived();
    // The same frames with what the line saw in them and when. The two calls share one store: what
    // one has taken, the other does not give again.
    std::vector<Frame> TakeReceivedTimed();
    // Hangs the line up as a pulled adapter does: readers see an error, replies under way are lost,
    // the supplies go on. Comes back with Plug() as a fresh device, mostly under a fresh name. Plug
    // throws std::system_error as the constructor does.
    void Unplug();
    void Plug();
    // The addresses of the supplies, in the order in which they were given.
    std::vector<int> Addresses() const;
    // A copy of the supply's whole state; throws std::out_of_range for an address nobody has.
    SupplyState StateOf(int address) const;
    // Changes the load or forces a trip, as a person at the bench would. Both throw
    // std::out_of_range for an address nobody has and std::invalid_argument for a load that is not
    // above 0 or a code outside 1 to 255.
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
// of its life if it still points to the device. Throws std::runtime_error where the link can't be
// made; not thread-safe.
class PortLink {
  public:
    PortLink(int number, std::string device);
    ~PortLink();
    PortLink(const PortLink&) = delete;
    PortLink& operator=(const PortLink&) = delete;
    void Point(std::string device);
    // The link itself, for example "/run/user/1000/zps-rs232/COM1".
    const std::string& Path() const { return Name; }

  private:
    std::string Name;
    std::string Device;
};

}  // namespace zps::simulator

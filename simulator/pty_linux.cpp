#include "simulator/line.h"
#include "simulator/pty.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>
#include <utility>

namespace zps::simulator {

namespace {

int Checked(int result, const char* what) {
    if (result < 0) throw std::system_error(errno, std::generic_category(), what);
    return result;
}

class Descriptor {
  public:
    explicit Descriptor(int number = -1) : Number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : Number(std::exchange(other.Number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(Number, other.Number);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    void Close() {
        if (Number >= 0) close(std::exchange(Number, -1));
    }
    int operator*() const { return Number; }
    explicit operator bool() const { return Number >= 0; }

  private:
    int Number;
};

void MakeRaw(int master) {
    termios settings{};
    Checked(tcgetattr(master, &settings), "tcgetattr");
    cfmakeraw(&settings);
    cfsetspeed(&settings, B9600);
    Checked(tcsetattr(master, TCSANOW, &settings), "tcsetattr");
}

// Edge-triggered, as everything is read to its end before the next wait.
void Watch(int waiting, int descriptor) {
    epoll_event event{};
    event.events = EPOLLIN | EPOLLET;
    Checked(epoll_ctl(waiting, EPOLL_CTL_ADD, descriptor, &event), "epoll_ctl");
}

Descriptor WatchUsersOf(const std::string& name) {
    Descriptor users(Checked(inotify_init1(IN_CLOEXEC | IN_NONBLOCK), "inotify_init1"));
    Checked(inotify_add_watch(*users, name.c_str(), IN_OPEN | IN_CLOSE), name.c_str());
    return users;
}

int MillisecondsUntil(Time until) {
    if (until == Time::max()) return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, 60'000));
}

// How many more opens than closes of the device there were since the last call.
int ChangeOfUsers(int users) {
    alignas(inotify_event) std::array<char, 4096> room{};
    int change = 0;
    for (ssize_t count; (count = read(users, room.data(), room.size())) > 0;) {
        for (ssize_t at = 0; at < count;) {
            inotify_event event{};
            std::memcpy(&event, room.data() + at, sizeof event);
            change += (event.mask & IN_OPEN) != 0 ? 1 : -1;
            at += static_cast<ssize_t>(sizeof event + event.len);
        }
    }
    return change;
}

}  // namespace

struct Pty::Inside {
    void CountUsers();

    Descriptor Waiting{Checked(epoll_create1(EPOLL_CLOEXEC), "epoll_create1")};
    Descriptor Waker{Checked(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), "eventfd")};
    Descriptor Master;
    // Kept open: a device that nobody has open reports a hang-up without end, and keeps the
    // exclusive use and the unread bytes of a user who has crashed. Kept also while the line is
    // unplugged: the system would give the name to another terminal, and a user who looks for the
    // line would write to that one.
    Descriptor Slave;
    Descriptor Users;
    int UserCount = 0;  // others than us who have the device open
    std::string Name;
};

void Pty::Inside::CountUsers() {
    const int change = ChangeOfUsers(*Users);
    UserCount += change;
    if (change == 0 || UserCount > 0) return;
    ioctl(*Slave, TIOCNXCL);
    tcflush(*Slave, TCIFLUSH);
}

Pty::Pty() : Self(std::make_unique<Inside>()) {
    Watch(*Self->Waiting, *Self->Waker);
}

Pty::~Pty() = default;

void Pty::Open() {
    if (Self->Master) return;
    Descriptor master(
        Checked(open("/dev/ptmx", O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), "/dev/ptmx"));
    Checked(grantpt(*master), "grantpt");
    Checked(unlockpt(*master), "unlockpt");
    std::array<char, 64> name{};
    if (const int error = ptsname_r(*master, name.data(), name.size()); error != 0)
        throw std::system_error(error, std::generic_category(), "ptsname_r");
    MakeRaw(*master);
    Descriptor slave(Checked(open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC), name.data()));
    Descriptor users = WatchUsersOf(name.data());
    Watch(*Self->Waiting, *master);
    Watch(*Self->Waiting, *users);
    Self->Master = std::move(master);
    Self->Slave = std::move(slave);
    Self->Users = std::move(users);
    Self->UserCount = 0;
    Self->Name = name.data();
}

void Pty::Close() {
    Self->Users.Close();
    Self->Master.Close();
    Self->Name.clear();
}

std::string Pty::Name() const {
    return Self->Name;
}

void Pty::Wait(Time until) {
    std::array<epoll_event, 2> events{};
    epoll_wait(*Self->Waiting, events.data(), static_cast<int>(events.size()),
               MillisecondsUntil(until));
}

void Pty::Wake() {
    eventfd_write(*Self->Waker, 1);
}

std::size_t Pty::Read(std::span<std::uint8_t> room) {
    if (!Self->Master) return 0;
    Self->CountUsers();
    const auto count = read(*Self->Master, room.data(), room.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void Pty::Write(ByteView bytes) {
    if (!Self->Master || Self->UserCount == 0) return;
    // A short write is a receiver that was overrun: the rest is lost, as on a real line.
    [[maybe_unused]] const auto written = write(*Self->Master, bytes.data(), bytes.size());
}

// The terminal's own buffer would take minutes of frames.
void Pty::Fill(bool full) {
    if (Self->Slave) tcflow(*Self->Slave, full ? TCOOFF : TCOON);
}

Line::Line(const std::vector<SupplyOptions>& supplies, std::uint32_t seed)
    : Line(std::make_unique<Pty>(), supplies, seed) {}

}  // namespace zps::simulator

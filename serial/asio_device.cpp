#define ASIO_STANDALONE
#ifdef __SANITIZE_THREAD__
// The thread sanitizer knows no fences. One thread runs the handlers, and the queue they come
// through is locked, so nothing here depends on them.
#define ASIO_DISABLE_FENCED_BLOCK
#endif
#include "serial/asio_device.h"

#include "serial/device.h"
#include "serial/event_loop.h"

#include <asio.hpp>

#include <array>
#include <atomic>
#include <future>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace zps::serial {

struct AsioDevice::Inside {
    Inside(const std::string& path, Devices::Received received);
    ~Inside();

    void Open(const std::string& path);
    void Read();
    void Write(std::span<const std::uint8_t> block);
    void LetWrittenBytesLeave();
    void Close();

    asio::io_context Context{1};
    asio::executor_work_guard<asio::io_context::executor_type> Present{Context.get_executor()};
    asio::serial_port Device{Context};  // after the constructor, the device's thread only
    std::array<std::uint8_t, 256> Chunk{};
    const Devices::Received Pass;
    std::atomic<bool> Lost = false;
    std::thread Thread;
};

AsioDevice::Inside::Inside(const std::string& path, Devices::Received received)
    : Pass(std::move(received)) {
    try {
        Open(path);
    } catch (const std::system_error& error) {
        // Asio's own category knows few of the conditions in std::errc, the system's knows all.
        if (error.code().category() != asio::system_category()) throw;
        throw std::system_error(error.code().value(), std::system_category());
    }
    Read();
    Thread = std::thread([this] { Context.run(); });
}

void AsioDevice::Inside::Open(const std::string& path) {
    using Option = asio::serial_port_base;
    Device.open(path);
    if (const auto taken = Claim(Device.native_handle())) throw std::system_error(taken);
    Device.set_option(Option::baud_rate(9600));
    Device.set_option(Option::character_size(8));
    Device.set_option(Option::parity(Option::parity::none));
    Device.set_option(Option::stop_bits(Option::stop_bits::one));
    Device.set_option(Option::flow_control(Option::flow_control::none));
}

AsioDevice::Inside::~Inside() {
    asio::post(Context, [this] {
        if (Device.is_open()) LetWrittenBytesLeave();
        Close();
    });
    Present.reset();
    Thread.join();
}

void AsioDevice::Inside::Read() {
    Device.async_read_some(asio::buffer(Chunk), [this](std::error_code error, std::size_t count) {
        if (error) return Close();
        Pass(std::span(Chunk).first(count));
        Read();
    });
}

// The block and the word that it is written outlive this call where the device doesn't take them.
void AsioDevice::Inside::Write(std::span<const std::uint8_t> block) {
    struct Writing {
        std::vector<std::uint8_t> Block;
        std::promise<void> Over;
    };
    const auto deadline = Clock::now() + LongestWrite;
    const auto writing = std::make_shared<Writing>();
    writing->Block.assign(block.begin(), block.end());
    const auto over = writing->Over.get_future();
    asio::post(Context, [this, writing] {
        asio::async_write(Device, asio::buffer(writing->Block),
                          [this, writing](std::error_code error, auto) {
                              if (error) Close();
                              writing->Over.set_value();
                          });
    });
    if (over.wait_until(deadline) == std::future_status::ready) return;
    Lost = true;
    asio::post(Context, [this] { Close(); });
}

void AsioDevice::Inside::LetWrittenBytesLeave() {
    const auto deadline = Clock::now() + LongestWrite;
    while (PendingOutput(Device.native_handle()) > 0 && Clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
}

// Ends what is under way on the device.
void AsioDevice::Inside::Close() {
    if (Device.is_open()) {
        Release(Device.native_handle());
        std::error_code ignored;
        Device.close(ignored);
    }
    Lost = true;
}

AsioDevice::AsioDevice(const std::string& path, Devices::Received received)
    : Self(std::make_unique<Inside>(path, std::move(received))) {}

AsioDevice::~AsioDevice() = default;

bool AsioDevice::IsLost() const {
    return Self->Lost;
}

void AsioDevice::Write(std::span<const std::uint8_t> block) {
    Self->Write(block);
}

}  // namespace zps::serial

// The master side of a pseudo-terminal in raw mode, without echo.
#pragma once

#include "simulator/line_end.h"

#include <memory>

namespace zps::simulator {

class Pty final : public LineEnd {
  public:
    // Throws std::system_error where the system has no means to wait.
    Pty();
    ~Pty() override;

    void Open() override;
    void Close() override;
    std::string Name() const override;
    void Wait(Time until) override;
    void Wake() override;
    std::size_t Read(std::span<std::uint8_t> room) override;
    void Write(ByteView bytes) override;
    void Fill(bool full) override;

  private:
    struct Inside;
    std::unique_ptr<Inside> Self;
};

}  // namespace zps::simulator

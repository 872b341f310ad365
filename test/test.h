// TEST, the link test window: sends single probes and shows every byte that comes back.
#pragma once

#include "power/port_window.h"
#include "test/monitor_reply.h"
#include "test/test_controls.h"

namespace zps {

class TEST : public PortWindow {
    Q_OBJECT

  public:
    // In brackets, for a test framework's macro of this name takes other arguments.
    (TEST)(SOURCE& source, POWER& power, const Surroundings& around);

    void Form_Load() override;

  protected:
    void EndExchange() override { ++ExchangeNumber; }
    void PortReturned(bool open) override;

  private:
    void txtPADDR_Change();
    void Probe(std::uint8_t controlCode);
    void comPOWER_OnComm();
    Bytes Gather();
    Stamp StampOf(std::size_t count, bool asked) const;
    void ShowPanels(std::span<const std::uint8_t> reply, Verdict verdict);
    void ShowLast();
    void ShowFields(const Bytes& reply);

    // Of the last reply.
    struct Heard {
        Stamp When;
        Verdict Judged = Verdict::Nothing;
        std::optional<std::array<std::uint8_t, 3>> Header;
    };

    TestControls Controls;
    Heard Last;
    Paced Display{[this] { ShowLast(); }};
    std::int16_t FormPort = 0;
    std::int16_t FormAddr = 0;
    serial::Clock::time_point SentAt;       // the last probe
    serial::Clock::time_point FirstByteAt;  // of the reply that is gathered
    unsigned ProbesOut = 0;
    unsigned ProbesJudged = 0;
    bool ProbeSilent = false;     // no byte has come since the last probe
    unsigned ExchangeNumber = 0;  // tells a handler that the window was closed while it waited
};

}  // namespace zps

// TEST, the link test window: sends single probes and shows every byte that comes back.
#pragma once

#include "power/port_window.h"
#include "test/test_controls.h"

namespace zps {

class TEST : public PortWindow {
    Q_OBJECT

  public:
    TEST(SOURCE& source, POWER& power, const Surroundings& around);

    void Form_Load() override;

  protected:
    void EndExchange() override { ++ExchangeNumber; }
    void PortReturned(bool open) override;

  private:
    void txtPADDR_Change();
    void Probe(std::uint8_t controlCode);
    void comPOWER_OnComm();
    void ShowHeader(const Bytes& reply);
    void ShowFields(const Bytes& reply);

    TestControls Controls;
    std::int16_t FormPort = 0;
    std::int16_t FormAddr = 0;
    unsigned ProbesOut = 0;
    unsigned ProbesJudged = 0;
    unsigned ExchangeNumber = 0;  // tells a handler that the window was closed while it waited
};

}  // namespace zps

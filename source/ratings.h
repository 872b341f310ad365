// Whose ratings the panel has, and everything that follows from them.
#pragma once

#include "source/value_format.h"

#include <cstdint>
#include <string>

namespace zps {

// The limits, scales and formatters, and the address and device that they belong to. This class
// alone writes them: whoever reads a supply's ratings, opens the port on a device or changes the
// port tells it here.
class Ratings : private ValueFormat {
  public:
    static constexpr std::int16_t NoAddress = 99;

    float MaxVolt() const { return ValueFormat::MaxVolt; }  // V; 0 before any have been read
    float MaxCurr() const { return ValueFormat::MaxCurr; }  // A
    float MaxOvp() const { return ValueFormat::MaxOvp; }    // V
    std::int32_t VoltScale() const { return ValueFormat::VoltScale; }  // counts per volt
    std::int32_t CurrScale() const { return ValueFormat::CurrScale; }  // counts per ampere
    int VoltDecimalsFine() const { return ValueFormat::VoltDecimalsFine; }
    int CurrDecimalsFine() const { return ValueFormat::CurrDecimalsFine; }
    using ValueFormat::FormatCurr;
    using ValueFormat::FormatCurrFine;
    using ValueFormat::FormatVolt;
    using ValueFormat::FormatVoltFine;
    using ValueFormat::SetMaxCurr;
    using ValueFormat::SetMaxVolt;

    // The address whose ratings were last read; NoAddress where they are nobody's.
    std::int16_t CheckedAddr() const { return Checked; }
    // Whether they are those of the supply at `address`. Else its scale is unknown: no value may go
    // to it and none that it reports may be shown.
    bool KnownAt(std::int16_t address) const { return MaxVolt() > 0 && Checked == address; }

    // The ratings that are set next are those of the supply at `address` behind `device`.
    void ReadFrom(std::int16_t address, const std::string& device) {
        Checked = address;
        RatedDevice = device;
    }
    // Another supply may stand behind the port.
    void Forget() { Checked = NoAddress; }
    // The port has been opened on `device`; another one than the ratings were read through may lead
    // to another supply.
    void PortOpenedOn(const std::string& device) {
        if (device != RatedDevice) Forget();
    }
    // The scales before any ratings have been read.
    void SetStartScales() {
        ValueFormat::VoltScale = 100;
        ValueFormat::CurrScale = 10000;
    }

  private:
    std::int16_t Checked = NoAddress;
    std::string RatedDevice;
};

}  // namespace zps

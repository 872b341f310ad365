// What a supply answers, and what each command changes.
#include "simulator/supply.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace zps::simulator {

namespace {

constexpr double MaxRating = 6000;
constexpr int MaxCount = 0xFFFF;

int Word(ByteView data, std::size_t at = 0) {
    return data[at] * 256 + data[at + 1];
}

// `value` as an unsigned number of `size` bytes, high byte first.
void Append(Bytes& bytes, double value, int size) {
    const long count = std::lround(value);
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>((count >> shift) & 0xFF));
}

void CheckRange(bool inRange, const char* what) {
    if (!inRange) throw std::invalid_argument(what);
}

bool IsRating(double value) {
    return value > 0 && value <= MaxRating;
}

// Wire counts per volt or ampere of a supply whose rating is `rated`.
int ScaleOf(double rated) {
    if (rated <= 2) return 10000;
    if (rated <= 20) return 1000;
    if (rated <= 200) return 100;
    return 10;
}

}  // namespace

Supply::Supply(const SupplyOptions& options) {
    CheckRange(options.Address >= 0 && options.Address <= 255, "an address is 0 to 255");
    CheckRange(IsRating(options.Volts), "rated volts are above 0, up to 6000");
    CheckRange(IsRating(options.Amps), "rated amperes are above 0, up to 6000");
    CheckRange(options.LoadOhms > 0, "a load is above 0 ohms");
    Now.Options = options;
    Now.VoltScale = ScaleOf(options.Volts);
    Now.CurrScale = ScaleOf(options.Amps);

    StepValues step;
    step.CurrRaw = static_cast<std::uint16_t>(std::lround(options.Amps * Now.CurrScale));
    step.OvpRaw =
        static_cast<std::uint16_t>(std::lround(options.Volts * HeadroomShare * Now.VoltScale));
    step.Amps = static_cast<double>(step.CurrRaw) / Now.CurrScale;
    step.OvpVolts = static_cast<double>(step.OvpRaw) / Now.VoltScale;
    Now.Steps.fill(step);
}

std::optional<Bytes> Supply::Answer(const Frame& frame, Time now) {
    if (frame.Kind == FrameKind::Noise || frame.Content[0] != Address()) return std::nullopt;
    Advance(now);
    if (frame.Kind == FrameKind::Control && frame.Content[1] == Dle) return DataReply();
    const bool done = CarryOut(frame);
    FollowSettings();
    return ShortReply(done ? Ack : Nak);
}

Bytes Supply::ShortReply(std::uint8_t code) const {
    const auto address = static_cast<std::uint8_t>(Address());
    return {address, code, SumOf(Bytes{address, code})};
}

Bytes Supply::DataReply() const {
    constexpr std::uint8_t length = 9;
    Bytes reply{static_cast<std::uint8_t>(Address()), Stx, length, StatusBits(),
                static_cast<std::uint8_t>(Now.Code)};
    if (Now.Output) {
        Append(reply, Now.Out.Volts * 10 * Now.VoltScale, 3);
        Append(reply, Now.Out.Amps * 10 * Now.CurrScale, 3);
    } else {
        const StepValues& step = Now.Steps[static_cast<std::size_t>(Now.SelectedStep)];
        Append(reply, Now.Options.Volts * 10, 2);
        Append(reply, std::min(step.OvpVolts * 10, static_cast<double>(MaxCount)), 2);
        Append(reply, Now.Options.Amps * 10, 2);
    }
    reply.push_back(static_cast<std::uint8_t>(Now.ActiveStep));
    reply.push_back(Etx);
    reply.push_back(SumOf(reply));
    return reply;
}

std::uint8_t Supply::StatusBits() const {
    const std::array bits{Now.Fault,
                          Now.Sensing,
                          Now.Output,
                          Now.Auto,
                          Now.Out.ConstantCurrent,
                          Now.OverCurrentProtection,
                          Now.Remote,
                          Now.Remote};
    unsigned status = 0;
    for (std::size_t bit = 0; bit < bits.size(); ++bit) status |= unsigned{bits[bit]} << bit;
    return static_cast<std::uint8_t>(status);
}

bool Supply::CarryOut(const Frame& frame) {
    if (frame.Kind == FrameKind::Broken) return false;
    if (frame.Kind == FrameKind::Control) {
        if (frame.Content[1] != Enq) Now.Remote = frame.Content[1] == Dc3;
        return true;
    }
    const ByteView content = frame.Content;
    const auto commands = ParseCommands(content.subspan(3, content[2]));
    if (!commands || !Now.Remote) return false;
    for (const Command& command : *commands) Apply(command);
    return true;
}

void Supply::Apply(const Command& command) {
    const auto on = [&] { return command.Data[0] == 1; };
    switch (command.Letter) {
        case 'A':
            SwitchOutput(on());
            break;
        case 'B':
            Now.Sequence = command.Data;
            Run.Stop();
            break;
        case 'F':
            Now.Count = Word(command.Data);
            break;
        case 'G':
            Now.Auto = on();
            break;
        case 'R':
            Now.Fault = false;
            Now.Code = 0;
            break;
        case 'S':
            Now.SelectedStep = command.Data[0];
            break;
        case 'W':
            Now.Sensing = on();
            break;
        case 'X':
            Now.OverCurrentProtection = on();
            break;
        default:
            SetValue(Now.Steps[static_cast<std::size_t>(Now.SelectedStep)], command);
    }
}

void Supply::SetValue(StepValues& step, const Command& command) const {
    using std::chrono::microseconds;
    using std::chrono::milliseconds;
    using std::chrono::seconds;
    const Bytes& data = command.Data;
    const int word = Word(data);
    const auto raw = static_cast<std::uint16_t>(word);
    switch (command.Letter) {
        case 'V':
            step.VoltRaw = raw;
            step.Volts = static_cast<double>(word) / Now.VoltScale;
            break;
        case 'C':
            step.CurrRaw = raw;
            step.Amps = static_cast<double>(word) / Now.CurrScale;
            break;
        case 'O':
            step.OvpRaw = raw;
            step.OvpVolts = static_cast<double>(word) / Now.VoltScale;
            break;
        case 'T':
            std::copy_n(data.begin(), step.TimeRaw.size(), step.TimeRaw.begin());
            step.StepTime =
                seconds(word) + milliseconds(Word(data, 2)) + microseconds(data[4] * 10);
            break;
        case 'D':
            std::copy_n(data.begin(), step.SlopeRaw.size(), step.SlopeRaw.begin());
            step.Slope = milliseconds(word) + microseconds(data[2] * 10);
            break;
        default:
            throw std::logic_error("a command without a meaning");
    }
}

}  // namespace zps::simulator

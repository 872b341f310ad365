#include "simulator/options.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zps::simulator {

namespace {

constexpr double LeastRating = 0.1;  // the data reply tells ratings in tenths
constexpr double MostRating = 6000;
constexpr double MostOhms = 1e9;

constexpr std::string_view Help =
    R"(zps-simulator - programmable power supplies on a simulated serial line

Usage: zps-simulator [options]

Opens a pseudo-terminal on which the supplies answer at 9600 baud, prints its name, and makes the
link COMn by which the control panel finds it. Runs until "quit", Ctrl+C or SIGTERM.

Supplies:
  --supply A:VV/AA   a supply with address A (1 to 255) rated VV volts and AA amperes, each 0.1 to
                     6000, for example 7:20V/5A. May be given several times.
                     Without it: 1:150V/10A
  --load OHMS        the resistance on every output (100)
  --port N           make the link COMN, N from 1 to 4 (1)

Faults; a rate is the share of the replies, 0 to 1:
  --drop RATE        the reply is lost
  --garble RATE      one byte of it is changed
  --split RATE       it comes in two pieces with 30 ms between
  --duplicate RATE   it comes twice
  --delay MS         every reply comes this much later, 0 to 60000
  --silent           start silent: nothing is heard or answered

  --help             show this text

Commands on standard input, one a line:
  silent | back            stop hearing and answering, begin again
  drop RATE, garble RATE, split RATE, duplicate RATE, delay MS
                           change a fault
  trip ADDRESS CODE        switch that output off with an error code:
                             1 output voltage while off    5 set over-voltage
                             3 maximum over-voltage        6 set over-current
                             4 maximum over-current        7 output current while off
  load ADDRESS OHMS        change the load
  unplug | plug            pull the adapter, plug it in again
  state                    show every supply
  help                     show this text
  quit                     end
)";

[[noreturn]] void Refuse(std::string_view what, std::string_view text) {
    throw UsageError(std::string(what) + " is not right: '" + std::string(text) + "'");
}

std::string BoundsText(std::string_view what, double least, double most) {
    const auto text = [](double value) {
        std::array<char, 32> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        return std::string(digits.data(), end);
    };
    return std::string(what) + " (" + text(least) + " to " + text(most) + ")";
}

// Takes the text before `mark` off the front, with the mark.
std::string_view TakeUntil(std::string_view& text, std::string_view mark, std::string_view whole) {
    const auto at = text.find(mark);
    if (at == std::string_view::npos) Refuse("a supply (such as 1:150V/10A)", whole);
    const auto front = text.substr(0, at);
    text.remove_prefix(at + mark.size());
    return front;
}

SupplyOptions ParseSupply(std::string_view whole) {
    std::string_view rest = whole;
    SupplyOptions options;
    options.Address = ParseWhole(TakeUntil(rest, ":", whole), 1, 255, "the address of a supply");
    options.Volts = ParseNumber(TakeUntil(rest, "V/", whole), LeastRating, MostRating, "the volts");
    options.Amps = ParseNumber(TakeUntil(rest, "A", whole), LeastRating, MostRating, "the amperes");
    if (!rest.empty()) Refuse("a supply (such as 1:150V/10A)", whole);
    return options;
}

void AddSupply(std::vector<SupplyOptions>& supplies, std::string_view text) {
    const SupplyOptions supply = ParseSupply(text);
    if (std::ranges::find(supplies, supply.Address, &SupplyOptions::Address) != supplies.end())
        throw UsageError("two supplies have the address " + std::to_string(supply.Address));
    supplies.push_back(supply);
}

// The words that have not been read yet.
class Words {
  public:
    explicit Words(std::span<const std::string> words) : Rest(words) {}
    bool Empty() const { return Rest.empty(); }
    std::string_view Take() {
        const std::string_view word = Rest.front();
        Rest = Rest.subspan(1);
        return word;
    }
    std::string_view TakeValueOf(std::string_view option) {
        if (Empty()) throw UsageError(std::string(option) + " needs a value");
        return Take();
    }

  private:
    std::span<const std::string> Rest;
};

}  // namespace

double ParseNumber(std::string_view text, double least, double most, std::string_view what) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || !(value >= least && value <= most))
        Refuse(BoundsText(what, least, most), text);
    return value;
}

int ParseWhole(std::string_view text, int least, int most, std::string_view what) {
    const double value = ParseNumber(text, least, most, what);
    const int whole = static_cast<int>(value);
    if (whole != value) Refuse(BoundsText(what, least, most), text);
    return whole;
}

bool SetFault(Faults& faults, std::string_view name, std::string_view value) {
    struct Rate {
        std::string_view Name;
        double Faults::*Share;
    };
    static constexpr std::array rates{Rate{"drop", &Faults::Drop}, Rate{"garble", &Faults::Garble},
                                      Rate{"split", &Faults::Split},
                                      Rate{"duplicate", &Faults::Duplicate}};
    if (name == "delay") {
        faults.Delay = std::chrono::milliseconds(ParseWhole(value, 0, 60000, "the delay in ms"));
        return true;
    }
    const auto* rate = std::ranges::find(rates, name, &Rate::Name);
    if (rate == rates.end()) return false;
    faults.*(rate->Share) = ParseNumber(value, 0, 1, "the rate of " + std::string(name));
    return true;
}

ProgramOptions ParseOptions(std::span<const std::string> words) {
    ProgramOptions options;
    double ohms = SupplyOptions{}.LoadOhms;
    for (Words rest(words); !rest.Empty();) {
        const std::string_view word = rest.Take();
        if (word == "--help") {
            options.Help = true;
        } else if (word == "--silent") {
            options.LineFaults.Silent = true;
        } else if (word == "--supply") {
            AddSupply(options.Supplies, rest.TakeValueOf(word));
        } else if (word == "--load") {
            ohms = ParseNumber(rest.TakeValueOf(word), 1e-3, MostOhms, "the load in ohms");
        } else if (word == "--port") {
            options.Port = ParseWhole(rest.TakeValueOf(word), 1, 4, "the port");
        } else if (!word.starts_with("--") || rest.Empty() ||
                   !SetFault(options.LineFaults, word.substr(2), rest.Take())) {
            throw UsageError("unknown or incomplete: '" + std::string(word) + "'");
        }
    }
    if (options.Supplies.empty()) options.Supplies.emplace_back();
    for (SupplyOptions& supply : options.Supplies) supply.LoadOhms = ohms;
    return options;
}

std::string_view HelpText() {
    return Help;
}

}  // namespace zps::simulator

#include "simulator/options.h"

#include "simulator/fault_text.h"
#include "simulator/typed.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace zps::simulator {

namespace {

constexpr double LeastRating = 0.1;  // the data reply tells ratings in tenths
constexpr double MostRating = 6000;
constexpr double MostOhms = 1e9;
constexpr int MostSeed = std::numeric_limits<int>::max();

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

  --seed N           what the faults draw their numbers from, 0 to 2147483647. Without it another
                     one each time; the line "again" tells how to repeat a run

Faults, each --NAME FIGURE[,WHEN]...; the figure is what is named here, RATE being the share of the
frames from the panel that the fault strikes, 0 to 1. Without RATE it strikes all of them. 0
switches a fault off.
 A frame on its way to the supplies:
  --silent RATE      nobody hears it or answers
  --damage RATE      one byte of it is changed
  --nak RATE         it is refused with NAK and not carried out
  --other RATE       another supply, of 20 V and 5 A, hears and answers it in place of the one asked
  --overlay RATE     such a supply answers at the same time: bits are 1 where both replies have a 1
 The bytes of its reply:
  --replay N         the reply that came N replies before takes its place, 1 to 100
  --address A        it bears the address A, 1 to 255
  --lose RATE        one byte is lost
  --insert RATE      a stray byte comes in between
  --garble RATE      one byte is changed
  --baud BAUD        it is sent at 300 to 115200 baud, and read at 9600
  --before N         N stray bytes come ahead of it, 1 to 1000
  --after N          N stray bytes come right behind it
 When it comes:
  --drop RATE        not at all
  --split RATE       in two halves with pause=30 between
  --duplicate RATE   twice, with pause=0 between
  --between N        with N stray bytes behind it after pause=100, when it has been read
  --delay MS         this much later, 1 to 60000
  --jitter MS        up to this much later, each time another delay
  --gap MS           byte by byte, with this much between two
  --late RATE        only ahead of the reply to the next frame
 The line:
  --deaf             nothing is read: the line is full, and what the panel writes has to wait
  --flood RATE       this many stray bytes come unasked in each second, 1 to 100000

WHEN, of which all must hold, for example --garble 0.3,on=DLE,from=2,until=10
  rate=RATE          at that share of the frames, for a fault whose figure is something else
  on=CODE            only frames with a command of that letter (on=V), or with that control code:
                     ENQ, DLE, DC1, DC3, or STX for all commands
  nth=N              only the N-th of these frames, counted from when the fault was ordered
  from=S, until=S    only from or until so many seconds after it was ordered; of a deaf line and
                     a flood there are only these (--deaf 1,from=2)
  pause=MS           another pause of the faults that have one, 0 to 60000
  byte=B             all stray bytes are B, 0 to 255; without it they are random

A pseudo-terminal carries bytes and no levels. Parity, framing and overrun errors and a break can't
be shown on it, nor a modem line that changes.

  --help             show this text

Commands on standard input, one a line:
  NAME FIGURE[,WHEN]...    order a fault as above, without the dashes: garble 0.3,on=DLE
  NAME 0                   switch it off
  healthy                  switch all faults off
  faults                   show which are ordered and how many frames they have struck
  silent | back            stop hearing and answering, begin again
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

// Takes the text before `mark` off the front, with the mark.
std::string_view TakePart(std::string_view& text, std::string_view mark, std::string_view whole) {
    const auto at = text.find(mark);
    if (at == std::string_view::npos) RefuseWord("a supply (such as 1:150V/10A)", whole);
    const auto front = text.substr(0, at);
    text.remove_prefix(at + mark.size());
    return front;
}

SupplyOptions ParseSupply(std::string_view whole) {
    std::string_view rest = whole;
    SupplyOptions options;
    options.Address = ParseWhole(TakePart(rest, ":", whole), 1, 255, "the address of a supply");
    options.Volts = ParseNumber(TakePart(rest, "V/", whole), LeastRating, MostRating, "the volts");
    options.Amps = ParseNumber(TakePart(rest, "A", whole), LeastRating, MostRating, "the amperes");
    if (!rest.empty()) RefuseWord("a supply (such as 1:150V/10A)", whole);
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
    // Empty if there is none, or the next word is an option.
    std::string_view TakeUnlessOption() {
        return Empty() || Rest.front().starts_with("--") ? std::string_view() : Take();
    }

  private:
    std::span<const std::string> Rest;
};

// Takes the order of a fault, whose name is `option` without its dashes.
void AddFault(std::vector<Fault>& faults, std::string_view option, Words& rest) {
    const FaultRule* const rule = option.starts_with("--") ? FindRule(option.substr(2)) : nullptr;
    if (rule == nullptr) throw UsageError("unknown: '" + std::string(option) + "'");
    std::erase_if(faults, [rule](const Fault& fault) { return fault.Kind == rule->Kind; });
    if (const auto fault = ParseFault(*rule, rest.TakeUnlessOption())) faults.push_back(*fault);
}

}  // namespace

ProgramOptions ParseOptions(std::span<const std::string> words) {
    ProgramOptions options;
    double ohms = SupplyOptions{}.LoadOhms;
    for (Words rest(words); !rest.Empty();) {
        const std::string_view word = rest.Take();
        if (word == "--help") {
            options.Help = true;
        } else if (word == "--supply") {
            AddSupply(options.Supplies, rest.TakeValueOf(word));
        } else if (word == "--load") {
            ohms = ParseNumber(rest.TakeValueOf(word), 1e-3, MostOhms, "the load in ohms");
        } else if (word == "--port") {
            options.Port = ParseWhole(rest.TakeValueOf(word), 1, 4, "the port");
        } else if (word == "--seed") {
            options.Seed = static_cast<std::uint32_t>(
                ParseWhole(rest.TakeValueOf(word), 0, MostSeed, "the seed"));
        } else {
            AddFault(options.LineFaults, word, rest);
        }
    }
    if (options.Supplies.empty()) options.Supplies.emplace_back();
    for (SupplyOptions& supply : options.Supplies) supply.LoadOhms = ohms;
    return options;
}

std::string RepeatText(std::span<const std::string> words, std::uint32_t seed) {
    std::string text = "zps-simulator";
    for (const std::string& word : words) text += ' ' + word;
    const bool isSaid = std::ranges::find(words, "--seed") != words.end();
    return isSaid ? text : text + " --seed " + std::to_string(seed);
}

std::string_view HelpText() {
    return Help;
}

}  // namespace zps::simulator

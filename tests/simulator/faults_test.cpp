#include "simulator/fault_text.h"
#include "simulator/options.h"
#include "simulator/traffic.h"
#include "simulator/typed.h"
#include "tests/support/frames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace zps::simulator::tests {
namespace {

using namespace std::chrono_literals;
using namespace zps::tests;
using Pieces = std::vector<Piece>;

const Bytes Probe = Control(1, Enq), Poll = Control(1, Dle), Set = Framed(1, {Esc, 'V', 0, 5});
const Bytes Acknowledged{1, Ack, 7}, Refused{1, Nak, 22};
// What a supply of 150 V and 10 A says of itself in remote, and one of 20 V and 5 A in local.
const Bytes Data = Summed({1, 2, 9, 0xC0, 0, 0x05, 0xDC, 0x06, 0x63, 0, 0x64, 0, 3});
const Bytes OtherData = Summed({1, 2, 9, 0, 0, 0, 0xC8, 0, 0xDA, 0, 0x32, 0, 3});

Bytes ContentOf(const Pieces& pieces) {
    Bytes all;
    for (const Piece& piece : pieces) all = Joined({all, piece.Content});
    return all;
}

// A line with a clock of the test's own.
struct Bed {
    explicit Bed(std::uint32_t seed = 1) : Line(std::vector<SupplyOptions>(1), seed) {
        Ask(Control(1, Dc3));
    }
    // "NAME FIGURE,..." as a person types it.
    void Order(std::string_view text) {
        const FaultRule& rule = *FindRule(TakeUntil(text, ' '));
        Line.Orders().Order(ParseFault(rule, text).value(), Now);
    }
    // What comes within a second after `frame` was sent, at times since then.
    Pieces Ask(const Bytes& frame) { return Line.Take(frame, Now), Run(1s); }
    Bytes Reply(const Bytes& frame) { return ContentOf(Ask(frame)); }
    Pieces Run(Clock::duration time) {
        const Time begun = Now;
        Pieces all;
        for (bool over = false; !over;) {
            for (Piece& piece : Line.Come(Now))
                all.push_back({Time(piece.LeavesAt - begun), std::move(piece.Content)});
            over = Now == begun + time;
            Now = std::min(Line.NextEvent(Now), begun + time);
        }
        return all;
    }

    Time Now{1h};
    Traffic Line;
};

// Every byte of the poll and its reply takes its time on the line.
Piece At(std::size_t count, Clock::duration later, const Bytes& content) {
    return {Time(LineTime(Poll.size() + count) + later), content};
}

TEST(Fault, ChangesTheBytesOfAReplyAndTheirTimesAsItSays) {
    const std::size_t all = Data.size();
    const Bytes front(Data.begin(), Data.begin() + 7), back(Data.begin() + 7, Data.end());
    const Bytes stray{238, 238};
    Bytes fromSeven{7};
    fromSeven.insert(fromSeven.end(), Data.begin() + 1, Data.end() - 1);
    Bytes overlaid = Data;
    for (std::size_t at = 0; at < all; ++at) overlaid[at] &= OtherData[at];
    Pieces single;
    for (std::size_t at = 0; at < all; ++at) single.push_back(At(at + 1, at * 20ms, {Data[at]}));

    const struct {
        const char* Order;
        Pieces Expected;
    } cases[]{
        {"silent", {}},
        {"nak", {At(3, 0ms, Refused)}},
        {"other", {At(all, 0ms, OtherData)}},
        {"overlay", {At(all, 0ms, overlaid)}},
        {"replay 1", {At(3, 0ms, Acknowledged)}},
        {"replay 2", {At(all, 0ms, Data)}},  // nothing is that old yet
        {"address 7", {At(all, 0ms, Summed(fromSeven))}},
        {"baud 9600", {At(all, 0ms, Data)}},
        {"before 2,byte=238", {At(all + 2, 0ms, Joined({stray, Data}))}},
        {"after 2,byte=238", {At(all + 2, 0ms, Joined({Data, stray}))}},
        {"drop", {}},
        {"split", {At(all, 0ms, front), At(all, 30ms, back)}},
        {"split 1,pause=5", {At(all, 0ms, front), At(all, 5ms, back)}},
        {"duplicate", {At(all, 0ms, Data), At(all, LineTime(all), Data)}},
        {"between 2,byte=238", {At(all, 0ms, Data), At(all, 100ms, stray)}},
        {"delay 50", {At(all, 50ms, Data)}},
        {"gap 20", single},
        {"late", {}},
    };
    for (const auto& [order, expected] : cases) {
        Bed bed;
        bed.Order(order);
        EXPECT_EQ(bed.Ask(Poll), expected) << order;
    }
}

// Whether `part` is what remains of `whole` when some bytes are taken out.
bool IsLeftOf(const Bytes& whole, const Bytes& part) {
    auto next = part.begin();
    for (const std::uint8_t byte : whole) next += next != part.end() && *next == byte ? 1 : 0;
    return next == part.end();
}

TEST(Fault, ChangesOneByteAnywhereInAReplyOrACommand) {
    for (const auto& [order, more] : {std::pair{"lose", -1}, {"insert", 1}, {"garble", 0}}) {
        Bed bed;
        bed.Order(order);
        std::set<Bytes> seen;
        for (int time = 0; time < 100; ++time) {
            const Bytes reply = bed.Reply(Poll);
            ASSERT_EQ(reply.size(), Data.size() + static_cast<std::size_t>(more)) << order;
            const auto changed = std::ranges::mismatch(reply, Data);
            EXPECT_TRUE(more != 0 ? IsLeftOf(Data, reply) || IsLeftOf(reply, Data)
                                  : std::equal(changed.in1 + 1, reply.end(), changed.in2 + 1));
            seen.insert(reply);
        }
        EXPECT_GT(seen.size(), 10U) << order;
    }
    Bed bed;
    bed.Order("damage");
    std::set<Bytes> answers;
    for (int time = 0; time < 200; ++time) answers.insert(bed.Reply(Set));
    EXPECT_EQ(answers, (std::set<Bytes>{{}, Refused}));
    EXPECT_EQ(bed.Line.SupplyAt(1).State().Steps[0].VoltRaw, 0);
    EXPECT_EQ(bed.Line.TakeReceived().back().Content, Set);  // what the panel did send
}

TEST(Fault, CarriesAReplyIntoTheNextExchangeOrBringsItAtRandomTimes) {
    Bed bed;
    bed.Order("late 1,nth=1");
    EXPECT_EQ(bed.Reply(Poll), Bytes{});
    EXPECT_EQ(bed.Reply(Probe), Joined({Data, Acknowledged}));
    bed.Line.Orders().StopAll();
    bed.Order("jitter 100");
    std::set<Time> times;
    for (int time = 0; time < 100; ++time) times.insert(bed.Ask(Poll).at(0).LeavesAt);
    EXPECT_GT(times.size(), 90U);
    EXPECT_LT(*times.begin(), At(Data.size(), 10ms, {}).LeavesAt);
    EXPECT_GT(*times.rbegin(), At(Data.size(), 90ms, {}).LeavesAt);
    EXPECT_LE(*times.rbegin(), At(Data.size(), 100ms, {}).LeavesAt);
}

// The other supply carries out what it hears, the one that was asked does not hear it; two on one
// address both do.
TEST(Fault, LetsAnotherSupplyTakeTheCommand) {
    for (const bool both : {false, true}) {
        Bed bed;
        bed.Order(both ? "overlay" : "other");
        EXPECT_EQ(bed.Reply(Set), both ? Bytes({1, Ack & Nak, 7 & 22}) : Refused);
        bed.Reply(Control(1, Dc3));
        EXPECT_EQ(bed.Reply(Set), Acknowledged);
        EXPECT_EQ(bed.Line.SupplyAt(1).State().Steps[0].VoltRaw, both ? 5 : 0);
    }
}

TEST(Fault, ReadsAnotherBaudRateAsAReceiverDoes) {
    for (const int close : {9400, 9600, 9800}) EXPECT_EQ(ReadAtWrongBaud(Data, close), Data);
    EXPECT_EQ(ReadAtWrongBaud(Bytes{1}, 4800), (Bytes{6, 128}));  // every bit twice
    EXPECT_EQ(ReadAtWrongBaud(Bytes{1}, 19200), Bytes{0xF8});     // every second bit
    EXPECT_GT(ReadAtWrongBaud(Data, 300).size(), 100U);
    EXPECT_LT(ReadAtWrongBaud(Data, 115200).size(), 5U);
}

TEST(Fault, FloodsTheLineOrLeavesItFullForATime) {
    Bed bed;
    bed.Order("flood 100000,from=1,until=2,byte=255");
    bed.Order("deaf 1,from=0.5,until=2.5");
    EXPECT_EQ(bed.Run(1s), Pieces());
    const Pieces flood = bed.Run(2s);
    EXPECT_EQ(ContentOf(flood), Bytes(100'000, 255));
    EXPECT_LE(flood.front().LeavesAt, Time(5ms));
    EXPECT_EQ(flood.back().LeavesAt, Time(1s));
    for (const auto& [later, deaf] : {std::pair{0ms, false}, {500ms, true}, {2499ms, true}})
        EXPECT_EQ(bed.Line.IsDeaf(Time(1h + 1s + later)), deaf) << later.count();
    EXPECT_EQ(bed.Line.NextEvent(Time(1h + 3s)), Time(1h + 3500ms));
    EXPECT_FALSE(bed.Line.IsDeaf(Time(1h + 3500ms)));
}

// Frames leave a second apart, the first as soon as the fault is ordered.
TEST(Trigger, ChoosesTheFramesThatAreStruck) {
    const std::vector<Bytes> sent{
        Probe, Poll, Set, Poll, Framed(1, {Esc, 'S', 1, Esc, 'V', 0, 5}), Control(1, Dc3)};
    const std::pair<const char*, std::vector<bool>> cases[]{
        {"drop", {1, 1, 1, 1, 1, 1}},
        {"drop 1,nth=3", {0, 0, 1, 0, 0, 0}},
        {"drop 1,on=DLE", {0, 1, 0, 1, 0, 0}},
        {"drop 1,on=V", {0, 0, 1, 0, 1, 0}},
        {"drop 1,on=S", {0, 0, 0, 0, 1, 0}},
        {"drop 1,on=STX,nth=2", {0, 0, 0, 0, 1, 0}},
        {"drop 1,on=DC3", {0, 0, 0, 0, 0, 1}},
        {"drop 1,from=1,until=2.999", {0, 1, 1, 0, 0, 0}},
        {"drop 1,from=2.001,on=DLE,nth=1", {0, 0, 0, 1, 0, 0}},
    };
    for (const auto& [order, expected] : cases) {
        Bed bed;
        bed.Order(order);
        std::vector<bool> struck;
        for (const Bytes& frame : sent) struck.push_back(bed.Reply(frame).empty());
        EXPECT_EQ(struck, expected) << order;
        EXPECT_EQ(bed.Line.Orders().Struck(FaultKind::Drop),
                  static_cast<std::size_t>(std::ranges::count(expected, true)));
    }
    Bed bed;
    bed.Order("drop 0.3");
    for (int time = 0; time < 10'000; ++time) bed.Reply(Probe);
    EXPECT_NEAR(static_cast<double>(bed.Line.Orders().Struck(FaultKind::Drop)), 3000, 200);
}

// The amount that makes a fault heard, or none.
Fault Sample(const FaultRule& rule) {
    return {.Kind = rule.Kind, .Amount = rule.HasAmount() ? std::max(rule.Least, 2) : 0};
}

TEST(Faults, AreTheSameForTheSameSeedWhateverElseIsOrdered) {
    const auto run = [](std::uint32_t seed, bool more) {
        Bed bed(seed);
        for (const char* order : {"drop 0.2", "garble 0.5", "jitter 40", "before 3,rate=0.3"})
            bed.Order(order);
        if (more) bed.Order("address 9,rate=0.4"), bed.Order("split 0.5");
        std::vector<std::pair<std::size_t, Time>> came;
        for (int time = 0; time < 200; ++time)
            for (const Bytes& frame : {Poll, Set})
                if (const auto pieces = bed.Ask(frame); !pieces.empty())
                    came.emplace_back(ContentOf(pieces).size(), pieces[0].LeavesAt);
        return came;
    };
    EXPECT_EQ(run(5, false), run(5, false));
    EXPECT_EQ(run(5, false), run(5, true));
    EXPECT_NE(run(5, false), run(6, false));
}

TEST(Faults, LeaveAHealthyLineWhenTheyAreSwitchedOff) {
    for (const FaultRule& rule : FaultRules()) {
        Bed bed;
        bed.Ask(Probe);
        bed.Line.Orders().Order(Sample(rule), bed.Now);
        EXPECT_TRUE(bed.Line.IsDeaf(bed.Now) || bed.Ask(Poll) != Pieces{At(14, 0ms, Data)})
            << rule.Name;
        bed.Line.Orders().Stop(rule.Kind);
        bed.Ask(Control(1, Dc3));  // brings what was late
        EXPECT_EQ(bed.Ask(Poll), (Pieces{At(14, 0ms, Data)})) << rule.Name;
    }
}

TEST(FaultText, SaysAFaultAsItIsOrdered) {
    for (const std::string text :
         {"drop 0.25,on=V,nth=3", "replay 4,rate=0.5,from=1.5,until=20", "split 1,pause=5",
          "flood 960,byte=0", "garble 1,on=DLE", "silent 1", "deaf 1,until=0.001"}) {
        std::string_view figure = text;
        const FaultRule& rule = *FindRule(TakeUntil(figure, ' '));
        EXPECT_EQ(FaultText(ParseFault(rule, figure).value()), text);
        EXPECT_FALSE(ParseFault(rule, "0"));
    }
    for (const auto& [name, figure] : {std::pair{"drop", "1.1"},
                                       {"drop", "1,on=v"},
                                       {"drop", "1,nth=0"},
                                       {"drop", "1,when=3"},
                                       {"drop", "1,byte=3"},
                                       {"drop", "1,pause=3"},
                                       {"delay", ""},
                                       {"delay", "1.5"},
                                       {"delay", "60001"},
                                       {"flood", "9,on=V"},
                                       {"deaf", "0.5"},
                                       {"flood", "9,nth=1"},
                                       {"drop", "1,from=2,until=1"},
                                       {"split", "1,pause=60001"},
                                       {"garble", "nan"}})
        EXPECT_THROW(ParseFault(*FindRule(name), figure), UsageError) << name << figure;
    for (const FaultRule& rule : FaultRules())
        EXPECT_NE(HelpText().find("\n  --" + std::string(rule.Name) + ' '), std::string::npos)
            << rule.Name;
}

}  // namespace
}  // namespace zps::simulator::tests

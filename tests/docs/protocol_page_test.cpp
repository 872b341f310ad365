// Keeps the worked bytes of docs/protocol.md true; the page tells how they are written.
#include "simulator/supply.h"
#include "source/reply.h"
#include "source/step_frame.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>

namespace zps {
namespace {

// The frame that the panel builds for a name and its values, such as "V 12.34".
Frame Build(const std::string& text) {
    static const std::map<std::string, std::uint8_t> controls{
        {"ENQ", code::Enq}, {"DLE", code::Dle}, {"DC1", code::Dc1}, {"DC3", code::Dc3}};
    std::istringstream words(text);
    std::vector<std::string> w(std::istream_iterator<std::string>(words), {});
    const std::string name = w.at(0), value = w.size() > 1 ? w[1] : "";
    const auto number = [&](std::size_t word) { return std::stod(w.at(word)); };
    const int n = std::atoi(value.c_str());
    if (controls.contains(name)) return ControlFrame(1, controls.at(name));
    if (name == "INIT") return InitialisationFrame(1);
    if (name == "STEP" && w.size() == 7) {
        return UploadFrame(
            1, n,
            {SetPointBytes(number(2), 100), SetPointBytes(number(3), 1000), TimeBytes(number(4)),
             SlopeBytes(number(5)), SetPointBytes(number(6), 100)});
    }
    if (name == "T") return ValueFrame(1, StepValue::Time, TimeBytes(number(1)));
    if (name == "D") return ValueFrame(1, StepValue::Slope, SlopeBytes(number(1)));
    if (name == "O") return ValueFrame(1, StepValue::Ovp, SetPointBytes(number(1), 100));
    if (name == "V") return ValueFrame(1, StepValue::Volt, SetPointBytes(number(1), 100));
    if (name == "C") return ValueFrame(1, StepValue::Curr, SetPointBytes(number(1), 1000));
    if (name == "SV")
        return SelectingValueFrame(1, n, StepValue::Volt, SetPointBytes(number(2), 100));
    if (name == "S") return SelectStepFrame(1, n);
    if (name != "B" && name != "F" && name != "R") return SingleCommand(1, name[0], {n});
    FrameBuilder plain = FrameBuilder(1).Command(name[0]);
    if (name == "F") return plain.AppendWord(n).Finish();
    for (std::size_t i = 1; i < w.size(); ++i) plain.Append({std::stoi(w[i])});
    return plain.Finish();
}

// What the panel reads in a reply: its result code, or the fields of a data reply.
std::string Describe(const Bytes& bytes) {
    static const char* const names[] = {"fault ", "sensing ", "output ", "auto ",
                                        "CC ",    "OCP ",     "remote ", "RS232 "};
    const auto wanted = bytes.size() > AckLength ? ExpectData : ExpectAck;
    const Reply reply = JudgeReply(bytes, wanted, 1, CheckByte::Whole);
    if (reply != Reply::Data) return "result " + std::to_string(static_cast<int>(reply));
    const ReadBack back = ReadDataReply(std::span(bytes).first<DataLength>());
    const RatingFields rated = ReadRatingFields(std::span(bytes).first<DataLength>());
    const bool on = (back.Status & status::Output) != 0;
    std::ostringstream text;
    for (int bit = 0; bit < 8; ++bit) text << ((back.Status >> bit & 1) != 0 ? names[bit] : "");
    text << "code " << +back.Code << " step " << +back.Step << (on ? ", " : ", rated ")
         << (on ? back.Volt / 1000.0 : rated.Volt / 10.0) << " V "
         << (on ? back.Curr / 10000.0 : rated.Curr / 10.0) << " A";
    if (!on) text << ", OVP " << rated.Ovp / 10.0 << " V";
    return text.str();
}

TEST(ProtocolPage, ShowsBytesThatThePanelBuildsAndReadsAndASupplyAnswers) {
    const std::regex example(R"([>?!<=] ([^;]*)(?:; (.+))?)");
    std::ifstream page(ZPS_PROTOCOL_PAGE);
    simulator::Supply supply{{}};
    simulator::Time now{};
    Bytes reply;
    std::set<std::uint8_t> letters;
    int bits = 0;
    for (std::string line; std::getline(page, line);) {
        SCOPED_TRACE(line);
        if (line.starts_with("```")) supply = simulator::Supply{{}};
        std::smatch part;
        if (!std::regex_match(line, part, example)) continue;
        std::istringstream digits(part[1]);
        Bytes bytes;
        for (int n = 0; digits >> std::hex >> n;) bytes.push_back(static_cast<std::uint8_t>(n));
        if (line[0] == '!') supply.Trip(bytes.at(0), now);
        if (line[0] == '=') reply = bytes;
        if (line[0] == '<' || line[0] == '=') {
            EXPECT_EQ(bytes, reply);
            EXPECT_EQ(Describe(reply), part[2]);
        }
        if (line[0] == '>' || line[0] == '?') {
            simulator::FrameSplitter splitter;
            splitter.Take(bytes, now);
            now += std::chrono::seconds(1);
            reply = supply.Answer(splitter.Frames(now).at(0), now).value_or(Bytes());
            if (reply.size() == DataLength) bits |= reply[3];
        }
        if (line[0] != '>') continue;
        EXPECT_EQ(Build(part[2]).Data, bytes);
        EXPECT_TRUE(reply.at(1) == code::Ack || reply.at(1) == code::Stx);
        if (bytes.at(1) == code::Stx) letters.insert(bytes.at(4));
    }
    EXPECT_TRUE(bits == 0xFF && letters.size() == 13) << "a status bit or letter is not shown";
}

}  // namespace
}  // namespace zps

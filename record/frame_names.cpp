#include "record/frame_names.h"

#include "power/run/event_texts.h"
#include "source/numbers.h"
#include "source/reply.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace zps {

namespace {

constexpr std::size_t ControlLength = 3;
constexpr std::size_t CommandsFrom = 3;    // in a framed command: the first ESC
constexpr std::size_t BehindCommands = 2;  // ETX and sum
constexpr std::uint8_t EndOfSequence = 255;
constexpr int ReadBackFiner = 10;  // counts of a reading for one of a set value

struct Named {
    std::uint8_t Code;
    const char* Name;
};
constexpr std::array ControlNames{Named{code::Enq, "ENQ 응답 확인"}, Named{code::Dle, "DLE 조회"},
                                  Named{code::Dc1, "DC1 본체 제어"},
                                  Named{code::Dc3, "DC3 원격 제어"}};

// The commands that carry values, with the count of their data bytes.
struct ValueCommand {
    char Letter;
    std::size_t Length;
};
constexpr std::array ValueCommands{ValueCommand{letter::Step, 1},  ValueCommand{letter::Volt, 2},
                                   ValueCommand{letter::Curr, 2},  ValueCommand{letter::Time, 5},
                                   ValueCommand{letter::Slope, 3}, ValueCommand{letter::Ovp, 2},
                                   ValueCommand{letter::Count, 2}};
constexpr auto Switches = "AGWX";

using ByteView = std::span<const std::uint8_t>;

int Number(ByteView bytes) {
    int value = 0;
    for (const std::uint8_t byte : bytes) value = value * 256 + byte;
    return value;
}

// `counts` in units, or as they are where the scale is not known.
QString Scaled(int counts, std::int32_t scale) {
    if (scale <= 0) return QString::number(counts);
    const int decimals = static_cast<int>(std::lround(std::log10(scale)));
    return QString::fromStdString(FormatFixed(static_cast<double>(counts) / scale, decimals));
}

QString Seconds(double seconds) {
    return QString::fromStdString(FormatFixed(seconds, 5));
}

QString ValueText(char which, ByteView data, const Scales& known) {
    constexpr double milli = 1e-3, centimilli = 1e-5;
    switch (which) {
        case letter::Step:
            return QStringLiteral("단계 ") + QString::fromStdString(FormatStep(data[0]));
        case letter::Volt:
            return QStringLiteral("V=") + Scaled(Number(data), known.Volt);
        case letter::Curr:
            return QStringLiteral("I=") + Scaled(Number(data), known.Curr);
        case letter::Ovp:
            return QStringLiteral("O.V.P=") + Scaled(Number(data), known.Volt);
        case letter::Time:
            return QStringLiteral("TIME=") +
                   Seconds(Number(data.first(2)) + Number(data.subspan(2, 2)) * milli +
                           data[4] * centimilli);
        case letter::Slope:
            return QStringLiteral("SLOPE=") +
                   Seconds(Number(data.first(2)) * milli + data[2] * centimilli);
        default:
            return QStringLiteral("COUNT=%1").arg(Number(data));
    }
}

// How many data bytes of a command stand at the head of `rest`; more than there are where it is cut
// off.
std::size_t LengthOf(char which, ByteView rest) {
    const auto* found = std::ranges::find(ValueCommands, which, &ValueCommand::Letter);
    if (found != ValueCommands.end()) return found->Length;
    if (which == letter::Sequence) {
        const auto end = std::ranges::find(rest, EndOfSequence);
        return static_cast<std::size_t>(end - rest.begin()) + 1;
    }
    return std::strchr(Switches, which) != nullptr ? 1 : 0;
}

QString SequenceText(ByteView steps) {
    QString text = QStringLiteral("AUTO STEP ");
    if (steps.empty()) return text + QStringLiteral("비움");
    for (const std::uint8_t step : steps) text += QString::fromStdString(FormatStep(step)) + u'>';
    return text;
}

QString CommandText(ByteView command, std::size_t length, const Scales& known) {
    const char which = static_cast<char>(command[1]);
    const ByteView data = command.subspan(2, length);
    if (which == letter::Sequence) return SequenceText(data.first(length - 1));
    if (std::ranges::find(ValueCommands, which, &ValueCommand::Letter) != ValueCommands.end())
        return ValueText(which, data, known);
    return RequestText({which, data.empty() ? std::uint8_t{0} : data.front()});
}

QString ControlText(std::uint8_t control) {
    const auto* found = std::ranges::find(ControlNames, control, &Named::Code);
    return found == ControlNames.end() ? QStringLiteral("제어 코드 %1").arg(control)
                                       : QString::fromUtf8(found->Name);
}

QString DataText(const LineMessage& reply) {
    const auto bytes = std::span(reply.Data).first<DataLength>();
    const ReadBack values = ReadDataReply(bytes);
    QStringList words{QStringLiteral("DATA")};
    if ((values.Status & status::Output) != 0) {
        const bool known = reply.Known.Volt > 0;
        const auto unit = [&](char16_t name) { return known ? QString(u' ') + name : QString(); };
        words << (known ? QString() : QStringLiteral("V=")) +
                     Scaled(static_cast<int>(values.Volt), reply.Known.Volt * ReadBackFiner) +
                     unit(u'V')
              << (known ? QString() : QStringLiteral("I=")) +
                     Scaled(static_cast<int>(values.Curr), reply.Known.Curr * ReadBackFiner) +
                     unit(u'A')
              << ((values.Status & status::ConstantCurrent) != 0 ? QStringLiteral("CC")
                                                                 : QStringLiteral("CV"));
    } else {
        constexpr int tenths = 10;
        const RatingFields rated = ReadRatingFields(bytes);
        words << QStringLiteral("출력 꺼짐 · 정격 %1 V %2 A · O.V.P %3 V")
                     .arg(Scaled(rated.Volt, tenths), Scaled(rated.Curr, tenths),
                          Scaled(rated.Ovp, tenths));
    }
    words << QStringLiteral("단계 ") + QString::fromStdString(FormatStep(values.Step));
    if ((values.Status & status::Fault) != 0) words << FaultEvent(values.Code);
    return words.join(u' ');
}

}  // namespace

QString FrameName(const LineMessage& frame) {
    const ByteView all = frame.Data;
    if (all.size() == ControlLength) return ControlText(all[1]);
    if (all.size() < CommandsFrom + BehindCommands)
        return QStringLiteral("%1바이트").arg(all.size());
    QStringList words;
    ByteView rest = all.subspan(CommandsFrom, all.size() - CommandsFrom - BehindCommands);
    while (rest.size() >= 2 && rest[0] == code::Esc) {  // behind the last may be padding
        const std::size_t length = LengthOf(static_cast<char>(rest[1]), rest.subspan(2));
        if (rest.size() < 2 + length) break;
        words << CommandText(rest, length, frame.Known);
        rest = rest.subspan(2 + length);
    }
    return words.join(u' ');
}

QString ReplyName(const LineMessage& reply) {
    const auto& data = reply.Data;
    if (data.size() == AckLength && data[1] == code::Ack) return QStringLiteral("ACK");
    if (data.size() == AckLength && data[1] == code::Nak) return QStringLiteral("NAK");
    if (data.size() == DataLength && data[1] == code::Stx) return DataText(reply);
    return QStringLiteral("%1바이트").arg(data.size());
}

QString HexOf(const LineMessage& message) {
    const QByteArray raw(reinterpret_cast<const char*>(message.Data.data()),
                         static_cast<qsizetype>(message.Data.size()));
    return QString::fromLatin1(raw.toHex(' ').toUpper());
}

}  // namespace zps

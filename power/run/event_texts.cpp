#include "power/run/event_texts.h"

#include "source/numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zps {

namespace {

struct FaultText {
    std::uint8_t Code;
    const char* Text;
    const char* Meaning;
};
constexpr std::array FaultTexts{
    FaultText{1, "OUT OFF ERROR VOLTAGE!!!", "출력을 껐는데도 출력 단자에 전압이 있습니다."},
    FaultText{3, "MAX. OVER VOLTAGE!!!", "출력 전압이 전원 장치의 최대 전압을 넘었습니다."},
    FaultText{4, "MAX. OVER CURRENT!!!", "출력 전류가 전원 장치의 최대 전류를 넘었습니다."},
    FaultText{5, "SET OVER VOLTAGE!!!", "출력 전압이 설정한 O.V.P 전압을 넘었습니다."},
    FaultText{6, "SET OVER CURRENT!!!",
              "과전류 보호가 켜진 상태에서 출력 전류가 설정값에 도달했습니다."},
    FaultText{OutputCurrentFault, "OUT OFF ERROR CURRENT!!!", "출력을 껐는데도 전류가 흐릅니다."},
};

const FaultText* Find(std::uint8_t faultCode) {
    const auto* found = std::ranges::find(FaultTexts, faultCode, &FaultText::Code);
    return found == FaultTexts.end() ? nullptr : found;
}

struct RequestName {
    char Letter;
    const char* Text;
    bool Switches;  // its data byte says on or off
};
constexpr std::array RequestNames{
    RequestName{letter::Output, "출력", true},
    RequestName{letter::Auto, "자동 운전", true},
    RequestName{letter::Sensing, "원격 센싱", true},
    RequestName{letter::OverCurrent, "과전류 보호", true},
    RequestName{letter::Volt, "전압 설정", false},
    RequestName{letter::Curr, "전류 설정", false},
    RequestName{letter::Time, "시간 설정", false},
    RequestName{letter::Slope, "전압 변화 시간 설정", false},
    RequestName{letter::Ovp, "O.V.P 설정", false},
    RequestName{letter::Sequence, "자동 운전 순서", false},
    RequestName{letter::Count, "자동 운전 반복 횟수", false},
    RequestName{letter::FaultReset, "오류 해제", false},
};

}  // namespace

std::optional<Message> FaultMessage(std::uint8_t faultCode) {
    const FaultText* fault = Find(faultCode);
    if (fault == nullptr) return std::nullopt;
    Message message{MessageIcon::Warning, QStringLiteral("POWER ERROR"),
                    QString::fromUtf8(fault->Text)};
    message.Meaning = QString::fromUtf8(fault->Meaning);
    return message;
}

QString FaultEvent(std::uint8_t faultCode) {
    const FaultText* fault = Find(faultCode);
    return fault == nullptr
               ? QStringLiteral("전원 장치가 오류를 알렸습니다(코드 %1).").arg(faultCode)
               : QStringLiteral("%1 (코드 %2)").arg(QString::fromUtf8(fault->Text)).arg(faultCode);
}

QString RequestText(const Request& asked) {
    if (asked.Letter == letter::Step)
        return QStringLiteral("단계 %1 송신").arg(QString::fromStdString(FormatStep(asked.Data)));
    const auto* found = std::ranges::find(RequestNames, asked.Letter, &RequestName::Letter);
    if (found == RequestNames.end()) return QStringLiteral("제어 명령");
    QString text = QString::fromUtf8(found->Text);
    if (!found->Switches) return text;
    return text + (asked.Data == 0 ? QStringLiteral(" 끄기") : QStringLiteral(" 켜기"));
}

QString RefusalText(int step, StepValues values) {
    QString what = values.none() ? QStringLiteral("선택") : QStringLiteral("값");
    for (const auto& [value, asked] : {std::pair{StepValue::Volt, letter::Volt},
                                       {StepValue::Curr, letter::Curr},
                                       {StepValue::Time, letter::Time},
                                       {StepValue::Slope, letter::Slope},
                                       {StepValue::Ovp, letter::Ovp}}) {
        if (values == Only(value))
            what = QString::fromUtf8(
                std::ranges::find(RequestNames, asked, &RequestName::Letter)->Text);
    }
    return QStringLiteral("전원 장치가 단계 %1의 %2을 받지 않았습니다.")
        .arg(QString::fromStdString(FormatStep(step)), what);
}

}  // namespace zps

#include "controls/error_texts.h"

#include "serial/port.h"
#include "source/errors.h"

#include <algorithm>
#include <array>

namespace zps {

namespace {

constexpr const char* NoDevice = "이 번호의 장치가 없습니다. 어댑터와 링크를 확인하십시오.";
constexpr const char* OpenFolder =
    "이 포트의 링크가 있는 폴더(zps-rs232)가 본인만 쓸 수 있는 폴더가 아닙니다. 폴더를 본인 소유, "
    "권한 0700으로 바꾸거나 링크를 지우십시오.";
constexpr const char* NoRight =
    "이 포트를 사용할 권한이 없습니다. (Linux: dialout 그룹, Windows: 다른 프로그램이 사용 중)";

struct Reason {
    std::errc Code;
    const char* Text;
};
constexpr std::array Reasons{
    Reason{std::errc::bad_file_descriptor,
           "포트가 열려 있지 않습니다. ZPS설정에서 포트를 다시 고르십시오."},
    Reason{std::errc::permission_denied, NoRight},
    Reason{std::errc::operation_not_permitted, NoRight},
    Reason{std::errc::device_or_resource_busy, "다른 프로그램이 이 포트를 사용하고 있습니다."},
    Reason{std::errc::no_such_device, NoDevice},
    Reason{std::errc::no_such_device_or_address, NoDevice},
    Reason{std::errc::no_such_file_or_directory, NoDevice},
    Reason{std::errc::inappropriate_io_control_operation, "직렬 포트가 아닙니다."},
    Reason{std::errc::io_error, "장치를 읽거나 쓸 수 없습니다."},
};

// %1 is the value, %2 and %3 are the bounds.
struct Complaint {
    Overflow Kind;
    const char* Text;
};
constexpr std::array Complaints{
    Complaint{Overflow::NoByte, "보낼 수 있는 값은 0~255입니다. (보내려던 값: %1)"},
    Complaint{Overflow::NoNumber, "숫자만 쓸 수 있습니다. (입력: '%1')"},
    Complaint{Overflow::OutOfRange, "쓸 수 있는 값은 %2~%3입니다. (입력: %1)"},
    Complaint{Overflow::TooLarge, "값이 너무 커서 보낼 수 없습니다. (보내려던 값: %1)"},
    Complaint{Overflow::NoStep, "%1번 단계는 없습니다(0~99)."},
};

QString ComplaintText(const OverflowError& error) {
    const auto* found = std::ranges::find(Complaints, error.Kind, &Complaint::Kind);
    QString text = QString::fromUtf8(found->Text);
    text.replace(QStringLiteral("%2"), QString::number(error.Low));
    text.replace(QStringLiteral("%3"), QString::number(error.High));
    return text.replace(QStringLiteral("%1"), QString::fromStdString(error.Value));
}

}  // namespace

QString ReasonText(const std::error_code& reason) {
    if (reason == serial::PortFault::LinkFolderNotPrivate) return QString::fromUtf8(OpenFolder);
    const auto* known =
        std::ranges::find_if(Reasons, [&](const Reason& one) { return reason == one.Code; });
    if (known != Reasons.end()) return QString::fromUtf8(known->Text);
    return QStringLiteral("시스템이 이 포트를 열지 못합니다(오류 번호 %1).").arg(reason.value());
}

Message StartMessageOf(const serial::PortError& error) {
    Message message = MessageOf(error);
    message.Title = QStringLiteral("ZPS-RS232 - %1").arg(message.Title);
    message.Text +=
        QStringLiteral("\n\n프로그램을 끝냅니다. RS-232 어댑터를 꽂고 다시 시작하십시오.");
    message.Meaning =
        QStringLiteral("전원 장치 없이 써 보려면 ZPS-RS232 (모의)(zps-demo)를 실행하십시오.");
    return message;
}

Message MessageOf(const serial::PortError& error) {
    return {MessageIcon::Critical, QStringLiteral("통신 포트 오류"),
            QStringLiteral("COM%1 포트를 사용할 수 없습니다.\n%2")
                .arg(QString::number(error.CommPort), ReasonText(error.code()))};
}

Message MessageOf(const OverflowError& error) {
    return {MessageIcon::Critical, QStringLiteral("값 변환 오류"),
            QStringLiteral("값을 보낼 수 없어 동작을 중단했습니다.\n%1").arg(ComplaintText(error))};
}

}  // namespace zps

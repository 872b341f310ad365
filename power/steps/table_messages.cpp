#include "power/steps/table_messages.h"

#include "power/steps/messages.h"
#include "power/steps/step_fields.h"
#include "source/numbers.h"

#include <QStringList>

namespace zps {

namespace {

QString TitleOf(TableJob job) {
    switch (job) {
        case TableJob::Paste:
            return QStringLiteral("단계표 붙여넣기");
        case TableJob::Undo:
            return QStringLiteral("붙여넣기 되돌리기");
        case TableJob::Send:
            break;
    }
    return QStringLiteral("단계 송신");
}

Message About(TableJob job, const QString& text) {
    return {MessageIcon::Information, TitleOf(job), text};
}

QString StepText(int step) {
    return QString::fromStdString(FormatStep(step));
}

QString ReasonAgainst(TableJob job, const TableState& state) {
    if (state.Output == OutputState::On)
        return QStringLiteral("출력이 켜져 있습니다. 출력을 끄고 다시 하십시오.");
    if (!state.Remote)
        return QStringLiteral("본체 제어(LOCAL) 중입니다. REMOTE로 전환하고 다시 하십시오.");
    if (state.EditedStep) {
        return QStringLiteral(
                   "단계 %1의 값을 고치는 중입니다. 번호를 눌러 송신하거나 값을 되돌린 뒤 "
                   "다시 하십시오.")
            .arg(StepText(*state.EditedStep));
    }
    if (job == TableJob::Send && state.Output != OutputState::Off)
        return QStringLiteral("출력이 꺼져 있는지 알 수 없습니다. 본체에서 확인하십시오.");
    return {};
}

// As somebody can look for it in the spreadsheet: in one line, and not the whole of a long one.
QString Quoted(const std::string& cell) {
    constexpr qsizetype longest = 30;
    QString text = QString::fromStdString(cell);
    if (text.isEmpty()) return QStringLiteral("(빈칸)");
    if (text.size() > longest) text = text.left(longest) + QStringLiteral("…");
    for (QChar& c : text) {
        if (!c.isPrint()) c = QChar::ReplacementCharacter;
    }
    return text;
}

QString AnswerText(std::optional<Reply> answer) {
    if (!answer) return QStringLiteral("보내지 못했습니다.");
    if (answer == Reply::None) return QStringLiteral("전원 장치가 응답하지 않았습니다.");
    return answer == Reply::Nak ? QStringLiteral("전원 장치가 거부했습니다.")
                                : QStringLiteral("전원 장치의 응답이 잘못되었습니다.");
}

QString RangeOf(std::size_t column, const SOURCE& source) {
    if (column == StepColumn) return QStringLiteral("00 ~ 99, 단계마다 한 번");
    if (column >= TableColumns)
        return QStringLiteral("열은 %1까지입니다")
            .arg(QString::fromStdString(TableCaption(TableColumns - 1)));
    return RangeText(StepFields().at(column - 1), source);
}

}  // namespace

std::optional<Message> Objection(TableJob job, const TableState& state) {
    if (!state.RatingsKnown) return UnknownRatings();
    const QString reason = ReasonAgainst(job, state);
    if (reason.isEmpty()) return std::nullopt;
    return About(
        job, reason + (job == TableJob::Send ? QStringLiteral("\n아무것도 보내지 않았습니다.")
                                             : QStringLiteral("\n아무 값도 바꾸지 않았습니다.")));
}

Message PasteRefusal(const BadCell& cell, const SOURCE& source) {
    const QString column = cell.Column < TableColumns
                               ? QString::fromStdString(TableCaption(cell.Column))
                               : QStringLiteral("%1번째 열").arg(cell.Column + 1);
    Message message =
        About(TableJob::Paste, QStringLiteral("%1행 %2: %3\n설정값 범위: %4\n아무 값도 바꾸지 "
                                              "않았습니다.")
                                   .arg(QString::number(cell.Line), column, Quoted(cell.Text),
                                        RangeOf(cell.Column, source)));
    message.Meaning = QStringLiteral(
        "칸마다 숫자 하나만 받습니다. 소수점은 \".\"입니다. 쉼표, 단위, 수식, 빈칸은 받지 "
        "않습니다.");
    return message;
}

Message PasteRefusal(const TooLarge& /*text*/) {
    return About(TableJob::Paste, QStringLiteral("클립보드의 글이 100단계의 표보다 훨씬 큽니다.\n"
                                                 "아무 값도 바꾸지 않았습니다."));
}

Message PasteRefusal(const Ambiguous& /*text*/) {
    Message message = About(
        TableJob::Paste,
        QStringLiteral("첫 열이 단계 번호인지 전압인지 알 수 없습니다.\n머리글 줄과 함께 다시 "
                       "복사하십시오.\n아무 값도 바꾸지 않았습니다."));
    message.Meaning = QStringLiteral(
        "STEP부터 O.V.P(V)까지 여섯 열이거나, VOLTAGE(V)부터 O.V.P(V)까지 다섯 열과 "
        "그 머리글이어야 합니다.");
    return message;
}

Message NothingToPaste() {
    return About(TableJob::Paste, QStringLiteral("클립보드에 단계표가 없습니다."));
}

Message NothingToUndo() {
    return About(TableJob::Undo, QStringLiteral("되돌릴 붙여넣기가 없습니다."));
}

Message NothingToSend() {
    return About(TableJob::Send, QStringLiteral("값을 바꾸고 송신하지 않은 단계가 없습니다."));
}

QString InOneLine(const Message& message) {
    return (message.Title + QStringLiteral(": ") + message.Text).simplified();
}

QString CopiedText(int first, int last) {
    return QStringLiteral("단계 %1\u2013%2 복사됨").arg(StepText(first), StepText(last));
}

QString PastedText(int steps, int changed) {
    if (changed == 0) return QStringLiteral("%1단계 붙여넣음: 바뀐 값 없음").arg(steps);
    return QStringLiteral("%1단계 붙여넣음: %2단계 바뀜, 송신 안 함").arg(steps).arg(changed);
}

QString UndoneText(int changed) {
    return QStringLiteral("붙여넣기 되돌림: %1단계 바뀜, 송신 안 함").arg(changed);
}

QString ProgressText(const SendAll::Report& report) {
    if (!report.Step) return QStringLiteral("앞의 응답을 기다리는 중");
    const QString step = StepText(*report.Step);
    if (report.Cancelled || report.Refused || report.Sent == report.Of)
        return QStringLiteral("단계 %1 다시 선택 중").arg(step);
    return QStringLiteral("단계 %1 송신 중 (%2/%3)").arg(step).arg(report.Sent + 1).arg(report.Of);
}

QString SentText(const SendAll::Report& report) {
    const QString sent = QStringLiteral("%1/%2단계 송신됨").arg(report.Sent).arg(report.Of);
    return report.Cancelled ? QStringLiteral("취소됨, ") + sent : sent;
}

std::optional<Message> SendingTrouble(const SendAll::Report& report) {
    QStringList lines;
    if (report.Refused)
        lines +=
            QStringLiteral("단계 %1: %2").arg(StepText(*report.Refused), AnswerText(report.Answer));
    if (report.OutputOn) lines += QStringLiteral("출력이 꺼져 있지 않아 멈췄습니다.");
    if (!report.Reselected)
        lines +=
            QStringLiteral(
                "처음의 단계(%1)가 다시 선택되지 않았습니다. 다른 단계가 선택되어 있을 "
                "수 있습니다.\n출력을 켜지 말고, 다른 단계를 누른 뒤 이 단계를 다시 누르십시오.")
                .arg(StepText(report.Before));
    if (lines.isEmpty()) return std::nullopt;
    lines += SentText(report);
    Message message = About(TableJob::Send, lines.join(u'\n'));
    message.Icon = MessageIcon::Warning;
    return message;
}

QString SendingEvent(const SendAll::Report& report) {
    return InOneLine(SendingTrouble(report).value_or(About(TableJob::Send, SentText(report))));
}

}  // namespace zps

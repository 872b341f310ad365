#include "record/line_model.h"

#include "record/frame_names.h"

#include <QDateTime>
#include <QFontDatabase>

#include <algorithm>
#include <array>

namespace zps {

namespace {

constexpr std::array<RecordColumn, LineColumnCount> LineColumns{
    {{"시각", "00:00:00.000"},
     {"포트", "COM4"},
     {"방향", "◀ 수신"},
     {"판정", "잘못된 응답"},
     {"응답(ms)", "1000.0"},
     {"내용", "DATA 출력 꺼짐 · 정격 150.0 V 10.0 A · O.V.P 163.5 V"},
     {"바이트", "00 00 00 00 00 00 00"}}};

QString DirectionText(LineEvent what) {
    switch (what) {
        case LineEvent::Sent:
            return QStringLiteral("▶ 송신");
        case LineEvent::Read:
        case LineEvent::Thrown:
            return QStringLiteral("◀ 수신");
        default:
            return {};
    }
}

QString ContentText(const LineMessage& message) {
    switch (message.What) {
        case LineEvent::Opened:
            return QStringLiteral("포트 열림");
        case LineEvent::Closed:
            return QStringLiteral("포트 닫힘");
        case LineEvent::NotOpened:
            return QStringLiteral("포트 열기");
        case LineEvent::Sent:
            return FrameName(message);
        default:
            return ReplyName(message);
    }
}

// Of a frame that something came to, what came tells it.
QString VerdictText(const TracedMessage& message) {
    switch (message.Result) {
        case Outcome::NoAnswer:
            return QStringLiteral("응답 없음");
        case Outcome::Unasked:
            return QStringLiteral("요청 없음");
        case Outcome::PortNotOpened:
            return QStringLiteral("열지 못함");
        default:
            break;
    }
    if (!message.Answer) return {};
    switch (message.Result) {
        case Outcome::Nak:
            return QStringLiteral("거부(NAK)");
        case Outcome::BadAnswer:
            return QStringLiteral("잘못된 응답");
        case Outcome::Thrown:
            return QStringLiteral("읽지 않음");
        default:
            return QStringLiteral("정상");
    }
}

QString TimeText(const LineMessage& message, const char* format) {
    const auto since = message.When.TimeOfDay.time_since_epoch();
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(since).count();
    return QDateTime::fromMSecsSinceEpoch(ms).toString(QLatin1String(format));
}

QString AfterText(const TracedMessage& message) {
    if (!message.After) return {};
    return QString::number(static_cast<double>(message.After->count()) / 1000, 'f', 1);
}

QString TextOf(LineColumn column, const TracedMessage& row, const LineMessage& message,
               const char* timeFormat) {
    switch (column) {
        case LineColumn::Time:
            return TimeText(message, timeFormat);
        case LineColumn::Port:
            return QStringLiteral("COM%1").arg(message.CommPort);
        case LineColumn::Direction:
            return DirectionText(message.What);
        case LineColumn::Content:
            return ContentText(message);
        case LineColumn::Verdict:
            return VerdictText(row);
        case LineColumn::After:
            return AfterText(row);
        case LineColumn::Data:
            return HexOf(message);
    }
    return {};
}

}  // namespace

LineModel::LineModel(const LineTrace& trace) : RecordModel(LineColumns), Live(trace) {}

int LineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(Rows.size());
}

int LineModel::Follow() {
    const auto now = Frozen ? FrozenAt : serial::Clock::now();
    std::vector<TracedMessage> come;
    Pairing.Follow(Seen(), now, [&](const TracedMessage& message) {
        if (Passes(message)) come.push_back(message);
    });
    const auto kept = std::ranges::lower_bound(Rows, Seen().First(), {}, &TracedMessage::Number);
    const int gone =
        DropRows(static_cast<int>(kept - Rows.begin()), [&] { Rows.erase(Rows.begin(), kept); });
    AddRows(static_cast<int>(come.size()),
            [&] { Rows.insert(Rows.end(), come.begin(), come.end()); });
    return gone;
}

bool LineModel::Passes(const TracedMessage& message) const {
    const bool error = IsError(message.Result);
    return error || Chosen == Filter::All || (Chosen == Filter::Commands && !message.Poll);
}

void LineModel::SetFilter(Filter filter) {
    if (filter == Chosen) return;
    Chosen = filter;
    StartOver();
}

void LineModel::SetPaused(bool paused) {
    if (paused == Paused()) return;
    if (paused) Follow();
    Frozen = paused ? std::make_unique<LineTrace>(Live) : nullptr;
    FrozenAt = serial::Clock::now();
    if (!paused) Follow();
}

void LineModel::StartOver() {
    beginResetModel();
    Rows.clear();
    Pairing = {};
    endResetModel();
    Follow();
}

QVariant LineModel::data(const QModelIndex& index, int role) const {
    const TracedMessage& row = Rows[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<LineColumn>(index.column());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
        case CopiedRole: {
            const auto message = Seen().Find(row.Number);
            if (!message) return {};  // it has just gone
            const char* format = role == CopiedRole ? "yyyy-MM-dd HH:mm:ss.zzz" : "HH:mm:ss.zzz";
            return TextOf(column, row, *message, format);
        }
        case Qt::TextAlignmentRole:
            return static_cast<int>(column == LineColumn::After ? Qt::AlignRight | Qt::AlignVCenter
                                                                : Qt::AlignLeft | Qt::AlignVCenter);
        case Qt::BackgroundRole:
        case Qt::ForegroundRole:
            if (column != LineColumn::Verdict || VerdictText(row).isEmpty()) return {};
            return MarkFor(IsError(row.Result), role);
        case Qt::FontRole:
            return column == LineColumn::Data
                       ? QVariant(QFontDatabase::systemFont(QFontDatabase::FixedFont))
                       : QVariant();
        default:
            return {};
    }
}

}  // namespace zps

#include "power/link/history.h"

#include <utility>

namespace zps {

namespace {
constexpr qint64 SameWithin = 100;  // ms
}

QString NameOf(EventKind kind) {
    switch (kind) {
        case EventKind::Trip:
            return QStringLiteral("보호 동작");
        case EventKind::EndOfRun:
            return QStringLiteral("운전 끝");
        case EventKind::OutputOff:
            return QStringLiteral("출력 꺼짐");
        case EventKind::Refused:
            return QStringLiteral("거부");
        case EventKind::NotDone:
            return QStringLiteral("주의");
        case EventKind::LinkLost:
            return QStringLiteral("통신 끊김");
        case EventKind::LinkBack:
            return QStringLiteral("통신 복구");
        case EventKind::Switched:
            return QStringLiteral("조작");
        case EventKind::Port:
            return QStringLiteral("포트");
        case EventKind::Checked:
            return QStringLiteral("확인");
    }
    return {};
}

bool IsAlarm(EventKind kind) {
    switch (kind) {
        case EventKind::Trip:
        case EventKind::OutputOff:
        case EventKind::Refused:
        case EventKind::NotDone:
        case EventKind::LinkLost:
            return true;
        default:
            return false;
    }
}

History::History(std::function<QDateTime()> clock) : Clock(std::move(clock)) {}

void History::Note(EventKind kind, const QString& text) {
    Told(Keep(kind, text));
}

std::uint64_t History::Keep(EventKind kind, const QString& text) {
    const QDateTime now = Clock();
    for (std::uint64_t number = End(); number > First(); --number) {
        const PanelEvent& before = Get(number - 1);
        const qint64 ago = before.At.msecsTo(now);
        if (ago < 0 || ago > SameWithin) break;
        if (before.Kind == kind && before.Text == text) return number - 1;
    }
    Events.push_back({kind, now, text});
    if (Events.size() > MostEvents) {
        Events.pop_front();
        ++Oldest;
    }
    return End() - 1;
}

}  // namespace zps

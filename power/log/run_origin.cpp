#include "power/log/run_origin.h"

#include <QCoreApplication>
#include <QDateTime>

#include <utility>

namespace zps {

namespace {

QDateTime LocalTime(std::chrono::system_clock::time_point moment) {
    using std::chrono::milliseconds;
    return QDateTime::fromMSecsSinceEpoch(
        std::chrono::floor<milliseconds>(moment).time_since_epoch().count());
}

// As spreadsheets take it for a time.
const QString ClockFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");

}  // namespace

QString ClockText(std::chrono::system_clock::time_point moment) {
    const QDateTime time = LocalTime(moment);
    return time.toString(ClockFormat) + u'.' +
           QString::number(time.time().msec() / 10).rightJustified(2, QLatin1Char('0'));
}

QString ProgramText() {
    return QStringLiteral("ZPS-RS232\t") + QCoreApplication::applicationVersion() + u'\n';
}

QString OriginText(const RunOrigin& origin) {
    const auto& [supply, start] = origin;
    const bool started = start.time_since_epoch().count() != 0;
    QString text;
    for (const auto& [caption, value] :
         {std::pair{"모델", supply.Model},
          {"정격", supply.Ratings},
          {"포트", supply.Port},
          {"주소", QString::number(supply.Address)},
          {"시작", started ? LocalTime(start).toString(ClockFormat) : QString()}}) {
        text += QString::fromUtf8(caption) + u'\t' + value + u'\n';
    }
    return text;
}

}  // namespace zps

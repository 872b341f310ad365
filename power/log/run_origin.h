// What stands behind the samples of a run.
#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace zps {

struct SupplyOnLine {
    QString Model;
    QString Ratings;  // empty where they are not known
    QString Port;     // "COM1" and what it is on this machine
    int Address = 0;
};

struct RunOrigin {
    SupplyOnLine Supply;
    std::chrono::system_clock::time_point
        Start;  // by the clock on the wall, at the time 0; the epoch before that
};

// Lines of a copied text, cells parted by tabs.
QString ProgramText();
QString OriginText(const RunOrigin& origin);
// Local date and time to hundredths of a second, as spreadsheets take them for a time.
QString ClockText(std::chrono::system_clock::time_point moment);

using WallClock = std::function<std::chrono::system_clock::time_point()>;

}  // namespace zps

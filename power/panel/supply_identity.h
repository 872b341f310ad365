// Which supply is on the line, as the window shows it and copies and pictures tell it.
#pragma once

#include "power/log/run_origin.h"
#include "power/panel/power_controls.h"
#include "serial/port.h"
#include "source/source.h"

#include <QString>

namespace zps {

class SupplyIdentity {
  public:
    // `port` is the one of the window. All of them outlive this.
    SupplyIdentity(const SOURCE& source, const PowerControls& controls, const serial::Port& port)
        : Source(source), Controls(controls), Port(port) {}

    void ShowModel();
    // These have been read from it.
    void RatingsRead(const QString& ratings) { Ratings = ratings; }
    // Shows the ratings that were read last, while they are known.
    void ShowRatings();

    SupplyOnLine OnLine() const;

  private:
    const SOURCE& Source;
    const PowerControls& Controls;
    const serial::Port& Port;
    QString Ratings;  // read last
};

}  // namespace zps

#include "power/panel/supply_identity.h"

namespace zps {

void SupplyIdentity::ShowModel() {
    Controls.lblZPS_MODEL->setText(QString::fromStdString(Source.ModelName));
}

void SupplyIdentity::ShowRatings() {
    const bool hidden = !Source.RatingsKnown() && !Ratings.isEmpty();
    Controls.lblSPEC_VA->setText(hidden ? QStringLiteral("----") : Ratings);
}

SupplyOnLine SupplyIdentity::OnLine() const {
    const QString number = QStringLiteral("COM%1").arg(Source.CommPort);
    const QString device = QString::fromStdString(Port.Device());
    return {.Model = QString::fromStdString(Source.ModelName),
            .Ratings = Source.RatingsKnown() ? Ratings : QString(),
            .Port = device.isEmpty() || device == number ? number : number + u' ' + device,
            .Address = Source.PowerAddr};
}

}  // namespace zps

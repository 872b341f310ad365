// The commands that put a picture on the clipboard.
#pragma once

#include "power/log/measurement_log.h"
#include "power/panel/picture_copy.h"
#include "power/panel/power_parts.h"
#include "power/panel/supply_identity.h"
#include "power/steps/commands.h"

namespace zps {

class PictureMenu {
  public:
    // All of them outlive this.
    PictureMenu(PowerParts& parts, Commands& commands, const SupplyIdentity& supply,
                MeasurementLog& log);

  private:
    void mnuData_Curve_Click();
    void mnuData_Window_Click();
    // Of a picture that is taken now.
    PictureTitle TitleOf(const QString& what) const;

    PowerParts& Parts;
    const SupplyIdentity& Supply;
    MeasurementLog& Log;
};

}  // namespace zps

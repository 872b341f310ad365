#include "power/picture_menu.h"

#include <QStringList>

namespace zps {

PictureMenu::PictureMenu(PowerParts& parts, Commands& commands, const SupplyIdentity& supply,
                         MeasurementLog& log)
    : Parts(parts), Supply(supply), Log(log) {
    commands.Connect(*Parts.Controls.mnuData_Curve, [this] { mnuData_Curve_Click(); });
    commands.Connect(*Parts.Controls.mnuData_Window, [this] { mnuData_Window_Click(); });
}

void PictureMenu::mnuData_Curve_Click() {
    CopyPicture(MakePicture(Log.Curves(), TitleOf(QStringLiteral("측정 데이터 그래프")),
                            Log.PictureNote()));
    Log.NoteCopied(QStringLiteral("그래프 그림 복사됨"));
}

void PictureMenu::mnuData_Window_Click() {
    CopyPicture(MakePicture(Parts.Window, TitleOf(Parts.Window.windowTitle())));
    Log.NoteCopied(QStringLiteral("창 그림 복사됨"));
}

PictureTitle PictureMenu::TitleOf(const QString& what) const {
    const SupplyOnLine supply = Supply.OnLine();
    QStringList words{supply.Model, supply.Ratings, supply.Port,
                      QStringLiteral("주소 %1").arg(supply.Address)};
    words.removeAll(QString());
    return {what, words.join(QStringLiteral(" · ")), QDateTime::currentDateTime()};
}

}  // namespace zps

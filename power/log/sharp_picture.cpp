// The plotting library is written with Qt's keywords.
#undef QT_NO_KEYWORDS

#include "power/log/sharp_picture.h"

#include <qcustomplot.h>

namespace zps {

// A plot paints the picture that it keeps for its screen; here it draws itself once more.
void DrawSharply(QPainter& painter, QPoint place, QWidget& shown) {
    shown.render(&painter, place);
    const double ratio = painter.device()->devicePixelRatioF();
    auto plots = shown.findChildren<QCustomPlot*>();
    if (auto* self = qobject_cast<QCustomPlot*>(&shown)) plots << self;
    for (QCustomPlot* plot : plots) {
        if (!plot->isVisible()) continue;
        const QRect seen = plot->visibleRegion().boundingRect();
        QPixmap picture = plot->toPixmap(plot->width(), plot->height(), ratio);
        picture.setDevicePixelRatio(ratio);
        painter.save();
        painter.translate(place + plot->mapTo(&shown, QPoint(0, 0)));
        painter.setClipRect(seen);
        painter.drawPixmap(0, 0, picture);
        painter.restore();
    }
}

}  // namespace zps

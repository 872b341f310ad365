#include "controls/number_face.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStringList>

#include <algorithm>

namespace zps {

namespace {

// Large enough for the shape of the outline to count and not the grid of pixels.
constexpr int TrialSize = 200;  // px

bool ReadsWell(const QString& family) {
    QFont font(family);
    font.setPixelSize(TrialSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(u'0');
    const auto asWide = [&](QChar digit) {
        return qAbs(metrics.horizontalAdvance(digit) - width) < 1;
    };
    const QString digits = QStringLiteral("123456789");
    return std::all_of(digits.begin(), digits.end(), asWide) &&
           metrics.tightBoundingRect(QStringLiteral(".")).bottom() < TrialSize / 50.0;
}

QString FindFamily() {
    const QStringList known = QFontDatabase::families();
    for (const char* family : {"Segoe UI", "Noto Sans", "DejaVu Sans", "Noto Sans CJK KR",
                               "Malgun Gothic", "Liberation Sans"}) {
        QString name = QLatin1String(family);
        if (known.contains(name) && ReadsWell(name)) return name;
    }
    return {};
}

}  // namespace

void SetNumberFace(QFont& font) {
    static const QString family = FindFamily();
    if (family.isEmpty()) return;
    font.setFamilies(QStringList{family});
}

void SetNumberFace(QWidget& widget) {
    QFont font = widget.font();
    SetNumberFace(font);
    widget.setFont(font);
}

}  // namespace zps

#include "power/steps/live_text.h"

#include "source/numbers.h"

#include <QStringList>

namespace zps {

QString LiveText(const StepTable& steps, int step, const StepValues& values) {
    QStringList told;
    for (std::size_t value = 0; value < StepValueCount; ++value) {
        if (!values.test(value)) continue;
        told += QString::fromUtf8(ValueCaptions.at(value)) + u' ' +
                QString::fromStdString(steps.Text(static_cast<StepValue>(value), step));
    }
    return QStringLiteral("출력 중 단계 %1 %2: %3")
        .arg(QString::fromStdString(FormatStep(step)),
             values.all() ? QStringLiteral("선택") : QStringLiteral("설정"),
             told.join(QStringLiteral(", ")));
}

}  // namespace zps

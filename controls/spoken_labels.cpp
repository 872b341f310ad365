#include "controls/spoken_labels.h"

#include <QAccessibleWidget>
#include <QLabel>

namespace zps {

namespace {

class SpokenLabel : public QAccessibleWidget {
  public:
    explicit SpokenLabel(QLabel& label)
        : QAccessibleWidget(&label, QAccessible::StaticText), Shown(label) {}

    QString text(QAccessible::Text part) const override {
        if (part == QAccessible::Name && Shown.accessibleName().isEmpty()) return Shown.text();
        if (part == QAccessible::Description) return Shown.text();
        return QAccessibleWidget::text(part);
    }

  private:
    QLabel& Shown;
};

QAccessibleInterface* MakeSpokenLabel(const QString& className, QObject* object) {
    auto* label = className == QLatin1String("QLabel") ? qobject_cast<QLabel*>(object) : nullptr;
    return label == nullptr ? nullptr : new SpokenLabel(*label);
}

}  // namespace

void SpeakLabels() {
    QAccessible::installFactory(&MakeSpokenLabel);
}

}  // namespace zps

#include "controls/spoken_labels.h"

#include "controls/lamp.h"

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
        const bool described = !Shown.accessibleDescription().isEmpty();
        if (part == QAccessible::Description && !described) return Shown.text();
        return QAccessibleWidget::text(part);
    }

  private:
    QLabel& Shown;
};

// Null for what the toolkit or another factory knows.
QAccessibleInterface* MakeSpoken(const QString& className, QObject* object) {
    if (className == QLatin1String("QLabel"))
        return new SpokenLabel(*qobject_cast<QLabel*>(object));
    auto* lamp = dynamic_cast<Lamp*>(object);
    return lamp == nullptr ? nullptr : new QAccessibleWidget(lamp, QAccessible::Graphic);
}

}  // namespace

void SpeakLabels() {
    QAccessible::installFactory(&MakeSpoken);
}

}  // namespace zps

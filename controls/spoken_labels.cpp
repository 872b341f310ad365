#include "controls/spoken_labels.h"

#include "controls/focus_holder.h"
#include "controls/lamp.h"
#include "controls/pressing.h"
#include "controls/switch_button.h"

#include <QAccessibleWidget>
#include <QRadioButton>

#include <algorithm>

namespace zps {

namespace {

class SpokenLabel : public QAccessibleWidget {
  public:
    explicit SpokenLabel(QLabel& label)
        : QAccessibleWidget(&label, QAccessible::StaticText), Shown(label) {}

    QString text(QAccessible::Text part) const override {
        if (part != QAccessible::Name) return QAccessibleWidget::text(part);
        QString name = Shown.accessibleName();
        QString text = Shown.text();
        if (name.isEmpty() || name == text) return text;
        const bool onlyCaption = Shown.buddy() != nullptr;
        return onlyCaption || text.isEmpty() ? name : name + u' ' + text;
    }
    QAccessible::Role role() const override {
        return Pressing::Of(Shown) == nullptr ? QAccessible::StaticText : QAccessible::Button;
    }
    QStringList actionNames() const override {
        const Pressing* const pressing = Pressing::Of(Shown);
        const bool can = pressing != nullptr && pressing->CanPress();
        return (can ? QStringList(pressAction()) : QStringList()) +
               QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        Pressing* const pressing = Pressing::Of(Shown);
        if (name == pressAction() && pressing != nullptr)
            pressing->Press();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    QLabel& Shown;
};

// Not among the children of its parent, and nothing where the focus is told.
class SpokenHolder : public QAccessibleWidget {
  public:
    explicit SpokenHolder(QWidget& holder) : QAccessibleWidget(&holder) {}
    bool isValid() const override { return false; }
};

class SpokenParent : public QAccessibleWidget {
  public:
    explicit SpokenParent(QWidget& parent) : QAccessibleWidget(&parent) {}

    int childCount() const override { return QAccessibleWidget::childCount() - 1; }
    QAccessibleInterface* child(int index) const override {
        return QAccessibleWidget::child(index < HolderPlace() ? index : index + 1);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const int index = QAccessibleWidget::indexOfChild(child);
        const int holder = HolderPlace();
        if (index == holder) return -1;
        return index < holder ? index : index - 1;
    }

  private:
    int HolderPlace() const {
        const int count = QAccessibleWidget::childCount();
        int index = 0;
        while (index < count && !dynamic_cast<SpokenHolder*>(QAccessibleWidget::child(index)))
            ++index;
        return index;
    }
};

// One that is pressed from outside as by a click. The toolkit would only check what can be checked,
// and whoever waits for the click would never hear of it.
class SpokenButton : public QAccessibleWidget {
  public:
    SpokenButton(QAbstractButton& button, QAccessible::Role role)
        : QAccessibleWidget(&button, role), Button(button) {}

    QString text(QAccessible::Text part) const override {
        QString told = QAccessibleWidget::text(part);
        if (part != QAccessible::Name || !told.isEmpty()) return told;
        return Button.text().remove(u'&');
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = Button.isChecked();
        return state;
    }
    QStringList actionNames() const override {
        const QStringList pressing =
            Button.isEnabled() ? QStringList(pressAction()) : QStringList();
        return pressing + QAccessibleWidget::actionNames();
    }
    // Later, as with other buttons: a message box would hold up whoever asks.
    void doAction(const QString& name) override {
        if (name == pressAction())
            Button.animateClick();
        else
            QAccessibleWidget::doAction(name);
    }

  private:
    QAbstractButton& Button;
};

// Known by its caption and by what it switches; checked while that is on.
class SpokenSwitch : public SpokenButton {
  public:
    explicit SpokenSwitch(SwitchButton& button)
        : SpokenButton(button, QAccessible::Button), Button(button) {}

    QString text(QAccessible::Text part) const override {
        if (part == QAccessible::Name)
            return Button.text().trimmed() + u' ' + Button.accessibleName();
        if (part == QAccessible::Description)
            return Button.IsOn() ? QStringLiteral("켜짐") : QStringLiteral("꺼짐");
        return SpokenButton::text(part);
    }
    QAccessible::State state() const override {
        QAccessible::State state = SpokenButton::state();
        state.checked = Button.IsOn();
        return state;
    }

  private:
    SwitchButton& Button;
};

bool HoldsFocus(const QObject* child) {
    return dynamic_cast<const FocusHolder*>(child) != nullptr;
}

// Null for what the toolkit or another factory knows.
QAccessibleInterface* MakeSpoken(const QString& className, QObject* object) {
    if (className == QLatin1String("QLabel"))
        return new SpokenLabel(*qobject_cast<QLabel*>(object));
    if (HoldsFocus(object)) return new SpokenHolder(*qobject_cast<QWidget*>(object));
    if (auto* button = dynamic_cast<SwitchButton*>(object)) return new SpokenSwitch(*button);
    if (auto* choice = qobject_cast<QRadioButton*>(object))
        return new SpokenButton(*choice, QAccessible::RadioButton);
    if (auto* lamp = dynamic_cast<Lamp*>(object))
        return new QAccessibleWidget(lamp, QAccessible::Graphic);
    const QObjectList& children = object->children();
    const bool parent = className == QLatin1String("QWidget") &&
                        std::any_of(children.begin(), children.end(), &HoldsFocus);
    return parent ? new SpokenParent(*qobject_cast<QWidget*>(object)) : nullptr;
}

}  // namespace

void SpeakLabels() {
    QAccessible::installFactory(&MakeSpoken);
}

void Say(QLabel& label, const QString& text) {
    if (label.text() == text) return;
    label.setText(text);
    Say(label);
}

void Say(QLabel& label) {
    QAccessibleEvent told(&label, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&told);
}

}  // namespace zps

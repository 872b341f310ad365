// A field that only shows a value.
#pragma once

#include <QLineEdit>

#include <utility>

namespace zps {

// What is set from outside (a screen reader can set the text of any field) does not stay: it would
// be taken for a value of the supply. It is reached with Tab, to be heard.
class ReadOut : public QLineEdit {
  public:
    ReadOut(const QString& name, const QString& text, const QString& accessibleName)
        : QLineEdit(text), Value(text) {
        setObjectName(name);
        setAccessibleName(accessibleName);
        setReadOnly(true);
        setFocusPolicy(Qt::TabFocus);
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        connect(this, &QLineEdit::textChanged, this, [this](const QString& now) {
            if (now != Value) setText(Value);
        });
    }

    void ShowValue(const QString& text) {
        if (Value == text) return;
        Value = text;
        setText(text);
    }

  protected:
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        deselect();
    }

  private:
    QString Value;
};

}  // namespace zps

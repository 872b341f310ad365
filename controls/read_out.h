// A field that only shows a value.
#pragma once

#include <QLineEdit>

#include <utility>

namespace zps {

// What is set from outside (a screen reader can set the text of any field) does not stay: it would
// be taken for a value of the supply.
class ReadOut : public QLineEdit {
  public:
    ReadOut(const QString& name, const QString& text, const QString& accessibleName)
        : QLineEdit(text), Value(text) {
        setObjectName(name);
        setAccessibleName(accessibleName);
        setReadOnly(true);
        setFocusPolicy(Qt::NoFocus);
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        connect(this, &QLineEdit::textChanged, this, [this](const QString& now) {
            if (now != Value) setText(Value);
        });
    }

    void ShowValue(const QString& text) {
        Value = text;
        setText(text);
    }

  private:
    QString Value;
};

}  // namespace zps

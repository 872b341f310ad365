// What screen readers hear of controls that only show something.
#pragma once

#include <QLabel>
#include <QString>

namespace zps {

// Lets screen readers have each label's text behind its accessible name, name each Lamp as a
// picture that is on or off, tell whether a SwitchButton is on, press a QRadioButton, and pass over
// a FocusHolder. Once in a program.
void SpeakLabels();

// Shows `text` and, if it is another than before, has screen readers say it. For what changes at an
// event; with what changes at each sample they would never fall silent.
void Say(QLabel& label, const QString& text);
// Has screen readers say what it shows.
void Say(QLabel& label);

}  // namespace zps

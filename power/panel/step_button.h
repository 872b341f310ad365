// The button with the number of a step.
#pragma once

#include "power/panel/step_look.h"

#include <QBasicTimer>
#include <QPushButton>

namespace zps {

// A cell of the step list that can be seen to be a key, in exactly the colour that it was given,
// with a mark beside the number.
class StepButton : public QPushButton {
  public:
    explicit StepButton(const QString& name);

    void SetMark(StepMark mark);
    // Draws the eye to the button for a moment.
    void Flash();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

  private:
    void DrawKey(QPainter& painter) const;
    int MarkSize() const;
    QSize SizeOf(int height) const;

    StepMark Mark = StepMark::None;
    QBasicTimer Flashing;
};

}  // namespace zps

// The frame around all that belongs to the output: its switch, the other switches, the read-outs.
#pragma once

#include "power/panel/output_state.h"

#include <QFrame>
#include <QLabel>

#include <vector>

namespace zps {

// A strip at its top says whether the output is on. On, strip and frame are dark red, to be seen
// from across a room. Nothing in it moves when that changes.
class OutputRegion : public QFrame {
  public:
    // `besides` stand at the right end of the strip, `content` below it. The region owns them all.
    OutputRegion(const std::vector<QLabel*>& besides, QWidget& content);

    void Show(OutputState state);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool On() const { return State == OutputState::On; }

    OutputState State = OutputState::Off;
    QWidget* Strip;
    QLabel* lblRUNNING;
};

}  // namespace zps

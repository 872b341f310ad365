// The sign of the link: how long ago the supply answered last.
#pragma once

#include "controls/pill.h"
#include "power/link/link_watch.h"

namespace zps {

// Keeps its size whatever it says, so that no change of it lays out the window. The states are told
// by words, colour and shape.
class LinkPill : public Pill {
  public:
    LinkPill(const QString& name, const QString& accessibleName);

    void Show(const LinkWatch::View& view);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void Measure();

    Pulse State = Pulse::NotPolled;
};

}  // namespace zps

// A row of numbered panels that shows the bytes of a reply.
#pragma once

#include <QFrame>
#include <QLabel>

#include <cstdint>
#include <span>
#include <vector>

namespace zps {

class NumberPanels : public QFrame {
  public:
    // `name` is the given name of the row; panel i, counted from 1, is `name`_i.
    NumberPanels(const QString& name, int count, QWidget* parent = nullptr);

    int Count() const { return static_cast<int>(Panels.size()); }
    QString Text(int panel) const { return Panels.at(static_cast<std::size_t>(panel - 1))->text(); }

    // Blanks all panels and shows `bytes` as decimal numbers from panel 1 on, as many as fit.
    void ShowBytes(std::span<const std::uint8_t> bytes);

  private:
    std::vector<QLabel*> Panels;
};

}  // namespace zps

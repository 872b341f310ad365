// A row of numbered panels that shows the bytes of a reply.
#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLabel>

#include <cstdint>
#include <span>
#include <vector>

namespace zps {

class NumberPanels : public QFrame {
  public:
    // `name` is the given name of the row; panel i, counted from 1, is `name`_i. More than
    // `perLine` panels go on in a further line.
    NumberPanels(const QString& name, int count, int perLine, QWidget* parent = nullptr);

    int Count() const { return static_cast<int>(Panels.size()); }
    QString Text(int panel) const { return Panels.at(static_cast<std::size_t>(panel - 1))->text(); }

    // Shows `bytes` as decimal numbers from panel 1 on and leaves the other panels as they are.
    // Bytes beyond the last panel are not shown; Grow makes room for them first.
    void ShowBytes(std::span<const std::uint8_t> bytes);
    void Grow(std::size_t count);
    // Blanks the panels `first` to `last`; std::out_of_range where there is none of that number.
    void Blank(int first, int last);

  private:
    void AddPanel();

    QGridLayout* Lines;
    int PerLine;
    std::vector<QLabel*> Panels;
};

}  // namespace zps

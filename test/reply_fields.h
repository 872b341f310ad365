// The decoded fields of the last data reply.
#pragma once

#include "test/monitor_reply.h"

#include <QLabel>

namespace zps {

class ReplyFields : public QWidget {
  public:
    ReplyFields();

    void Show(const std::array<FieldText, FieldCount>& texts);
    // Whether another reply has come since; what is shown then steps back.
    void ShowOld(bool old);

  private:
    struct Cell {
        QLabel* Count = nullptr;
        QLabel* Scaled = nullptr;
    };
    QWidget* MakeCell(std::size_t place);
    void SetStrength(double strength);

    std::array<Cell, FieldCount> Cells{};
    QLabel* lblOLD;
    bool Decoded = false;  // there has been a data reply
};

}  // namespace zps

// The rows of the history.
#pragma once

#include "power/link/history.h"
#include "record/record_model.h"

namespace zps {

class HistoryModel final : public RecordModel {
  public:
    // `history` outlives this.
    explicit HistoryModel(const History& history);

    int Follow() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    const History& Past;
    // The numbers of the events that are rows now.
    std::uint64_t First = 0;
    std::uint64_t End = 0;
};

}  // namespace zps

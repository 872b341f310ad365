// The measurement log as a table: a zero row, then one row for each sample.
#pragma once

#include "power/log/sample_store.h"

#include <QAbstractTableModel>
#include <QString>

#include <array>

namespace zps {

// The columns of the log, in order.
enum class LogColumn : std::uint8_t { No, Time, Step, Voltage, Current };
constexpr int LogColumns = 5;

class LogModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    using RowTexts = std::array<QString, LogColumns>;

    explicit LogModel(QObject* parent = nullptr);

    // The first row, which is always there; it holds texts as they come.
    void SetZeroRow(const RowTexts& texts);
    // Adds a row at the end; `number` is the sample's number in its run.
    void Append(const Sample& sample, std::int32_t number);
    // Removes all rows but the first.
    void ClearSamples();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

  private:
    QString SampleText(std::size_t sample, LogColumn column) const;

    RowTexts ZeroRow;
    SampleStore Samples;
};

}  // namespace zps

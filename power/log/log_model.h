// The measurement log as a table: a zero row, then one row for each sample.
#pragma once

#include "power/log/block_sums.h"
#include "power/log/chart_table.h"
#include "power/log/run_curve.h"
#include "power/log/run_origin.h"
#include "power/log/sample_store.h"

#include <QAbstractTableModel>
#include <QString>

#include <array>
#include <vector>

namespace zps {

constexpr int LogColumns = 5;  // number, time, step, voltage, current
// Whether the numbers begin anew with this row.
constexpr int StartsRunRole = Qt::UserRole;

class LogModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit LogModel(QObject* parent = nullptr);

    // The first row, which is always there; its texts are shown as they come.
    void SetZeroRow(const QString& step, const QString& volts = QStringLiteral("0"),
                    const QString& amps = QStringLiteral("0"));
    // Adds a row at the end; `number` is the sample's number in its run, which `origin` is of.
    void Append(const Sample& sample, std::int32_t number, const RunOrigin& origin = {});
    // Removes all rows but the first.
    void ClearSamples();

    // What the chart shows of `row`; gaps where there is no row, or no number in the zero row.
    ChartPoint PointAt(int row) const;

    // What the samples of the rows `first` to `last` come to; the zero row is none.
    RangeSums SumsOf(int first, int last) const;
    // What a copy of these rows begins with: the program, the runs that they are of, what their
    // samples come to, and the titles.
    QString CopyHead(int first, int last) const;
    // A row of a copy, cells parted by tabs: the columns, and behind them the clock time, CV or CC,
    // whether the supply reports a fault, and its status byte. The zero row, which is no sample and
    // may be of a later run than the rows below it, has but its number and time.
    QString CopyLine(int row) const;
    // The runs that `sums`, of one sample at least, are of.
    QString OriginsOf(const RangeSums& sums) const;

    // The samples over time.
    const RunCurve& Curve() const { return OverTime; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

  private:
    bool StartsRun(int row) const;

    std::array<QString, LogColumns> ZeroRow;
    SampleStore Samples;
    BlockSums Sums{Samples};
    std::vector<RunOrigin> Origins;  // of each run in the store
    RunCurve OverTime{Samples};
};

}  // namespace zps

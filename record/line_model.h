// The rows of the record of the line.
#pragma once

#include "record/exchanges.h"
#include "record/record_model.h"

#include <QString>

#include <deque>
#include <memory>
#include <vector>

namespace zps {

// A narrow window shows the first ones: what is wrong stands before what was said.
enum class LineColumn : std::uint8_t { Time, Port, Direction, Verdict, After, Content, Data };
inline constexpr int LineColumnCount = 7;

// A row for each message of a trace that the filter lets through. What a cell shows is made when
// somebody asks for it.
class LineModel final : public RecordModel {
  public:
    enum class Filter : std::uint8_t {
        All,
        Errors,    // exchanges with one, whole
        Commands,  // all but polls that were answered well
    };

    // `trace` outlives this.
    explicit LineModel(const LineTrace& trace);

    int Follow() override;
    void SetFilter(Filter filter);
    // Stays at what there is now, whatever comes; or goes on.
    void SetPaused(bool paused);
    bool Paused() const { return Frozen != nullptr; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    const LineTrace& Seen() const { return Frozen ? *Frozen : Live; }
    bool Passes(const TracedMessage& message) const;
    void StartOver();

    const LineTrace& Live;
    std::unique_ptr<LineTrace> Frozen;
    serial::Clock::time_point FrozenAt;
    Filter Chosen = Filter::All;
    Exchanges Pairing;
    std::deque<TracedMessage> Rows;
};

}  // namespace zps

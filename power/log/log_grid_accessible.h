// What assistive tools hear of the measurement log's grid.
#pragma once

namespace zps {

// From now on every LogGrid is a table to them. Its rows are those of the model, its children the
// cells that are in sight; a cell is made when it is asked for, and few are kept.
void SpeakLogGrids();

}  // namespace zps

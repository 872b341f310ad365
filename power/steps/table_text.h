// The step table as text for a spreadsheet, and the text of a spreadsheet taken apart: cells parted
// by tabs, lines by line feeds.
#pragma once

#include "source/step_table.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zps {

// The columns of such a text: the number of the step, then its values by StepValue.
inline constexpr std::size_t StepColumn = 0;
inline constexpr std::size_t TableColumns = 1 + StepValueCount;
std::string TableCaption(std::size_t column);

// The steps `first` to `last` below a line of captions. The texts are those on display, so that the
// decimal point is "." everywhere.
std::string TableText(const StepTable& steps, int first, int last);

struct SplitTable {
    struct Line {
        int Number;                      // in the text, counted from 1
        std::vector<std::string> Cells;  // trimmed; without blank ones behind the last filled one
        std::size_t Columns;             // with those
    };
    bool HasSteps = true;   // else the first column is that of the first value
    bool Captioned = true;  // else the number of columns tells
    std::vector<Line> Lines;
};

// More than this is no step table, however it is written.
inline constexpr std::size_t LongestTable = 65536;  // bytes

// A line of captions in front (upper or lower case) is taken off, and so are blank lines in front
// and behind. Without captions six cells in the first line, blank or not, mean that there are
// steps. Line ends of any system, and blanks of any width that spreadsheets put into numbers, are
// understood.
SplitTable SplitTableText(std::string_view text);

}  // namespace zps

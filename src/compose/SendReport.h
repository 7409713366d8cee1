#pragma once

#include "roster/GameDetails.h"

#include <array>
#include <string>

namespace turnpost {

/// One ReportLine for each row. It may hold several lines separated by CR LF, or be empty.
struct SendReport : std::array<std::string, rowCount> {
    /// `row` is 0 to 15.
    std::string& line(int row) { return at(static_cast<size_t>(row)); }
    const std::string& line(int row) const { return at(static_cast<size_t>(row)); }
};

/// What is known about each row when a send has broken off at `currentRow` (0 to 15). Rows before
/// it have the lines that the send has written. The message of the current row may or may not have
/// arrived. Later rows were not reached.
SendReport linesAfterBreak(const SendReport& report, int currentRow);

/// The text of the sending report: for each of the 16 rows "Player n: ", its line and CR LF.
std::string reportText(const SendReport& report);

} // namespace turnpost

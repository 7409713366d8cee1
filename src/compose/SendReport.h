#pragma once

#include "roster/GameDetails.h"

#include <array>
#include <string>

namespace turnpost {

/// One ReportLine for each row; may run over several lines separated by CR LF, or be empty.
struct SendReport : std::array<std::string, rowCount> {
    /// `row` is 0 to 15.
    std::string& line(int row) { return at(static_cast<size_t>(row)); }
    const std::string& line(int row) const { return at(static_cast<size_t>(row)); }
};

/// What is known of each row when a send has broken off at this row (0 to 15): the lines that this
/// send has written, for the row itself that its message may or may not have arrived, and for those
/// after it that they were not reached.
SendReport linesAfterBreak(const SendReport& report, int rowUnderWay);

/// The text of the sending report: all 16 rows, each "Player n: ", its line and CR LF.
std::string reportText(const SendReport& report);

} // namespace turnpost

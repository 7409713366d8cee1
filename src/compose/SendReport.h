#pragma once

#include "roster/GameDetails.h"

#include <array>
#include <string>

namespace turnpost {

/// One ReportLine for each row; may run over several lines separated by CR LF, or be empty.
using SendReport = std::array<std::string, rowCount>;

/// The text of the sending report: all 16 rows, each "Player n: ", its line and CR LF.
std::string reportText(const SendReport& report);

} // namespace turnpost

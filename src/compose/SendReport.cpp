#include "compose/SendReport.h"

#include "text/Messages.h"

namespace turnpost {

SendReport linesAfterBreak(const SendReport& report, int currentRow) {
    SendReport lines;
    for (int row = 0; row < rowCount; ++row) {
        lines.line(row) = row < currentRow    ? report.line(row)
                          : row == currentRow ? messages::brokeOffHere
                                              : messages::notReached;
    }
    return lines;
}

std::string reportText(const SendReport& report) {
    std::string text;
    for (int row = 0; row < rowCount; ++row) {
        text += messages::reportPrefix(row) + report.line(row) + "\r\n";
    }
    return text;
}

} // namespace turnpost

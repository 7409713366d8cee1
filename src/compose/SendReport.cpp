#include "compose/SendReport.h"

#include "text/Messages.h"

namespace turnpost {

SendReport linesAfterBreak(const SendReport& report, int rowUnderWay) {
    SendReport lines;
    for (int row = 0; row < rowCount; ++row) {
        lines.line(row) = row < rowUnderWay    ? report.line(row)
                          : row == rowUnderWay ? messages::brokeOffHere
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

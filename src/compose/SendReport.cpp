#include "compose/SendReport.h"

#include "text/Messages.h"

namespace turnpost {

SendReport linesAfterBreak(const SendReport& report, int rowUnderWay) {
    SendReport lines;
    for (int row = 0; row < rowCount; ++row) {
        lines[static_cast<size_t>(row)] = row < rowUnderWay    ? report[static_cast<size_t>(row)]
                                          : row == rowUnderWay ? messages::brokeOffHere()
                                                               : messages::notReached();
    }
    return lines;
}

std::string reportText(const SendReport& report) {
    std::string text;
    for (int row = 0; row < rowCount; ++row) {
        text += messages::reportPrefix(row) + report[static_cast<size_t>(row)] + "\r\n";
    }
    return text;
}

} // namespace turnpost

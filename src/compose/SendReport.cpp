#include "compose/SendReport.h"

#include "platform/Messages.h"

namespace turnpost {

std::string reportText(const SendReport& report) {
    std::string text;
    for (int row = 0; row < rowCount; ++row) {
        text += messages::reportPrefix(row) + report[static_cast<size_t>(row)] + "\r\n";
    }
    return text;
}

} // namespace turnpost

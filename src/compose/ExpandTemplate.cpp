#include "compose/ExpandTemplate.h"

#include "text/Version.h"

#include <stdexcept>

namespace turnpost {

namespace {

std::string replaceAll(std::string_view text, std::string_view placeholder,
                       std::string_view value) {
    std::string result;
    size_t from = 0;
    for (size_t found = text.find(placeholder); found != std::string_view::npos;
         found = text.find(placeholder, from)) {
        result.append(text.substr(from, found - from)).append(value);
        from = found + placeholder.size();
        if (result.size() > maxExpandedBytes) {
            throw std::length_error("the text grows too long");
        }
    }
    return result.append(text.substr(from));
}

} // namespace

std::string FirstName(std::string_view playerName) {
    return std::string(playerName.substr(0, playerName.find(' ')));
}

std::string ExpandTemplate(std::string_view text, std::string_view gameName, int row,
                           std::string_view playerName, std::int16_t gameYear) {
    std::string result = replaceAll(text, "<<GN>>", gameName);
    result = replaceAll(result, "<<PN>>", std::to_string(row + 1));
    result = replaceAll(result, "<<FN>>", FirstName(playerName));
    return replaceAll(result, "<<GY>>", std::to_string(gameYear));
}

MessageTemplate defaultTemplate() {
    return {"Turn <<GY>> for <<GN>> - Player <<PN>>",
            "Hello <<FN>>,\r\n"
            "\r\n"
            "Attached is turn <<GY>> for <<GN>>\r\n"
            "\r\n"
            "Please make sure that you Save & Submit, and return your X<<PN>> file\r\n"
            "\r\n"
            "\r\n"
            "This message has been sent to you using Nimbus Turnpost Version " +
                versionText()};
}

} // namespace turnpost

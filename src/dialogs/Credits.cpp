#include "dialogs/Credits.h"

#include "CreditsText.h"

#include <sstream>

namespace turnpost {

std::string credits() {
    std::istringstream lines(creditsText);
    std::string text;
    std::string line;
    for (int number = 1; number <= 4 && std::getline(lines, line); ++number) {
        text += (number == 1 ? "" : number == 4 ? "\r\n\r\n" : "\r\n") + line;
    }
    return text;
}

} // namespace turnpost

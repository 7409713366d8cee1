#include "Property.h"
#include "compose/ExpandTemplate.h"

using namespace turnpost;
using fuzz::require;

namespace {

// One step, taken character by character.
std::string filled(const std::string& text, const std::string& placeholder,
                   const std::string& value) {
    std::string result;
    for (size_t i = 0; i < text.size();) {
        const bool here = text.compare(i, placeholder.size(), placeholder) == 0;
        result += here ? value : text.substr(i, 1);
        i += here ? placeholder.size() : 1;
    }
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    // Longer ones multiply to megabytes.
    if (size < 3 || size > 1000) {
        return 0;
    }
    const int row = data[0] % 16;
    const auto year = static_cast<std::int16_t>(data[1] << 8 | data[2]);
    const auto texts = fuzz::textsOf(data + 3, size - 3, 3);
    const std::string& game = texts[0];
    const std::string& player = texts[1];
    const std::string& text = texts[2];
    const std::string result = ExpandTemplate(text, game, row, player, year);

    const std::string first = FirstName(player);
    require(first.find(' ') == std::string::npos && player.starts_with(first),
            "a first name is the beginning of the name");
    std::string expected = filled(text, "<<GN>>", game);
    expected = filled(expected, "<<PN>>", std::to_string(row + 1));
    expected = filled(expected, "<<FN>>", first);
    require(result == filled(expected, "<<GY>>", std::to_string(year)),
            "four steps in order, each leaving alone what it has put in");
    return 0;
}

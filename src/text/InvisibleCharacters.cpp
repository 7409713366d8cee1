#include "text/InvisibleCharacters.h"

#include <algorithm>
#include <iterator>

namespace turnpost {

bool isInvisible(char32_t character) {
    struct Range {
        char32_t first;
        char32_t last;
    };
    static constexpr Range invisible[] = {{0xA0, 0xA0},     {0xAD, 0xAD},     {0x200B, 0x200F},
                                          {0x202A, 0x202E}, {0x2060, 0x2064}, {0x2066, 0x2069},
                                          {0xFEFF, 0xFEFF}};
    return std::any_of(std::begin(invisible), std::end(invisible), [character](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

} // namespace turnpost

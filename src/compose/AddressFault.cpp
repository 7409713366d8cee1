#include "compose/AddressFault.h"

#include "text/CodePage.h"
#include "text/InvisibleCharacters.h"
#include "text/Messages.h"
#include "text/Text.h"

namespace turnpost {

std::optional<Refusal> addressFault(std::string_view address, Transport transport) {
    const std::string line = oneLine(address);
    int place = 1;
    for (size_t position = 0; position < line.size(); ++place) {
        const char32_t character = nextCodePoint(line, position);
        if (isInvisible(character)) {
            return Refusal{messages::invisibleCharacter(place, character)};
        }
        if (transport == Transport::Smtp && !hasWireBytes(character)) {
            return Refusal{messages::unwritableCharacter(place, character)};
        }
    }
    return std::nullopt;
}

} // namespace turnpost

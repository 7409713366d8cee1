#pragma once

namespace turnpost {

/// True for a character that cannot be seen in a text box and is easily pasted with an address:
/// soft hyphen, no-break space, the zero-width and joining characters, the marks of writing
/// direction, and the byte order mark.
bool isInvisible(char32_t character);

} // namespace turnpost

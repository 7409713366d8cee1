#pragma once

namespace turnpost {

/// True for a character that nobody sees in a text box and that comes along with pasted addresses:
/// soft hyphen, no-break space, the zero-width and joining characters, the marks of writing
/// direction, and the byte order mark.
bool isInvisible(char32_t character);

} // namespace turnpost

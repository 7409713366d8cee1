#pragma once

#include <string>

namespace turnpost {

/// The words that the system has for one of its error codes, in its language and on one line; empty
/// when it has none. Windows only: elsewhere the standard library has them in UTF-8.
std::string systemErrorWords(unsigned long code);

} // namespace turnpost

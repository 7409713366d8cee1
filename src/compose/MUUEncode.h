#pragma once

#include <string>
#include <string_view>

namespace turnpost {

/// One file as a UUencoded block: "begin 664 " and the name, the data lines, a line of one grave
/// accent, "end"; lines end in CR LF. The name is the part of `path` after its last separator.
/// The file is read once, so that length and content agree. Throws FileError when it cannot be
/// read.
std::string UUEncode(const std::string& path);

/// The block for bytes that have been read already. A line break in the name becomes a blank,
/// because it would end the header line. The last data line is padded with spaces, not zeros; it
/// holds no bytes when the length is a multiple of 45.
std::string uuencodedBlock(std::string_view name, std::string_view bytes);

} // namespace turnpost

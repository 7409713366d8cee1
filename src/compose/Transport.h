#pragma once

namespace turnpost {

/// The two ways of sending. They differ in the characters that an address may hold, and in the
/// files that are still checked once a row has been refused.
enum class Transport { Smtp, Mapi };

} // namespace turnpost

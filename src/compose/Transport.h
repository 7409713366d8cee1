#pragma once

namespace turnpost {

/// The two ways of sending. They differ in some of the rules by which a row gets a message.
enum class Transport { Smtp, Mapi };

} // namespace turnpost

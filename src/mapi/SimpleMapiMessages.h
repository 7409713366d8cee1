#pragma once

#include "mapi/ComposedMessage.h"
#include "mapi/SimpleMapi.h"

#include <memory>

namespace turnpost {

/// Submits messages through Simple MAPI. Names and texts go out as they are, paths with the
/// system's separator. An address gets the type "SMTP:" in front, which the form of Simple MAPI's
/// addresses asks for, unless it names a type itself ("FAX:...").
class SimpleMapiMessages final : public ComposedMessage {
  public:
    explicit SimpleMapiMessages(std::shared_ptr<SimpleMapi> mapi) : mapi_(std::move(mapi)) {}

    std::optional<Refusal> Send() override;

  private:
    std::shared_ptr<SimpleMapi> mapi_;
};

} // namespace turnpost

#pragma once

#include "mapi/ComposedMessage.h"
#include "mapi/SimpleMapi.h"

#include <memory>

namespace turnpost {

/// Submits messages through Simple MAPI. Names and texts are passed unchanged, paths with the
/// system's separator. Simple MAPI wants a type in front of each address; an address that names
/// none itself (like "FAX:...") gets "SMTP:".
class SimpleMapiMessages final : public ComposedMessage {
  public:
    explicit SimpleMapiMessages(std::shared_ptr<SimpleMapi> mapi) : mapi_(std::move(mapi)) {}

    std::optional<Refusal> Send() override;

  private:
    std::shared_ptr<SimpleMapi> mapi_;
};

} // namespace turnpost

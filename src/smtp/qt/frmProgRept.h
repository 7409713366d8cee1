#pragma once

#include "compose/SendReport.h"
#include "widgets/Form.h"

namespace turnpost {

/// The sending report: what happened to each of the 16 rows. It has no buttons; the host closes it
/// with the close box.
class frmProgRept final : public Form {
  public:
    frmProgRept(QWidget* parent, const SendReport& report);
};

} // namespace turnpost

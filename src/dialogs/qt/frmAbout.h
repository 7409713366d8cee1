#pragma once

#include "text/Version.h"
#include "widgets/Form.h"

namespace turnpost {

/// The About box: title, version and credits. Enter and Escape close it too.
class frmAbout final : public Form {
  public:
    explicit frmAbout(QWidget* parent, const Version& version = currentVersion);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace turnpost

#pragma once

#include "app/Application.h"
#include "platform/qt/Form.h"

namespace turnpost {

/// The e-mail settings dialog. Only OK stores anything.
class frmSettings final : public Form {
  public:
    frmSettings(QWidget* parent, Application& usedApplication);

  private:
    void butOK_Click();

    Application& application;
    QLineEdit* txtHostName;
    QLineEdit* txtHostEmail;
    QLineEdit* txtSMTP;
};

} // namespace turnpost

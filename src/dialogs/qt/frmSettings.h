#pragma once

#include "storage/Settings.h"
#include "widgets/Form.h"

#include <functional>

namespace turnpost {

/// The e-mail settings dialog. Only OK stores anything.
class frmSettings final : public Form {
  public:
    /// On OK, `store` gets the host's name and address and the server as they were typed.
    using Store = std::function<void(const std::string& hostName, const std::string& hostEmail,
                                     const std::string& smtpServer)>;

    frmSettings(QWidget* parent, const Settings& settings, Store store);

  private:
    void butOK_Click();

    Store store_;
    QLineEdit* txtHostName;
    QLineEdit* txtHostEmail;
    QLineEdit* txtSMTP;
};

} // namespace turnpost

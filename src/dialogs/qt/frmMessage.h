#pragma once

#include "app/Application.h"
#include "compose/MessageTemplate.h"
#include "platform/qt/Form.h"

namespace turnpost {

/// The message editor: subject and body of the template. Only OK stores anything; a text in
/// which nothing was typed stays as it was, to the character. Its buttons do not answer Enter.
class frmMessage final : public Form {
  public:
    frmMessage(QWidget* parent, Application& usedApplication);

  protected:
    bool enterPressesButtons() const override { return false; }

  private:
    void showTemplate(const MessageTemplate& message);
    void mnuOK_Click();
    void Default_Click();

    Application& application;
    QLineEdit* txtSubject;
    QPlainTextEdit* txtMessage;
    MessageTemplate shown;
};

} // namespace turnpost

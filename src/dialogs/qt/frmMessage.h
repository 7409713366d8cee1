#pragma once

#include "compose/MessageTemplate.h"
#include "widgets/Form.h"

#include <functional>

namespace turnpost {

/// The message editor: subject and body of the template. Only OK stores anything. A text in which
/// nothing was typed stays unchanged to the character. Enter does not press its buttons.
class frmMessage final : public Form {
  public:
    using Store = std::function<void(const MessageTemplate&)>;

    frmMessage(QWidget* parent, const MessageTemplate& message, Store store);

  protected:
    bool enterPressesButtons() const override { return false; }

  private:
    void showTemplate(const MessageTemplate& message);
    void mnuOK_Click();
    void Default_Click();

    Store store_;
    QLineEdit* txtSubject;
    QPlainTextEdit* txtMessage;
    MessageTemplate shown_;
};

} // namespace turnpost

#include "dialogs/qt/frmMessage.h"

#include "compose/ExpandTemplate.h"
#include "text/qt/QtText.h"
#include "widgets/OneLineBox.h"
#include "widgets/Twips.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextDocument>

namespace turnpost {

frmMessage::frmMessage(QWidget* parent, const MessageTemplate& message, Store store)
    : Form(parent, "frmMessage", "Edit Message", {7200, 5550}), store_(std::move(store)) {
    addLabel("Label1", "Subject:", twipsRect(240, 180, 1215, 255));
    txtSubject = addTextBox("txtSubject", twipsRect(1440, 150, 5520, 315), "Subject");
    addLabel("Label2", "Your Message:", twipsRect(240, 570, 2415, 255));
    txtMessage = addTextArea("txtMessage", twipsRect(240, 825, 6720, 3300), "Your message");
    txtMessage->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    addLabel("Label3", "<<GN>> - Game Name", twipsRect(240, 4275, 3120, 255));
    addLabel("Label4", "<<PN>> - Player Number", twipsRect(240, 4545, 3120, 255));
    addLabel("Label5", "<<FN>> - Player First Name", twipsRect(3600, 4275, 3360, 255));
    addLabel("Label6", "<<GY>> - Game Year", twipsRect(3600, 4545, 3360, 255));
    QPushButton* mnuOK = addButton("mnuOK", "OK", twipsRect(1800, 4935, 1695, 495));
    QPushButton* buttonDefault = addButton("Default", "Default", twipsRect(3720, 4935, 1695, 495));
    connect(mnuOK, &QPushButton::clicked, this, &frmMessage::mnuOK_Click);
    connect(buttonDefault, &QPushButton::clicked, this, &frmMessage::Default_Click);
    showTemplate(message);
}

void frmMessage::showTemplate(const MessageTemplate& message) {
    if (textOf(txtMessage) != message.MessageBody) {
        showText(txtMessage, toQt(message.MessageBody));
    }
    showLine(txtSubject, message.MessageSubject);
    shown_ = message;
}

void frmMessage::Default_Click() {
    showTemplate(defaultTemplate());
}

void frmMessage::mnuOK_Click() {
    // The boxes cannot hold every kind of line break that a file can.
    const bool typedBody = txtMessage->document()->isModified();
    store_({txtSubject->isModified() ? fromQt(txtSubject->text()) : shown_.MessageSubject,
            typedBody ? textOf(txtMessage) : shown_.MessageBody});
    accept();
}

} // namespace turnpost

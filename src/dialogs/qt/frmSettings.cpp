#include "dialogs/qt/frmSettings.h"

#include "text/qt/QtText.h"
#include "widgets/Twips.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace turnpost {

frmSettings::frmSettings(QWidget* parent, const Settings& settings, Store store)
    : Form(parent, "frmSettings", "Email Settings", {5700, 2100}), store_(std::move(store)) {
    addLabel("Label1", "Your Name:", twipsRect(240, 240, 1935, 255));
    txtHostName = addTextBox("txtHostName", twipsRect(2760, 240, 2775, 315), "Your name");
    addLabel("Label2", "Your Email Address:", twipsRect(240, 600, 2535, 315));
    txtHostEmail =
        addTextBox("txtHostEmail", twipsRect(2760, 600, 2775, 315), "Your email address");
    takeAddresses(txtHostEmail);
    addLabel("Label3", "SMTP Address:", twipsRect(240, 960, 2415, 315));
    txtSMTP = addTextBox("txtSMTP", twipsRect(2760, 960, 2775, 315), "SMTP address");
    takeAddresses(txtSMTP);
    txtHostName->setText(toQt(settings.HostName));
    txtHostEmail->setText(toQt(settings.HostEmail));
    txtSMTP->setText(toQt(settings.SmtpServer));
    QPushButton* butOK = addButton("butOK", "OK", twipsRect(1800, 1500, 2175, 495));
    connect(butOK, &QPushButton::clicked, this, &frmSettings::butOK_Click);
}

void frmSettings::butOK_Click() {
    store_(fromQt(txtHostName->text()), fromQt(txtHostEmail->text()), fromQt(txtSMTP->text()));
    accept();
}

} // namespace turnpost

#include "smtp/qt/frmProgRept.h"

#include "text/qt/QtText.h"
#include "widgets/Twips.h"

#include <QPlainTextEdit>

namespace turnpost {

frmProgRept::frmProgRept(QWidget* parent, const SendReport& report)
    : Form(parent, "frmProgRept", "Turn Sending Report", {4770, 4755}) {
    QPlainTextEdit* txtReport =
        addTextArea("txtReport", twipsRect(240, 240, 4335, 4215), "Sending report");
    txtReport->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtReport->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    makeReadOnly(txtReport);
    showText(txtReport, toQt(reportText(report)).replace("\r\n", "\n"));
}

} // namespace turnpost

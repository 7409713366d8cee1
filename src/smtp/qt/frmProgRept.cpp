#include "smtp/qt/frmProgRept.h"

#include "platform/qt/QtText.h"
#include "platform/qt/Twips.h"

#include <QPlainTextEdit>
#include <QTextOption>

namespace turnpost {

namespace {

// UTF-16 units, far more than common servers' words fill.
constexpr qsizetype longReport = 16384;

} // namespace

frmProgRept::frmProgRept(QWidget* parent, const SendReport& report)
    : Form(parent, "frmProgRept", "Turn Sending Report", {4770, 4755}) {
    QPlainTextEdit* txtReport =
        addTextArea("txtReport", twipsRect(240, 240, 4335, 4215), "Sending report");
    txtReport->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtReport->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    makeReadOnly(txtReport);
    const QString text = toQt(reportText(report)).replace("\r\n", "\n");
    if (text.size() > longReport) {
        // For each line it breaks, the toolkit looks for the end of the word: a megabyte without a
        // blank, which a server can send, would hold the window up for more than a minute.
        txtReport->setWordWrapMode(QTextOption::WrapAnywhere);
    }
    txtReport->setPlainText(text);
}

} // namespace turnpost

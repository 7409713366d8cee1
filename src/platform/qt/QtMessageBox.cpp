#include "platform/qt/QtMessageBox.h"

#include "platform/Version.h"
#include "platform/qt/QtText.h"

#include <QMessageBox>

namespace turnpost {

void showMessageBox(QWidget* parent, const std::string& text) {
    QMessageBox box(QMessageBox::NoIcon, applicationTitle, QString(), QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.setText(toQt(text).replace("\r\n", "\n"));
    box.exec();
}

} // namespace turnpost

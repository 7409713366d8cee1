#include "widgets/QtMessageBox.h"

#include "text/Version.h"
#include "text/qt/QtText.h"
#include "widgets/WindowFrame.h"

#include <QGridLayout>
#include <QMessageBox>
#include <QSpacerItem>

namespace turnpost {

namespace {

// The font of the window manager is not known, so this is an estimate. Frames have about 60 pixels
// of buttons beside the caption.
void makeWideEnoughForCaption(QMessageBox& box) {
    QFont font = box.font();
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) * 5 / 4 + 90;
    auto* layout = static_cast<QGridLayout*>(box.layout());
    layout->addItem(new QSpacerItem(width, 0), layout->rowCount(), 0, 1, layout->columnCount());
}

} // namespace

void showMessageBox(QWidget* parent, const std::string& text) {
    QMessageBox box(QMessageBox::NoIcon, applicationTitle, QString(), QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.setText(toQt(text).replace("\r\n", "\n"));
    makeWideEnoughForCaption(box);
    frameAsDialog(&box);
    box.exec();
}

} // namespace turnpost

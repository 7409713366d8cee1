#include "PictureCheck.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QFontInfo>
#include <QPainter>
#include <QPalette>
#include <QRawFont>
#include <QStyle>
#include <QWindow>
#include <cstdlib>
#include <iostream>
#include <map>

namespace turnpost::demo {

namespace {

// The pictures that are compared. Of some controls only the outline is compared: they show paths,
// which differ between machines.
const std::map<QString, QStringList> comparedPictures = {
    {"about", {}},
    {"attachments", {"txtFile(0)"}},
    {"email-settings", {}},
    {"main", {"txtGamePath"}},
    {"main-dark", {"txtGamePath"}},
    {"main-empty", {}},
    {"main-sent", {"txtGamePath"}},
    {"message", {}},
    {"message-box", {}},
    {"picker", {"Drive1", "Dir1"}},
    {"picker-open", {"Drive1", "Dir1"}},
    {"report", {}},
    {"sending", {"txtGamePath"}},
    {"stored-games", {"txtStoreFile(0)"}},
};

constexpr int outline = 1; // pixels

// Of 255. On one processor nothing differs; others may round the colours of corners and slopes
// differently.
constexpr int tolerance = 2;

const char* const clientKey = "Client area";
const char* const drawingKey = "Drawn by";

// Qt, the font that it found, and what both make of a text: this depends on the machine's libraries
// and settings too. Windows look the same only where all of this is the same.
QString drawing() {
    QImage sample(900, 60, QImage::Format_RGB32);
    sample.fill(Qt::white);
    QString letters;
    for (char letter = '!'; letter <= '~'; ++letter) {
        letters += letter;
    }
    QPainter painter(&sample);
    QFont small;
    small.setPixelSize(11);
    painter.drawText(0, 20, letters);
    painter.setFont(small);
    painter.drawText(0, 50, letters);
    painter.end();
    const QByteArray bytes(reinterpret_cast<const char*>(sample.constBits()), sample.sizeInBytes());
    const auto hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
    const QByteArray head = QRawFont::fromFont(QFont()).fontTable("head");
    return QString("Qt %1, font %2 (file's checksum %3), text %4, scale %5")
        .arg(qVersion(), QFontInfo(QFont()).family(), QString(head.mid(8, 4).toHex()),
             QString(hash.left(4).toHex()))
        .arg(qApp->devicePixelRatio());
}

QRegion pathsIn(QWidget& window, const QStringList& controls) {
    QRegion region;
    for (const QString& name : controls) {
        if (auto* control = window.findChild<QWidget*>(name)) {
            const QRect place(control->mapTo(&window, QPoint()), control->size());
            region += place.adjusted(outline, outline, -outline, -outline);
        }
    }
    return region;
}

bool differ(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) > tolerance || std::abs(qGreen(a) - qGreen(b)) > tolerance ||
           std::abs(qBlue(a) - qBlue(b)) > tolerance;
}

// Makes `drawn` pale and marks in red what differs. Returns the number of these pixels; with
// another size, all of them.
int markDifferences(QImage& drawn, const QImage& stored, const QRegion& leftOut) {
    const bool resized = drawn.size() != stored.size();
    int count = 0;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const QRgb pixel = drawn.pixel(x, y);
            const bool differs =
                resized || (differ(stored.pixel(x, y), pixel) && !leftOut.contains({x, y}));
            count += differs ? 1 : 0;
            const int pale = 192 + qGray(pixel) / 4;
            drawn.setPixel(x, y, differs ? qRgb(255, 0, 0) : qRgb(pale, pale, pale));
        }
    }
    return count;
}

} // namespace

void drawAsInPictures(const QString& font, bool dark) {
    QApplication::setCursorFlashTime(0);
    QApplication::setFont(QFont(font, 10));
    QPalette palette = QApplication::style()->standardPalette();
    if (dark) {
        palette = QPalette(QColor(53, 53, 53));
        palette.setColor(QPalette::Base, QColor(35, 35, 35));
        palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(QPalette::Disabled, role, Qt::gray);
        }
    }
    QApplication::setPalette(palette);
}

void storePicture(QImage picture, const QWidget& window, const QString& file) {
    const QPoint corner = window.geometry().topLeft() - window.frameGeometry().topLeft();
    picture.setText(clientKey, QString("%1 %2 %3 %4")
                                   .arg(corner.x())
                                   .arg(corner.y())
                                   .arg(window.width())
                                   .arg(window.height()));
    picture.setText(drawingKey, drawing());
    picture.save(file);
}

void PictureCheck::take(QWidget& window, const QString& name) {
    QImage drawn = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QString file = QString("%1/%2.png").arg(folder_, name);
    drawn.save(file);
    const auto entry = comparedPictures.find(name);
    if (entry == comparedPictures.end()) {
        return;
    }
    const QString guideFile = QString(TURNPOST_PICTURES "/%1.png").arg(name);
    const QImage guide(guideFile);
    const QStringList client = guide.text(clientKey).split(' ');
    if (client.size() != 4) {
        complain(guideFile + " is missing or not from tools/screenshots --docs");
        return;
    }
    if (guide.text(drawingKey) != drawing()) {
        drawnByOthers_ = guide.text(drawingKey);
        return;
    }
    ++compared_;
    const QImage stored =
        guide.copy({client[0].toInt(), client[1].toInt(), client[2].toInt(), client[3].toInt()});
    const int count = markDifferences(drawn, stored, pathsIn(window, entry->second));
    if (count > 0) {
        const QString marked = QString("%1/%2-difference.png").arg(folder_, name);
        drawn.save(marked);
        complain(QString("%1 differs from %2 in %3 pixels; they are red in %4")
                     .arg(file, guideFile)
                     .arg(count)
                     .arg(marked));
    }
}

void PictureCheck::complain(const QString& what) {
    std::cerr << "demo: " << what.toStdString() << '\n';
    good_ = false;
}

bool PictureCheck::finish() {
    if (!drawnByOthers_.isEmpty()) {
        std::cout << "The windows were not all compared with the guide's pictures, because other "
                     "software drew these: "
                  << drawnByOthers_.toStdString() << ". Here draws: " << drawing().toStdString()
                  << '\n';
    } else if (compared_ != comparedPictures.size() && good_) {
        complain("not every window was compared with its picture");
    }
    if (good_ && compared_ == comparedPictures.size()) {
        std::cout << compared_ << " windows look as in the guide's pictures.\n";
    }
    return good_;
}

} // namespace turnpost::demo

#include "Evening.h"

#include <QApplication>
#include <QDir>
#include <iostream>

namespace {

constexpr int usualPoints = 10; // of a desktop's font

QPalette darkPalette() {
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    for (const auto role : {QPalette::ButtonText, QPalette::WindowText, QPalette::Text}) {
        palette.setColor(QPalette::Disabled, role, QColor(127, 127, 127));
    }
    return palette;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 5) {
        std::cerr << "usage: turnpost_pictures light|dark FONT HOME FOLDER\n";
        return 2;
    }
    turnpost::Desktop::prepareToolkit();
    if (arguments[1] == "dark") {
        QApplication::setPalette(darkPalette());
    }
    QApplication::setFont(QFont(arguments[2], usualPoints));
    QApplication::setCursorFlashTime(0);
    turnpost::pictures::Evening evening(arguments[3], arguments[4]);
    try {
        return evening.play() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::cerr << "pictures: " << failure.what() << '\n';
        return 1;
    }
}

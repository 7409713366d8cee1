#include "fullgame/FullGame.h"

#include <QApplication>
#include <QFileInfo>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: turnpost_fullgame SERVER:PORT FOLDER\n";
        return 2;
    }
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QApplication::setQuitOnLastWindowClosed(false);
    const QString folder = QFileInfo(QString::fromLocal8Bit(argv[2])).absoluteFilePath();
    try {
        turnpost::fullgame::FullGame game(folder.toStdString(), argv[1]);
        for (int round = 0; round < turnpost::fullgame::FullGame::rounds; ++round) {
            if (!game.play(round)) {
                return 1;
            }
        }
    } catch (const std::exception& failure) {
        std::cerr << "fullgame: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}

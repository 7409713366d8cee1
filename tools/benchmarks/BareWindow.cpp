// A window with a hundred controls that do nothing, to be compared with the main window.
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(780, 560);
    for (int row = 0; row < 20; ++row) {
        const QString number = QString::number(row + 1);
        QWidget* const controls[] = {new QCheckBox(&window), new QLabel(number, &window),
                                     new QLineEdit("Captain" + number, &window),
                                     new QLineEdit("p" + number + "@example.org", &window),
                                     new QPushButton("Button " + number, &window)};
        for (int i = 0; i < 5; ++i) {
            controls[i]->setGeometry(10 + 154 * i, 10 + 27 * row, 149, 24);
        }
    }
    window.show();
    return QApplication::exec();
}

#pragma once

#include <QDialog>
#include <QRect>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace turnpost {

/// Base of all windows: a fixed size in twips, centred on the screen with its frame, controls
/// placed by hand, one font small enough for every caption. Enter presses the button that has the
/// focus; Escape does nothing. Labels and boxes show plain text only. The name of a control is its
/// object name.
class Form : public QDialog {
  public:
    /// A dialog has no minimise box, no maximise box and no task-bar entry. The main window has no
    /// maximise box.
    enum class Frame { Dialog, MainWindow };

    /// `clientSize` in twips.
    Form(QWidget* parent, const QString& name, const QString& caption, QSize clientSize,
         Frame frame = Frame::Dialog);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    virtual bool enterPressesButtons() const { return true; }

    /// Makes room above the client area, in pixels, for a menu bar.
    void setMenuHeight(int pixels);

    // The positions are in twips (twipsRect).
    QLabel* addLabel(const QString& name, const QString& caption, const QRect& place);
    QLineEdit* addTextBox(const QString& name, const QRect& place, const QString& accessibleName);
    QPlainTextEdit* addTextArea(const char* name, const QRect& place,
                                const QString& accessibleName);
    QPushButton* addButton(const QString& name, const QString& caption, const QRect& place);

    QWidget* client() const { return clientArea_; }

  private:
    QWidget* clientArea_;
};

/// A one-line text box that holds one line of any length (OneLineBox), at a place in pixels.
QLineEdit* makeTextBox(QWidget* parent, const QString& name, const QRect& place,
                       const QString& accessibleName);

/// Makes a text box read-only, and makes it look so.
void makeReadOnly(QLineEdit* box);
void makeReadOnly(QPlainTextEdit* box);

/// Makes a box of makeTextBox or addTextBox one for addresses: pasting and dropping leave out
/// invisible characters, which nobody would find there (OneLineBox::takeAddresses).
void takeAddresses(QLineEdit* box);

/// Fills a multi-line box with a text of any length. The text wraps between words, but anywhere if
/// it has a line of more than 16,384 UTF-16 units, which only servers and foreign files send.
void showText(QPlainTextEdit* box, const QString& text);

/// The text of a multi-line box with CR LF line ends. Nothing else is changed, non-breaking spaces
/// included.
std::string textOf(const QPlainTextEdit* box);

} // namespace turnpost

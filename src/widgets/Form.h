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
/// focus; Escape does nothing. Texts of labels and boxes are plain, whatever they hold. Controls
/// carry their names as object names.
class Form : public QDialog {
  public:
    /// A dialog has neither minimise nor maximise box and no entry in the task bar, the main window
    /// no maximise box.
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

/// Marks a text box as not editable, in behaviour and in look.
void makeReadOnly(QLineEdit* box);
void makeReadOnly(QPlainTextEdit* box);

/// Marks a box made by makeTextBox or addTextBox as one for an address: pasting and dropping leave
/// out invisible characters, which nobody would find there (OneLineBox::takeAddresses).
void takeAddresses(QLineEdit* box);

/// Fills a multi-line box with a text of any length. It wraps between words; when it has a line of
/// more than 16,384 UTF-16 units, as only a server or a foreign file sends one, it wraps anywhere.
void showText(QPlainTextEdit* box, const QString& text);

/// The text of a multi-line box with CR LF line ends. Nothing else is changed, hard blanks
/// included.
std::string textOf(const QPlainTextEdit* box);

} // namespace turnpost

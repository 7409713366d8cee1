#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

namespace turnpost::demo {

/// Draws all new windows of this program in this font and in Qt's own light or dark palette, as the
/// pictures of the guide are, whatever the desktop's settings are. The cursor does not blink.
void drawAsInPictures(const QString& font, bool dark);

/// Saves a picture of the screen that shows `window` with its frame. The file also says where in
/// the picture the client area is, and what drew it.
void storePicture(QImage picture, const QWidget& window, const QString& file);

/// Compares windows with the pictures of the guide, which tools/screenshots --docs makes. Only
/// where the same Qt, fonts and settings draw do windows look exactly as they do there; elsewhere
/// nothing is compared.
class PictureCheck {
  public:
    /// Pictures are left in `folder`.
    explicit PictureCheck(QString folder) : folder_(std::move(folder)) {}

    /// Saves the client area of a window as NAME.png and compares it with the guide's picture of
    /// this name, if there is one to compare. Prints a difference to standard error and marks it in
    /// NAME-difference.png.
    void take(QWidget& window, const QString& name);

    /// Call after the last picture. Prints that the windows look as in the guide, or why they were
    /// not compared. False if a window differed, a picture of the guide could not be used, or a
    /// window to be compared was never taken.
    bool finish();

  private:
    void complain(const QString& what);

    QString folder_;
    QString drawnByOthers_;
    size_t compared_ = 0;
    bool good_ = true;
};

} // namespace turnpost::demo

#pragma once

class QWidget;

namespace turnpost {

/// Plays the closing animation on a window and leaves it shrunk. Where the window system does not
/// let a program place its windows, only the sizes change.
void playMainClosing(QWidget* window);

} // namespace turnpost

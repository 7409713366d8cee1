#pragma once

class QDialog;
class QWidget;

namespace turnpost {

/// Centres the window on its screen, frame included, when it is first shown.
void centreOnScreen(QWidget* window);

/// Gives a dialog a frame with a title and a close box, without minimise and maximise boxes. Keeps
/// it out of the task bar, even when it has no owner, and centres it on its screen.
void frameAsDialog(QDialog* window);

} // namespace turnpost

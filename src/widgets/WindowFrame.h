#pragma once

class QDialog;
class QWidget;

namespace turnpost {

/// Centres the window on its screen, frame included, when it is first shown.
void centreOnScreen(QWidget* window);

/// Gives a dialog its frame: a title and a close box, neither minimise nor maximise box, no entry
/// in the task bar, also when it belongs to no window. Centres it on its screen.
void frameAsDialog(QDialog* window);

} // namespace turnpost

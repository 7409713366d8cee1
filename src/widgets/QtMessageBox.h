#pragma once

#include <string>

class QWidget;

namespace turnpost {

/// Shows a modal message box with an OK button, no icon and the application title. The text is
/// plain, never rich text.
void showMessageBox(QWidget* parent, const std::string& text);

} // namespace turnpost

#pragma once

#include <string>

class QWidget;

namespace turnpost {

/// Shows a modal message box with an OK button, no icon and the application title; the text is
/// shown as it is, never as rich text.
void showMessageBox(QWidget* parent, const std::string& text);

} // namespace turnpost

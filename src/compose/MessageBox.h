#pragma once

#include <string>

namespace turnpost {

/// Modal message boxes: a text, an OK button, no icon, the application title as caption.
class MessageBox {
  public:
    virtual ~MessageBox() = default;

    /// Shows the text (line breaks CR LF) and returns when the host has closed the box.
    virtual void show(const std::string& text) = 0;
};

} // namespace turnpost

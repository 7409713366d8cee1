#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace turnpost {

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(const QString& text) {
    return text.toStdString();
}

/// Doubles each "&", for widgets that would take it as the mark of an access key.
inline QString escapeMnemonics(QString text) {
    return text.replace('&', "&&");
}

} // namespace turnpost

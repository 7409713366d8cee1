#include "storage/QuotedValues.h"

#include <algorithm>

namespace turnpost {

namespace {

class Reader {
  public:
    explicit Reader(std::string_view all) : text(all) {}

    QuotedReading read() {
        QuotedReading reading;
        const size_t end = text.find_last_not_of(" \r\n") + 1;
        while (reading.clean && position < end) {
            skipBlanks();
            QuotedValue value{{}, line, peek() == '"'};
            reading.clean = value.quoted ? readQuoted(value.text) : readBare(value.text);
            if (!reading.clean) {
                reading.damagedLine = value.line;
            } else if (++reading.count <= mostKeptValues) {
                reading.values.push_back(std::move(value));
            }
        }
        return reading;
    }

  private:
    char peek() const { return position < text.size() ? text[position] : '\n'; }

    void skipBlanks() {
        while (position < text.size() && text[position] == ' ') {
            ++position;
        }
    }

    bool readQuoted(std::string& value) {
        const size_t end = text.find('"', position + 1);
        if (end == std::string_view::npos) {
            return false;
        }
        value = text.substr(position + 1, end - position - 1);
        position = end + 1;
        skipBlanks();
        return readSeparator();
    }

    bool readBare(std::string& value) {
        const size_t end = std::min(text.find_first_of(",\r\n", position), text.size());
        value = text.substr(position, end - position);
        position = end;
        return value.find('"') == std::string::npos && readSeparator();
    }

    bool readSeparator() {
        if (position >= text.size()) {
            return true;
        }
        if (text[position] == ',') {
            ++position;
            return true;
        }
        const bool carriageReturn = text[position] == '\r';
        const bool lineFeed = text.substr(position + (carriageReturn ? 1 : 0)).starts_with('\n');
        position += (carriageReturn ? 1U : 0U) + (lineFeed ? 1U : 0U);
        ++line;
        return carriageReturn || lineFeed;
    }

    std::string_view text;
    size_t position = 0;
    size_t line = 0;
};

} // namespace

QuotedReading readQuotedValues(std::string_view text) {
    return Reader(text).read();
}

std::string quotedText(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

} // namespace turnpost

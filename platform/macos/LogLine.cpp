#include "platform/macos/LogLine.h"

#include <QString>

namespace quillary {

namespace {

constexpr std::size_t longestLine = 1000;

bool breaksLine(QChar character) {
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

} // namespace

std::string logLine(std::string_view text) {
    const auto start = text.substr(0, longestLine);
    auto line = QString::fromUtf8(start.data(), static_cast<qsizetype>(start.size()));
    // Truncation may have split a character. Its replacement character would suggest that the text was
    // malformed.
    if (start.size() < text.size() && line.endsWith(QChar::ReplacementCharacter)) {
        line.chop(1);
    }
    for (auto& character : line) {
        if (breaksLine(character)) {
            character = u' ';
        }
    }
    while (line.toUtf8().size() > static_cast<qsizetype>(longestLine)) {
        line.chop(line.back().isLowSurrogate() ? 2 : 1);
    }
    return line.toStdString();
}

} // namespace quillary

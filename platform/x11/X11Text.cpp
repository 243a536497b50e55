#include "platform/x11/X11Text.h"

#include <QString>
#include <QStringDecoder>

namespace quillary::X11Text {

namespace {

QString decode(std::string_view bytes) {
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(view);
    return utf8.hasError() ? QString::fromLatin1(view) : text;
}

// A truncated last sequence would make the whole text look like Latin-1.
std::string_view withoutCutSequence(std::string_view bytes) {
    auto end = bytes.size();
    while (end > 0 && bytes.size() - end < 3 &&
           (static_cast<unsigned char>(bytes[end - 1]) & 0xC0U) == 0x80U) {
        --end;
    }
    if (end > 0 && static_cast<unsigned char>(bytes[end - 1]) >= 0xC0U) {
        return bytes.substr(0, end - 1);
    }
    return bytes;
}

} // namespace

std::string clean(std::string_view bytes) {
    bytes = bytes.substr(0, bytes.find('\0'));
    const bool tooLong = bytes.size() > maxBytes;
    QString text = decode(tooLong ? withoutCutSequence(bytes.substr(0, maxBytes)) : bytes);
    for (auto& character : text) {
        if (character.category() == QChar::Other_Control) {
            character = QLatin1Char(' ');
        }
    }
    std::string result = text.toStdString();
    if (result.size() > maxBytes) {
        result = std::string(withoutCutSequence(std::string_view(result).substr(0, maxBytes)));
    }
    return result;
}

} // namespace quillary::X11Text

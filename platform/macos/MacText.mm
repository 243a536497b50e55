#import "platform/macos/MacText.h"

#include <QString>

namespace quillary::MacText {

NSString* native(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toNSString();
}

std::string plain(NSString* text) {
    return QString::fromNSString(text).toStdString();
}

std::string wellFormed(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).toStdString();
}

std::optional<std::string> plainIfText(id value) {
    if (![value isKindOfClass:[NSString class]]) {
        return std::nullopt;
    }
    return plain(value);
}

NSURL* fileUrl(const std::string& path) {
    return [NSURL fileURLWithPath:native(path)];
}

std::string description(NSError* error) {
    const std::string text = plain([error localizedDescription]);
    return text.empty() ? "unknown error" : text;
}

} // namespace quillary::MacText

#import "platform/macos/MacText.h"

#include "core/RepairedUtf8.h"

namespace quillary::MacText {

NSString* native(std::string_view text) {
    const std::string repaired = repairedUtf8(text);
    NSString* made = [[NSString alloc] initWithBytes:repaired.data()
                                              length:repaired.size()
                                            encoding:NSUTF8StringEncoding];
    return made != nil ? made : @"";
}

std::string plain(NSString* text) {
    const char* bytes = [text UTF8String];
    return bytes == nullptr ? std::string() : std::string(bytes);
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

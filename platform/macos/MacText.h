#pragma once

#include <optional>
#include <string>
#include <string_view>

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

/// Converts between NSString and the program's texts, which are UTF-8.
namespace quillary::MacText {

/// Malformed parts become U+FFFD.
[[nodiscard]] NSString* native(std::string_view text);
/// Empty for nil.
[[nodiscard]] std::string plain(NSString* _Nullable text);
/// The bytes as UTF-8; malformed parts become U+FFFD.
[[nodiscard]] std::string wellFormed(std::string_view bytes);
/// Absent for nil and for objects that are not strings.
[[nodiscard]] std::optional<std::string> plainIfText(id _Nullable value);
/// The file URL of an absolute path.
[[nodiscard]] NSURL* fileUrl(const std::string& path);
/// The error's localised description; never empty.
[[nodiscard]] std::string description(NSError* _Nullable error);

} // namespace quillary::MacText

NS_ASSUME_NONNULL_END

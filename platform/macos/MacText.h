#pragma once

#include <optional>
#include <string>
#include <string_view>

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

/// The way between the system's texts and the program's, which are UTF-8.
namespace quillary::MacText {

/// What is no UTF-8 becomes U+FFFD.
[[nodiscard]] NSString* native(std::string_view text);
/// Empty for nil.
[[nodiscard]] std::string plain(NSString* _Nullable text);
/// The bytes as UTF-8 with U+FFFD for each part that is none.
[[nodiscard]] std::string wellFormed(std::string_view bytes);
/// Absent for nil and for what is no text.
[[nodiscard]] std::optional<std::string> plainIfText(id _Nullable value);
/// A file URL; the path is absolute.
[[nodiscard]] NSURL* fileUrl(const std::string& path);
/// What went wrong, in words; never empty.
[[nodiscard]] std::string description(NSError* _Nullable error);

} // namespace quillary::MacText

NS_ASSUME_NONNULL_END

#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>

/// Reads Objective-C++ as far as an audit needs it. The sources are formatted by clang-format and send
/// messages in brackets.
namespace quillary::test::ObjectiveText {

/// The text with its comments and the contents of its strings gone.
[[nodiscard]] std::string withoutCommentsAndStrings(std::string_view text);
/// The selectors of the messages that are sent, those named by @selector included.
[[nodiscard]] std::set<std::string> sentSelectors(std::string_view text);
/// The selectors of the methods and properties that are declared or defined.
[[nodiscard]] std::set<std::string> declaredSelectors(std::string_view text);
/// What stands in the strings of Objective-C and CoreFoundation: @"..." and CFSTR("...").
[[nodiscard]] std::set<std::string> literals(std::string_view text);
/// The enumerators and constants that are declared, with the text of their values; empty for an external
/// constant and for an enumerator that counts on from the one before.
[[nodiscard]] std::map<std::string, std::string> declaredConstants(std::string_view text);
/// All identifiers.
[[nodiscard]] std::set<std::string> words(std::string_view text);

} // namespace quillary::test::ObjectiveText

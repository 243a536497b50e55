#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillary {

/// The desktop environment of the session, by the names that XDG_CURRENT_DESKTOP lists: strings separated by
/// colons, the most specific first (Desktop Entry standard, "Recognized desktop entry keys",
/// OnlyShowIn).
class CurrentDesktop {
public:
    /// `names` is the value of the variable. Empty names are skipped.
    explicit CurrentDesktop(std::string_view names);

    /// The desktop that the environment names at the time of the call; none when the variable is not set.
    [[nodiscard]] static CurrentDesktop ofSession();

    /// Whether one of the names is exactly `name`, letter case included.
    [[nodiscard]] bool is(std::string_view name) const;
    /// In the order of the variable.
    [[nodiscard]] const std::vector<std::string>& names() const { return m_names; }

private:
    std::vector<std::string> m_names;
};

} // namespace quillary

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillary {

/// The application that a systemd unit in a control group path stands for.
struct UnitApplication {
    /// Desktop id without ".desktop"; for snaps "<snap>_<application>".
    std::string id;
    /// Whether the launcher of a sandbox (flatpak, snap) named the unit, so that it is not inherited from an
    /// ancestor.
    bool sandboxed = false;

    bool operator==(const UnitApplication&) const = default;
};

/// Reads the last unit of a control group path by the names that desktop environments give (systemd.io,
/// "Desktop Environment Integration"): `app[-<launcher>]-<id>-<random>.scope`,
/// `app[-<launcher>]-<id>[@<random>].service`, `snap.<snap>.<application>[-.]<uuid>.scope`. An empty id when
/// it is none of these.
[[nodiscard]] UnitApplication unitApplication(std::string_view controlGroup);

/// The name of the scope for a process that this program started: `app-quillary-<escaped id>-<pid>.scope`.
/// Empty when it would be longer than systemd takes (255 bytes).
[[nodiscard]] std::string scopeName(std::string_view entryStem, std::int64_t pid);

/// Escapes as systemd-escape(1) does: all but ASCII letters, digits, ':', '_' and '.' as "\xNN", a leading
/// '.' too.
[[nodiscard]] std::string escapeUnitPart(std::string_view text);
/// The reverse; malformed escapes stay as they are. Empty when the result is not UTF-8.
[[nodiscard]] std::string unescapeUnitPart(std::string_view text);

} // namespace quillary

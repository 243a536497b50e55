#pragma once

#include "platform/linux/entries/DesktopEntry.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillary {

/// The installed applications, found by the words in the properties of windows and processes. Immutable.
class EntryIndex {
public:
    /// The key of an entry that a word is compared with. Letter case matters for paths only.
    enum class Key {
        startupWmClass,
        /// Desktop file id, with or without ".desktop".
        id,
        /// Last component of a reverse-DNS id: "nautilus" of "org.gnome.Nautilus.desktop".
        idTail,
        /// Flatpak id or snap name.
        sandbox,
        /// The extension id in the entries that Chromium makes for web applications.
        webApp,
        program,
        path,
    };

    EntryIndex() = default;
    /// Of several entries with the same id the first one counts. A hidden entry is left out, and hides those
    /// of the same id that follow.
    explicit EntryIndex(std::vector<DesktopEntry> found);

    /// The best entry for the word; null when there is none. Of several entries the order is: exactly the
    /// same spelling, an id equal to the word, visible before NoDisplay, installed before TryExec missing,
    /// fewer arguments, lesser id.
    [[nodiscard]] const DesktopEntry* find(Key key, std::string_view word) const;

    [[nodiscard]] const std::vector<DesktopEntry>& entries() const { return m_all; }

private:
    using Bucket = std::vector<std::size_t>;

    void add(Key key, std::string_view word, std::size_t entry);
    void sortBuckets();

    std::vector<DesktopEntry> m_all;
    std::array<std::unordered_map<std::string, Bucket>, 7> m_tables;
};

/// The last component of a reverse-DNS name if it identifies an application; empty for names without a dot
/// and for components such as "desktop" and "app" that many names end in.
[[nodiscard]] std::string_view reverseDnsTail(std::string_view name);

/// The 32-letter id of a Chromium web application in a window class or entry id; empty when there is none.
[[nodiscard]] std::string_view webAppId(std::string_view name);

} // namespace quillary

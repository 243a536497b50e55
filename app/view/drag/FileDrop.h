#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QMimeData;

namespace quillary {

class Scheduler;

/// The text of a dragged dock item is this prefix and the path of the item.
inline constexpr std::string_view itemPrefix = "quillary-item:";

/// One dragged item with the forms in which it was sent. Bytes as received.
struct ItemProvider {
    std::optional<std::string> text{};
    std::optional<std::string> fileUrl{};
    bool operator==(const ItemProvider&) const = default;
};

/// The paths that were read so far. Any thread may add to them.
class URLBox {
public:
    void append(std::string path);
    [[nodiscard]] std::vector<std::string> urls() const;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_urls;
};

/// The items of a drag: one for each URL of its list (text/uri-list, RFC 2483), which carries a file URL when
/// its scheme is "file"; or one with the text, when the drag has text and not a single file URL.
[[nodiscard]] std::vector<ItemProvider> itemProviders(const QMimeData& data);

/// The text of the first item that has one and is no file; absent when there is none.
[[nodiscard]] std::optional<std::string> textWithoutFile(const std::vector<ItemProvider>& providers);
/// Whether any item carries a file URL.
[[nodiscard]] bool carriesFiles(const std::vector<ItemProvider>& providers);

/// Reads the paths of the file URLs on worker threads and delivers them in one call on the main thread, in
/// the order in which they were read. URLs that name no file on this machine are left out.
void loadFileURLs(std::vector<ItemProvider> providers, Scheduler& scheduler,
                  std::function<void(std::vector<std::string>)> completion);

} // namespace quillary

#include "app/view/drag/FileDrop.h"

#include "core/FileUrl.h"
#include "platform/Scheduler.h"

#include <QByteArray>
#include <QMimeData>

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillary {

namespace {

/// No drag that is meant for a dock carries more than these limits.
constexpr qsizetype largestList = qsizetype{16} * 1024 * 1024;
constexpr std::size_t largestText = std::size_t{64} * 1024;
constexpr std::size_t mostThreads = 4;
constexpr std::size_t smallestShare = 64;

bool isFileUrl(const std::string& url) {
    constexpr std::string_view scheme = "file:";
    return url.size() > scheme.size() &&
           std::equal(scheme.begin(), scheme.end(), url.begin(), [](char wanted, char letter) {
               return wanted ==
                      (letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter);
           });
}

std::vector<ItemProvider> urlItems(const QByteArray& list) {
    std::vector<ItemProvider> items;
    for (const QByteArray& raw : list.split('\n')) {
        const std::string line = raw.trimmed().toStdString();
        // Lines that begin with "#" are comments (RFC 2483).
        if (line.empty() || line.front() == '#') {
            continue;
        }
        items.push_back({.fileUrl = isFileUrl(line) ? std::optional(line) : std::nullopt});
    }
    return items;
}

/// Shared by all threads of one reading.
struct Reading {
    URLBox box;
    std::atomic<std::size_t> threadsLeft;
    std::function<void(std::vector<std::string>)> completion;
};

} // namespace

void URLBox::append(std::string path) {
    const std::lock_guard guard(m_mutex);
    m_urls.push_back(std::move(path));
}

std::vector<std::string> URLBox::urls() const {
    const std::lock_guard guard(m_mutex);
    return m_urls;
}

std::vector<ItemProvider> itemProviders(const QMimeData& data) {
    std::vector<ItemProvider> items;
    if (data.hasFormat(u"text/uri-list"_s)) {
        items = urlItems(data.data(u"text/uri-list"_s).left(largestList));
    }
    // Qt offers a list of URLs as text too; only text that was sent as such counts.
    if (!carriesFiles(items) && data.hasFormat(u"text/plain"_s)) {
        std::string text = data.text().toStdString();
        if (text.size() <= largestText) {
            items.insert(items.begin(), {.text = std::move(text)});
        }
    }
    return items;
}

std::optional<std::string> textWithoutFile(const std::vector<ItemProvider>& providers) {
    const auto found =
        std::ranges::find_if(providers, [](const ItemProvider& item) { return item.text && !item.fileUrl; });
    return found == providers.end() ? std::nullopt : found->text;
}

bool carriesFiles(const std::vector<ItemProvider>& providers) {
    return std::ranges::any_of(providers, [](const ItemProvider& item) { return item.fileUrl.has_value(); });
}

void loadFileURLs(std::vector<ItemProvider> providers, Scheduler& scheduler,
                  std::function<void(std::vector<std::string>)> completion) {
    const auto items = std::make_shared<const std::vector<ItemProvider>>(std::move(providers));
    const std::size_t threads = std::clamp<std::size_t>(items->size() / smallestShare, 1, mostThreads);
    const auto reading = std::make_shared<Reading>();
    reading->threadsLeft = threads;
    reading->completion = std::move(completion);
    for (std::size_t thread = 0; thread < threads; ++thread) {
        const std::size_t first = items->size() * thread / threads;
        const std::size_t last = items->size() * (thread + 1) / threads;
        scheduler.onWorker([items, reading, first, last]() -> std::function<void()> {
            for (std::size_t i = first; i < last; ++i) {
                const auto& url = (*items)[i].fileUrl;
                if (auto path = url ? pathOfFileUrl(*url) : std::nullopt) {
                    reading->box.append(std::move(*path));
                }
            }
            if (--reading->threadsLeft > 0) {
                return [] {};
            }
            return [reading] { reading->completion(reading->box.urls()); };
        });
    }
}

} // namespace quillary

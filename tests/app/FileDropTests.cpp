#include "app/view/drag/FileDrop.h"
#include "platform/qt/QtScheduler.h"
#include "tests/fake/ManualScheduler.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QMimeData>
#include <QUrl>

#include <gmock/gmock.h>

#include <algorithm>
#include <thread>

namespace quillary::test {
namespace {

using testing::ElementsAre;
using Paths = std::vector<std::string>;

ItemProvider file(const std::string& url) {
    return {.fileUrl = url};
}

ItemProvider text(const std::string& words) {
    return {.text = words};
}

TEST(FileDrop, filesAreItemsOfTheirOwn) {
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("file:///home/ada/a%20b.txt")),
                  QUrl(QStringLiteral("https://example.org/")), QUrl(QStringLiteral("FILE:///tmp/x"))});
    const auto items = itemProviders(data);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0], file("file:///home/ada/a%20b.txt"));
    EXPECT_EQ(items[1], ItemProvider{});
    EXPECT_TRUE(items[2].fileUrl);
    EXPECT_TRUE(carriesFiles(items));
}

TEST(FileDrop, aListOfFilesIsNoTextThoughItAnswersSo) {
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("file:///tmp/x"))});
    ASSERT_TRUE(data.hasText());
    EXPECT_FALSE(textWithoutFile(itemProviders(data)));
    // A file manager sends the names as text beside the list.
    data.setText(QStringLiteral("quillary-item:/tmp/x"));
    EXPECT_FALSE(textWithoutFile(itemProviders(data)));
}

TEST(FileDrop, textAloneIsText) {
    QMimeData data;
    data.setText(QStringLiteral("quillary-item:/Applications/Mail.app"));
    EXPECT_EQ(textWithoutFile(itemProviders(data)), "quillary-item:/Applications/Mail.app");
    EXPECT_FALSE(carriesFiles(itemProviders(data)));
}

TEST(FileDrop, nonsenseHasNothing) {
    EXPECT_TRUE(itemProviders(QMimeData()).empty());
    QMimeData pictures;
    pictures.setData(QStringLiteral("image/png"), QByteArray(10, 'x'));
    EXPECT_TRUE(itemProviders(pictures).empty());
    QMimeData list;
    list.setData(QStringLiteral("text/uri-list"), QByteArray("# a comment\r\n\r\n\xff\xfe\r\n"));
    EXPECT_FALSE(carriesFiles(itemProviders(list)));
    QMimeData endless;
    endless.setText(QString(100000, u'x'));
    EXPECT_FALSE(textWithoutFile(itemProviders(endless)));
}

TEST(FileDrop, theFirstItemWithTextAndNoFileCounts) {
    EXPECT_EQ(textWithoutFile({file("file:///a"), text("one"), text("two")}), "one");
    ItemProvider both = text("name");
    both.fileUrl = "file:///a";
    EXPECT_EQ(textWithoutFile({both}), std::nullopt);
}

class LoadFileURLs : public testing::Test {
protected:
    Paths load(std::vector<ItemProvider> items) {
        completions = 0;
        loadFileURLs(std::move(items), scheduler, [this](Paths paths) {
            ++completions;
            loaded = std::move(paths);
        });
        EXPECT_EQ(completions, 0);
        while (scheduler.finishWork()) {
        }
        return loaded;
    }

    ManualScheduler scheduler;
    int completions = 0;
    Paths loaded;
};

TEST_F(LoadFileURLs, deliversThePathsOnce) {
    EXPECT_THAT(load({file("file:///home/ada/a%20b.txt"), file("file://localhost/tmp/")}),
                ElementsAre("/home/ada/a b.txt", "/tmp"));
    EXPECT_EQ(completions, 1);
}

TEST_F(LoadFileURLs, leavesOutWhatIsNoFileHere) {
    EXPECT_THAT(load({file("file://elsewhere/tmp/x"), file("file:///bad%ff"), file("file:///nul%00"),
                      file("file:relative"), text("words"), ItemProvider{}, file("file:///good")}),
                ElementsAre("/good"));
}

TEST_F(LoadFileURLs, nothingIsDeliveredAsAnEmptyList) {
    EXPECT_TRUE(load({}).empty());
    EXPECT_EQ(completions, 1);
    EXPECT_TRUE(load({text("words")}).empty());
}

TEST_F(LoadFileURLs, tenThousandAreReadByAFewThreads) {
    std::vector<ItemProvider> items;
    items.reserve(10000);
    Paths expected;
    expected.reserve(10000);
    for (int i = 0; i < 10000; ++i) {
        items.push_back(file("file:///files/" + std::to_string(i)));
        expected.push_back("/files/" + std::to_string(i));
    }
    Paths paths = load(std::move(items));
    std::ranges::sort(paths);
    std::ranges::sort(expected);
    EXPECT_EQ(paths, expected);
    EXPECT_EQ(completions, 1);
}

TEST(LoadFileURLsOnThreads, completesOnceOnTheMainThread) {
    QtScheduler scheduler;
    std::vector<ItemProvider> items;
    items.reserve(1000);
    for (int i = 0; i < 1000; ++i) {
        items.push_back(file("file:///files/" + std::to_string(i)));
    }
    QEventLoop loop;
    int completions = 0;
    std::size_t count = 0;
    std::thread::id thread;
    loadFileURLs(items, scheduler, [&](const Paths& paths) {
        ++completions;
        count = paths.size();
        thread = std::this_thread::get_id();
        loop.quit();
    });
    loop.exec();
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(count, 1000U);
    EXPECT_EQ(thread, std::this_thread::get_id());
}

} // namespace
} // namespace quillary::test

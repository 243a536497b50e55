#include "core/BoundedFile.h"
#include "core/FileDescriptor.h"
#include "tests/core/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>

#include <sys/stat.h>
#include <unistd.h>

namespace quillary {

namespace {

class BoundedFileTest : public testing::Test {
protected:
    const test::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "file";
};

} // namespace

TEST_F(BoundedFileTest, aFileOfTheLimitIsReadAndALongerOneIsNot) {
    test::writeFile(file, "12345");
    EXPECT_EQ(readBoundedFile(file, 5), "12345");
    EXPECT_EQ(readBoundedFile(file, 4), std::nullopt);
    EXPECT_EQ(readBoundedFile(file, 100), "12345");
    test::writeFile(file, "");
    EXPECT_EQ(readBoundedFile(file, 0), "");
}

TEST_F(BoundedFileTest, theStartOfALongerFileIsRead) {
    test::writeFile(file, "12345");
    EXPECT_EQ(readFileStart(file, 3), "123");
    EXPECT_EQ(readFileStart(file, 5), "12345");
    EXPECT_EQ(readFileStart(file, 6), "12345");
    EXPECT_EQ(readFileStart(file, 0), "");
}

TEST_F(BoundedFileTest, largeFilesAreReadWhole) {
    std::string content;
    for (int line = 0; content.size() < 300'000; ++line) {
        content += std::to_string(line) + "\n";
    }
    test::writeFile(file, content);
    EXPECT_EQ(readBoundedFile(file, content.size()), content);
    EXPECT_EQ(readBoundedFile(file, content.size() - 1), std::nullopt);
    EXPECT_EQ(readFileStart(file, 200'000), content.substr(0, 200'000));
}

TEST_F(BoundedFileTest, onlyRegularFilesAreRead) {
    std::filesystem::create_directory(folder.path() / "folder");
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    for (const auto& path : {folder.path() / "folder", folder.path() / "pipe", folder.path() / "none",
                             std::filesystem::path("/dev/zero")}) {
        EXPECT_EQ(readBoundedFile(path, 10), std::nullopt) << path;
        EXPECT_EQ(readFileStart(path, 10), std::nullopt) << path;
    }
    test::writeFile(file, "x");
    std::filesystem::create_symlink(file, folder.path() / "link");
    EXPECT_EQ(readBoundedFile(folder.path() / "link", 10), "x");
}

TEST_F(BoundedFileTest, aBufferIsFilledUpToTheEndOfTheFile) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const FileDescriptor source(ends[0]);
    {
        const FileDescriptor sink(ends[1]);
        ASSERT_EQ(::write(sink.get(), "1234567", 7), 7);
    }
    std::array<char, 4> buffer{};
    EXPECT_EQ(readInto(buffer, source), 4U);
    EXPECT_EQ(std::string(buffer.data(), 4), "1234");
    EXPECT_EQ(readInto(buffer, source), 3U);
    EXPECT_EQ(readInto(buffer, source), 0U);
    EXPECT_EQ(readInto(buffer, FileDescriptor(-1)), std::nullopt);
}

} // namespace quillary

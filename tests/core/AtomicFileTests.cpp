#include "core/AtomicFile.h"
#include "tests/core/ChildProcess.h"
#include "tests/core/Succeeded.h"
#include "tests/core/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillary {

namespace {

namespace fs = std::filesystem;
using test::ChildProcess;
using test::readFile;
using test::succeeded;
using test::TemporaryFolder;
using test::writeFile;
using testing::HasSubstr;

using Names = std::set<std::string>;

TEST(AtomicFile, createsAndReplaces) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    EXPECT_TRUE(succeeded(AtomicFile::write(file, "first, rather long")));
    EXPECT_EQ(readFile(file), "first, rather long");
    EXPECT_TRUE(succeeded(AtomicFile::write(file, std::string_view("a\0b", 3))));
    EXPECT_EQ(readFile(file), std::string("a\0b", 3));
    EXPECT_TRUE(succeeded(AtomicFile::write(file, "")));
    EXPECT_EQ(readFile(file), "");
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(AtomicFile, onlyTheOwnerMayReadAndWrite) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    writeFile(file, "old");
    fs::permissions(file, fs::perms::all);
    ASSERT_TRUE(succeeded(AtomicFile::write(file, "new")));
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(AtomicFile, replacesTheFileInsteadOfWritingIntoIt) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    writeFile(file, "old");
    fs::create_hard_link(file, folder.path() / "other name");
    ASSERT_TRUE(succeeded(AtomicFile::write(file, "new")));
    EXPECT_EQ(readFile(file), "new");
    EXPECT_EQ(readFile(folder.path() / "other name"), "old");
}

TEST(AtomicFile, aSymbolicLinkStaysAndItsTargetIsReplaced) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "real");
    writeFile(folder.path() / "real" / "file", "old");
    fs::create_symlink("real/file", folder.path() / "inner");
    fs::create_symlink(folder.path() / "inner", folder.path() / "outer");
    ASSERT_TRUE(succeeded(AtomicFile::write(folder.path() / "outer", "new")));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "outer"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "inner"));
    EXPECT_FALSE(fs::is_symlink(folder.path() / "real" / "file"));
    EXPECT_EQ(readFile(folder.path() / "real" / "file"), "new");
    EXPECT_EQ(folder.names(), (Names{"inner", "outer", "real"}));
}

TEST(AtomicFile, aDanglingLinkGetsItsTarget) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "real");
    fs::create_symlink("real/missing", folder.path() / "link");
    ASSERT_TRUE(succeeded(AtomicFile::write(folder.path() / "link", "new")));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
    EXPECT_EQ(readFile(folder.path() / "real" / "missing"), "new");
}

TEST(AtomicFile, aLinkIntoAMissingFolderFails) {
    const TemporaryFolder folder;
    fs::create_symlink("nowhere/file", folder.path() / "link");
    const auto written = AtomicFile::write(folder.path() / "link", "new");
    ASSERT_FALSE(written);
    EXPECT_THAT(written.error(), HasSubstr("No such file or directory"));
    EXPECT_EQ(folder.names(), Names{"link"});
}

TEST(AtomicFile, linksInACircleFail) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder.path() / "a");
    fs::create_symlink("a", folder.path() / "b");
    EXPECT_FALSE(AtomicFile::write(folder.path() / "a", "new"));
    EXPECT_EQ(folder.names(), (Names{"a", "b"}));
}

TEST(AtomicFile, aFolderInTheWayFailsAndStays) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "settings.json");
    const auto written = AtomicFile::write(folder.path() / "settings.json", "new");
    ASSERT_FALSE(written);
    EXPECT_THAT(written.error(), HasSubstr("Is a directory"));
    EXPECT_TRUE(fs::is_directory(folder.path() / "settings.json"));
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(AtomicFile, aPipeInTheWayFailsAndStays) {
    const TemporaryFolder folder;
    const fs::path pipe = folder.path() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(AtomicFile::write(pipe, "new"));
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(folder.names(), Names{"pipe"});
}

TEST(AtomicFile, belowARegularFileNothingCanBeWritten) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "file", "old");
    const auto written = AtomicFile::write(folder.path() / "file" / "settings.json", "new");
    ASSERT_FALSE(written);
    EXPECT_THAT(written.error(), HasSubstr("Not a directory"));
    EXPECT_EQ(readFile(folder.path() / "file"), "old");
}

TEST(AtomicFile, anUnusableNameFails) {
    EXPECT_FALSE(AtomicFile::write("", "new"));
    const TemporaryFolder folder;
    EXPECT_FALSE(AtomicFile::write(folder.path() / "missing" / "", "new"));
    EXPECT_FALSE(AtomicFile::write(folder.path() / std::string(300, 'n'), "new"));
    EXPECT_EQ(folder.names(), Names{});
}

TEST(AtomicFile, copiesFilesOfAnySize) {
    const TemporaryFolder folder;
    const fs::path source = folder.path() / "source";
    const fs::path target = folder.path() / "target";
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 300000U}) {
        std::string content(size, 'a');
        for (std::size_t i = 0; i < size; i += 1000) {
            content[i] = static_cast<char>(i / 1000);
        }
        writeFile(source, content);
        EXPECT_TRUE(succeeded(AtomicFile::copy(source, target)));
        EXPECT_TRUE(readFile(target) == content) << size;
    }
    EXPECT_EQ(folder.names(), (Names{"source", "target"}));
}

TEST(AtomicFile, whatCannotBeReadIsNotCopied) {
    const TemporaryFolder folder;
    writeFile(folder.path() / "target", "old");
    fs::create_directory(folder.path() / "folder");
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    for (const char* name : {"missing", "folder", "pipe"}) {
        EXPECT_FALSE(AtomicFile::copy(folder.path() / name, folder.path() / "target")) << name;
    }
    EXPECT_EQ(readFile(folder.path() / "target"), "old");
    EXPECT_EQ(folder.names(), (Names{"folder", "pipe", "target"}));
}

TEST(AtomicFile, aReadOnlyFolderKeepsTheOldFile) {
    constexpr uid_t nobody = 65534;
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    writeFile(file, "old");
    fs::permissions(folder.path(), fs::perms{0555});
    // The administrator may write anywhere, so the child gives that up.
    ChildProcess child([&file] {
        if (::geteuid() == 0 && ::setuid(nobody) != 0) {
            return 2;
        }
        const auto written = AtomicFile::write(file, "new");
        return !written && written.error().find("Permission denied") != std::string::npos ? 0 : 1;
    });
    EXPECT_EQ(child.exitCode(), 0);
    fs::permissions(folder.path(), fs::perms::owner_all);
    EXPECT_EQ(readFile(file), "old");
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

/// Lets no file grow beyond `bytes` while it lives; a write that would then fails half-way, as on a full
/// disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_limit);
        const rlimit lowered{bytes, m_limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &lowered);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_limit);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_limit{};
    void (*m_handler)(int);
};

TEST(AtomicFile, whenTheBytesDoNotFitTheOldFileStays) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    writeFile(file, "old");
    Result<> written;
    {
        const FileSizeLimit limit(5000);
        written = AtomicFile::write(file, std::string(100'000, 'n'));
    }
    ASSERT_FALSE(written);
    EXPECT_THAT(written.error(), HasSubstr("File too large"));
    EXPECT_EQ(readFile(file), "old");
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(AtomicFile, leftoversOfAKilledWriterAreUsedUp) {
    const TemporaryFolder folder;
    writeFile(folder.path() / ".settings.json.tmp", "half of something much longer than the new content");
    fs::permissions(folder.path() / ".settings.json.tmp", fs::perms::all);
    ASSERT_TRUE(succeeded(AtomicFile::write(folder.path() / "settings.json", "new")));
    EXPECT_EQ(readFile(folder.path() / "settings.json"), "new");
    EXPECT_EQ(fs::status(folder.path() / "settings.json").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(AtomicFile, whatTheTemporaryNameLeadsToIsNotTouched) {
    const TemporaryFolder folder;
    const fs::path temporary = folder.path() / ".settings.json.tmp";
    writeFile(folder.path() / "victim", "precious");

    fs::create_symlink("victim", temporary);
    EXPECT_TRUE(succeeded(AtomicFile::write(folder.path() / "settings.json", "one")));
    fs::create_hard_link(folder.path() / "victim", temporary);
    EXPECT_TRUE(succeeded(AtomicFile::write(folder.path() / "settings.json", "two")));
    ASSERT_EQ(::mkfifo(temporary.c_str(), 0600), 0);
    EXPECT_TRUE(succeeded(AtomicFile::write(folder.path() / "settings.json", "three")));
    fs::create_symlink("unborn", temporary);
    EXPECT_TRUE(succeeded(AtomicFile::write(folder.path() / "settings.json", "four")));

    EXPECT_EQ(readFile(folder.path() / "victim"), "precious");
    EXPECT_EQ(readFile(folder.path() / "settings.json"), "four");
    EXPECT_EQ(folder.names(), (Names{"settings.json", "victim"}));
}

TEST(AtomicFile, aFolderUnderTheTemporaryNameFailsAndStays) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / ".settings.json.tmp");
    EXPECT_FALSE(AtomicFile::write(folder.path() / "settings.json", "new"));
    EXPECT_EQ(folder.names(), Names{".settings.json.tmp"});
}

std::string wholeContent(char letter) {
    return std::string(200'000, letter) + "end";
}

bool isWhole(const std::string& content) {
    return content.size() == 200'003 && content == wholeContent(content.front());
}

TEST(AtomicFile, aWriterKilledAtAnyMomentLeavesTheOldOrTheNewFile) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    ASSERT_TRUE(succeeded(AtomicFile::write(file, wholeContent('a'))));
    constexpr std::uint32_t seed = 20;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    for (int round = 0; round < 300; ++round) {
        ChildProcess writer([&file] {
            for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
                if (!AtomicFile::write(file, wholeContent(letter))) {
                    return 1;
                }
            }
        });
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 6000));
        ASSERT_EQ(writer.kill(), SIGKILL);
        ASSERT_TRUE(isWhole(readFile(file))) << "round " << round;
        ASSERT_LE(folder.names().size(), 2U);
    }
    ASSERT_TRUE(succeeded(AtomicFile::write(file, "last")));
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(AtomicFile, writersAtTheSameTimeDoNotMix) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    ASSERT_TRUE(succeeded(AtomicFile::write(file, wholeContent('s'))));
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (const char letter : {'a', 'b', 'c'}) {
        writers.push_back(std::make_unique<ChildProcess>([&file, letter] {
            for (int round = 0; round < 60; ++round) {
                static_cast<void>(AtomicFile::write(file, wholeContent(letter)));
            }
            return 0;
        }));
    }
    for (int reading = 0; reading < 300; ++reading) {
        ASSERT_TRUE(isWhole(readFile(file)));
    }
    for (const auto& writer : writers) {
        EXPECT_EQ(writer->exitCode(), 0);
    }
    EXPECT_TRUE(isWhole(readFile(file)));
    EXPECT_EQ(folder.names(), Names{"settings.json"});
}

TEST(AtomicFile, aWriterThatNeverFinishesDoesNotHoldTheOthersForEver) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "settings.json";
    const fs::path temporary = folder.path() / ".settings.json.tmp";
    ChildProcess stuck([&temporary] { return test::holdLockForEver(temporary); });
    while (!fs::exists(temporary) || test::isUnlocked(temporary)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(AtomicFile::write(file, "new"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(stuck.kill(), SIGKILL);
    EXPECT_TRUE(succeeded(AtomicFile::write(file, "new")));
    EXPECT_EQ(readFile(file), "new");
}

} // namespace

} // namespace quillary

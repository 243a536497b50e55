#include "platform/linux/memory/MachineMemory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include <unistd.h>

namespace quillary {

namespace {

constexpr std::uint64_t pageSize = 4096;

constexpr const char* meminfo = R"(MemTotal:       24684092 kB
MemFree:        13265960 kB
Active(anon):      10000 kB
Inactive(anon):    20000 kB
Unevictable:        1000 kB
Mlocked:             400 kB
SwapTotal:       2000000 kB
SwapFree:        1500000 kB
Zswap:               800 kB
Zswapped:          99999 kB
AnonPages:         32000 kB
Shmem:              8000 kB
SUnreclaim:         2000 kB
KernelStack:         300 kB
PageTables:          500 kB
SecPageTables:        40 kB
Percpu:              160 kB
)";

MachineMemory::Texts texts(std::string information, std::vector<std::string> zramDevices = {}) {
    return {.meminfo = std::move(information), .pressure = {}, .zramDevices = std::move(zramDevices)};
}

TEST(MachineMemory, figuresComeFromTheKernelsTable) {
    const auto stats = MachineMemory::stats(texts(meminfo), pageSize);
    EXPECT_EQ(stats.total, 25'276'510'208U);
    EXPECT_EQ(stats.swapUsed, 512'000'000U);
    // Anonymous 40000 less 9600 purgeable, wired 4000, compressed 800.
    EXPECT_EQ(stats.used, 35'200U * 1024U);
    EXPECT_EQ(stats.pressure, MemoryPressure::normal);
}

TEST(MachineMemory, usedCountsInWholePages) {
    // 40000, 9600, 4000 and 800 kB are 625, 150, 62.5 and 12.5 pages of 64 KiB.
    EXPECT_EQ(MachineMemory::usedBytes(texts(meminfo), 65536), (625U - 150U + 62U + 12U) * 65536U);
}

TEST(MachineMemory, compressedMemoryOfEachZramDeviceCounts) {
    const auto without = MachineMemory::usedBytes(texts(meminfo), pageSize);
    const auto with = MachineMemory::usedBytes(
        texts(meminfo, {" 4096 74 1048576 0 1048576 0 0 0 0\n", "9999999 9999 40960 0\n", "", "odd", "1 2"}),
        pageSize);
    EXPECT_EQ(with - without, 1'048'576U + 40'960U);
}

TEST(MachineMemory, missingFiguresAreZero) {
    EXPECT_EQ(MachineMemory::stats({}, pageSize), MemoryStats());
    const auto stats = MachineMemory::stats(texts("MemTotal: 8 kB\nSwapFree: 9 kB"), pageSize);
    EXPECT_EQ(stats, (MemoryStats{.total = 8192, .used = 0, .swapUsed = 0}));
}

TEST(MachineMemory, moreListedThanThereIsLeavesNothingPurgeable) {
    const auto stats =
        MachineMemory::stats(texts("Active(anon): 100 kB\nMlocked: 100 kB\nAnonPages: 40 kB\n"), pageSize);
    EXPECT_EQ(stats.used, 40U * 1024U);
}

TEST(MachineMemory, lineStartsAreWholeNames) {
    EXPECT_EQ(MachineMemory::stats(texts("XMemTotal: 1 kB\nMemTotalX: 2 kB\n MemTotal: 3 kB\n"), pageSize),
              MemoryStats());
}

TEST(MachineMemory, impossibleFiguresAreZero) {
    for (const char* number :
         {"", "-5", "abc", "18446744073709551615", "99999999999999999999999", "1125899906842625", "0x10"}) {
        EXPECT_EQ(MachineMemory::stats(texts("MemTotal: " + std::string(number) + " kB\n"), pageSize).total,
                  0U)
            << number;
    }
    EXPECT_EQ(MachineMemory::stats(texts("MemTotal:1125899906842624"), pageSize).total,
              std::uint64_t{1} << 60U);
}

TEST(MachineMemory, noFiguresOverflow) {
    std::string all;
    for (const char* name : {"AnonPages", "Shmem", "Unevictable", "SUnreclaim", "KernelStack", "PageTables",
                             "SecPageTables", "Percpu", "Zswap"}) {
        all += std::string(name) + ": 1125899906842624 kB\n";
    }
    const std::vector<std::string> devices(64, "1 1 1152921504606846976 1");
    // No page of the 2 anonymous exbibytes is on a list: wired and compressed ones are left.
    EXPECT_EQ(MachineMemory::usedBytes(texts(all, devices), pageSize), std::uint64_t{7} << 60U);
}

TEST(MachineMemory, anyBytesAreTaken) {
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        std::string text = meminfo;
        for (int change = 0; change < 40; ++change) {
            text[random() % text.size()] = static_cast<char>(random());
        }
        const auto stats = MachineMemory::stats(
            {.meminfo = text, .pressure = text.substr(random() % text.size()), .zramDevices = {text}},
            pageSize);
        EXPECT_LE(stats.total, std::uint64_t{1} << 60U);
    }
}

struct Pressure {
    const char* text;
    MemoryPressure level;
};

class MachineMemoryPressure : public testing::TestWithParam<Pressure> {};

TEST_P(MachineMemoryPressure, followsItsStalls) {
    EXPECT_EQ(MachineMemory::pressure(GetParam().text), GetParam().level) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, MachineMemoryPressure,
    testing::Values(
        Pressure{"some avg10=0.00 avg60=50.00 avg300=50.00 total=1\nfull avg10=0.00 avg60=50.00 total=1\n",
                 MemoryPressure::normal},
        Pressure{"some avg10=9.99 avg60=0.00\nfull avg10=9.99 avg60=0.00\n", MemoryPressure::normal},
        Pressure{"some avg10=10.00 avg60=0.00\nfull avg10=9.99 avg60=0.00\n", MemoryPressure::warning},
        Pressure{"some avg10=100.00\nfull avg10=0.00\n", MemoryPressure::warning},
        Pressure{"some avg10=10.00 avg60=0.00\nfull avg10=10.00 avg60=0.00\n", MemoryPressure::critical},
        Pressure{"full avg10=55.10\n", MemoryPressure::critical}, Pressure{"", MemoryPressure::normal},
        Pressure{"some avg10=", MemoryPressure::normal},
        Pressure{"some avg10=inf\nfull avg10=nan\n", MemoryPressure::normal},
        Pressure{"some avg10=1e5\n", MemoryPressure::normal},
        Pressure{"full avg10=100.01\n", MemoryPressure::normal},
        Pressure{"awesome avg10=50.00\n", MemoryPressure::normal},
        Pressure{"some total=1\navg10=50.00\n", MemoryPressure::normal}));

class MachineMemoryFiles : public testing::Test {
public:
    MachineMemoryFiles() {
        std::string name = (std::filesystem::temp_directory_path() / "quillary-core-XXXXXX").string();
        root = ::mkdtemp(name.data()) == nullptr ? "" : name;
    }
    MachineMemoryFiles(const MachineMemoryFiles&) = delete;
    MachineMemoryFiles& operator=(const MachineMemoryFiles&) = delete;
    ~MachineMemoryFiles() override { std::filesystem::remove_all(root); }

protected:
    void write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((root / name).parent_path());
        std::ofstream(root / name) << text;
    }

    std::filesystem::path root;
};

TEST_F(MachineMemoryFiles, areReadWhereTheyStand) {
    write("proc/meminfo", "MemTotal: 4 kB\n");
    write("proc/pressure/memory", "full avg10=10.00\n");
    write("sys/block/zram0/mm_stat", "0 0 8192");
    write("sys/block/zram2/mm_stat", "0 0 4096");
    EXPECT_EQ(
        MachineMemory::stats(MachineMemory::texts(root), pageSize),
        (MemoryStats{.total = 4096, .used = 12288, .swapUsed = 0, .pressure = MemoryPressure::critical}));
}

TEST_F(MachineMemoryFiles, thatAreMissingOrOddSayNothing) {
    write("proc/meminfo", std::string(65'537, 'x'));
    std::filesystem::create_directories(root / "proc/pressure/memory");
    const auto read = MachineMemory::texts(root);
    EXPECT_EQ(MachineMemory::stats(read, pageSize), MemoryStats());
    EXPECT_EQ(MachineMemory::stats(MachineMemory::texts(root / "nowhere"), pageSize), MemoryStats());
}

TEST(MachineMemory, thisMachineHasFigures) {
    const auto stats =
        MachineMemory::stats(MachineMemory::texts("/"), static_cast<std::uint64_t>(::getpagesize()));
    EXPECT_EQ(stats.total, static_cast<std::uint64_t>(::sysconf(_SC_PHYS_PAGES)) *
                               static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)));
    EXPECT_GT(stats.used, 0U);
    EXPECT_LT(stats.used, stats.total);
}

} // namespace

} // namespace quillary

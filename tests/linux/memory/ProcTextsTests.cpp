#include "platform/linux/memory/ProcTexts.h"

#include <gtest/gtest.h>

#include <random>

namespace quillary::test {

namespace {

using ProcTexts::Stat;

std::string statText(const std::string& name) {
    return "4242 (" + name +
           ") S 17 4242 4242 0 -1 4194560 1 2 3 4 5 6 7 8 20 0 9 0 123456789 999999 5555 "
           "18446744073709551615 1 2 3\n";
}

TEST(ProcTexts, statTellsParentStartAndPages) {
    EXPECT_EQ(ProcTexts::stat(statText("bash")), (Stat{"bash", 17, 123456789, 5555}));
}

TEST(ProcTexts, namesMayHoldAnything) {
    for (const std::string name :
         {"a) R 1 1 (b", "))))", "((", "line\nbreak) S 1\n", " ", "", "\xff\xfe", "4 (x) S 9"}) {
        EXPECT_EQ(ProcTexts::stat(statText(name)), (Stat{name, 17, 123456789, 5555})) << name;
    }
    EXPECT_EQ(ProcTexts::stat(statText(std::string(100, 'n')))->command, std::string(64, 'n'));
}

TEST(ProcTexts, statWithoutAllItsFieldsIsNone) {
    const auto whole = statText("x");
    const auto needed = whole.find("5555") + 1;
    for (std::size_t length = 0; length < needed; ++length) {
        EXPECT_EQ(ProcTexts::stat(whole.substr(0, length)), std::nullopt) << length;
    }
    for (const char* text :
         {"1 ) S 1 (", "1 (x) S parent 1 1", "1 (x) S 99999999999 1 1 0", "no parentheses"}) {
        EXPECT_EQ(ProcTexts::stat(text), std::nullopt) << text;
    }
}

TEST(ProcTexts, negativePagesAreNone) {
    auto text = statText("x");
    text.replace(text.find("5555"), 4, "-3");
    EXPECT_EQ(ProcTexts::stat(text)->residentPages, 0U);
}

TEST(ProcTexts, residentIsAnonymousSharedAndSwap) {
    const std::string text =
        "Name:\tRssAnon: 7\nVmRSS:\t   900 kB\nRssAnon:\t     300 kB\nRssFile:\t      50 kB\n"
        "RssShmem:\t      20 kB\nVmSwap:\t       4 kB\n";
    EXPECT_EQ(ProcTexts::resident(text), 324U * 1024U);
    EXPECT_EQ(ProcTexts::resident(text.substr(0, text.find("VmSwap"))), 320U * 1024U);
    EXPECT_EQ(ProcTexts::resident("Name:\tkthreadd\nThreads:\t1\n"), std::nullopt);
    EXPECT_EQ(ProcTexts::resident(""), std::nullopt);
}

TEST(ProcTexts, footprintLeavesOutFilesAndWhatWasLazilyFreed) {
    const std::string text =
        "Rss: 9000 kB\nPss: 8000 kB\nPss_Anon: 500 kB\nPss_File: 700 kB\nPss_Shmem: 30 kB\n"
        "Anonymous: 5000 kB\nLazyFree: 100 kB\nSwap: 400 kB\nSwapPss: 7 kB\n";
    EXPECT_EQ(ProcTexts::footprint(text), 437U * 1024U);
}

TEST(ProcTexts, lazilyFreedMemoryNeverMakesItNegative) {
    EXPECT_EQ(ProcTexts::footprint("Pss_Anon: 5 kB\nPss_Shmem: 3 kB\nLazyFree: 9 kB\n"), 3U * 1024U);
}

TEST(ProcTexts, kernelsThatDoNotSplitSharesGiveNoFootprint) {
    EXPECT_EQ(ProcTexts::footprint("Rss: 9 kB\nPss: 8 kB\nAnonymous: 5 kB\nSwapPss: 1 kB\n"), std::nullopt);
}

TEST(ProcTexts, impossibleFiguresAreNone) {
    for (const char* number : {"-1", "x", "", "18446744073709551615", "1125899906842625"}) {
        EXPECT_EQ(ProcTexts::footprint("Pss_Anon: " + std::string(number) + " kB\nPss_Shmem: 1 kB\n"),
                  std::nullopt)
            << number;
    }
}

TEST(ProcTexts, anyBytesAreTaken) {
    const std::string rollup = "Pss_Anon: 500 kB\nPss_Shmem: 30 kB\nLazyFree: 100 kB\nSwapPss: 7 kB\n";
    for (std::uint32_t seed = 0; seed < 5000; ++seed) {
        std::mt19937 random(seed);
        auto text = (seed % 2 == 0 ? statText("name") : rollup).substr(0, random() % 200);
        for (int change = 0; change < 5 && !text.empty(); ++change) {
            text[random() % text.size()] = static_cast<char>(random());
        }
        const auto figure = ProcTexts::footprint(text).value_or(0);
        EXPECT_LE(figure, std::uint64_t{3} << 60U);
        static_cast<void>(ProcTexts::stat(text));
        static_cast<void>(ProcTexts::resident(text));
    }
}

} // namespace

} // namespace quillary::test

#include "tests/desktop/DesktopFixture.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <utility>

namespace quillary::test {

namespace {

const QRect leftScreen(0, 0, 1280, 900);
const QPoint firstIcon(613, 857);
const std::string noGrowth = R"("magnification":"off")";
constexpr double mebibyte = 1024.0;

double numberIn(const std::string& text, std::size_t place) {
    double value = 0;
    std::from_chars(text.data() + place, text.data() + text.size(), value);
    return value;
}

/// MiB by the kernel's own accounting: what is the process's alone and its part of what it shares, without
/// files.
double accounted(const std::filesystem::path& process) {
    std::ifstream rollup(process / "smaps_rollup");
    std::map<std::string, double> kibibytes;
    std::string line;
    while (std::getline(rollup, line)) {
        const auto colon = line.find(':');
        const auto digit = line.find_first_of("0123456789", colon == std::string::npos ? line.size() : colon);
        if (digit != std::string::npos) {
            kibibytes[line.substr(0, colon)] = numberIn(line, digit);
        }
    }
    return (kibibytes["Pss_Anon"] - kibibytes["LazyFree"] + kibibytes["Pss_Shmem"] + kibibytes["SwapPss"]) /
           mebibyte;
}

/// The processes that run this very file.
std::vector<std::filesystem::path> processesOf(const std::filesystem::path& executable) {
    std::vector<std::filesystem::path> found;
    std::error_code error;
    for (const auto& folder : std::filesystem::directory_iterator("/proc")) {
        if (std::filesystem::read_symlink(folder.path() / "exe", error) == executable) {
            found.push_back(folder.path());
        }
    }
    return found;
}

class MemoryTest : public DesktopFixture {
protected:
    void SetUp() override {
        DesktopFixture::SetUp();
        settings = R"({"showMemory":true,"onboarded":true,"docks":[)" + dockJson(leftKey, {"/a"}, noGrowth) +
                   "," + dockJson(rightKey, {"/a"}, noGrowth) + "]}";
        home.writeSettings(settings);
    }

    /// Installs an application in a folder of its own that uses memory as the words say, which are those of
    /// the helper program.
    std::filesystem::path install(const std::string& id, const std::string& words) {
        auto executable = home.path() / "opt" / id / "hog";
        std::filesystem::create_directories(executable.parent_path());
        std::filesystem::copy_file(QUILLARY_MEMORY_HOG, executable);
        entries[id] = home.install(id, colours.at(entries.size()),
                                   "Exec=\"" + executable.string() + "\" " + id + " " + words + "\n");
        return executable;
    }
    /// Starts an application by its entry, as desktops do.
    void launch(const std::string& id) {
        display.start({"gio", "launch", entries.at(id)});
        ASSERT_TRUE(eventually([&] { return windowOf(id) != XCB_WINDOW_NONE; })) << id;
    }
    /// The report of a program that was started anew and had its time.
    std::string report(const std::vector<std::string>& environment = {}) {
        const auto folder = home.path() / "snapshot";
        std::filesystem::create_directories(folder);
        std::vector<std::string> variables{"QY_SNAPSHOT_DIR=" + folder.string()};
        variables.insert(variables.end(), environment.begin(), environment.end());
        program.start(variables);
        EXPECT_EQ(program.waitForEnd(), Program::End{0}) << program.log();
        return Home::read(folder / "snapshot-report.txt");
    }
    /// The figure that the report has for the application, MiB; negative when it has none.
    static double figureIn(const std::string& text, const std::string& id) {
        const auto place = text.find("\n  " + id + " · ");
        if (place == std::string::npos) {
            return -1;
        }
        const auto begin = place + id.size() + std::string("\n   · ").size();
        const auto end = text.find(" · ", begin);
        const auto size = text.substr(begin, end - begin);
        if (size.ends_with(" GB")) {
            return numberIn(size, 0) * mebibyte;
        }
        return size.ends_with(" MB") ? numberIn(size, 0) : -1;
    }
    /// What the kernel accounts for all processes of the executable, held against the report.
    static testing::AssertionResult agree(const std::string& text, const std::string& id,
                                          const std::filesystem::path& executable, std::size_t processes,
                                          double atLeast, double atMost) {
        double truth = 0;
        const auto found = processesOf(executable);
        for (const auto& process : found) {
            truth += accounted(process);
        }
        const double figure = figureIn(text, id);
        const bool isRight = std::abs(figure - truth) <= std::max(0.05 * truth, 1.0);
        const bool isAsMade = found.size() == processes && truth >= atLeast && truth <= atMost;
        return (isRight && isAsMade ? testing::AssertionSuccess() : testing::AssertionFailure())
               << id << ": " << figure << " MiB shown, " << truth << " MiB accounted for " << found.size()
               << " processes\n"
               << text;
    }

    [[nodiscard]] int redPixels(const QRect& area) const {
        int count = 0;
        const auto picture = display.screenshot();
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                const auto colour = picture.pixelColor(x, y);
                count += colour.red() > 200 && colour.green() < 110 && colour.blue() < 110 ? 1 : 0;
            }
        }
        return count;
    }
    /// For people: the first icon with its dot, its label and its menu.
    void takePictures(const std::filesystem::path& folder) {
        const auto take = [&](const char* name) {
            VirtualDisplay::runFor(1000);
            display.screenshot()
                .copy(QRect(440, 500, 400, 400))
                .save(QString::fromStdString((folder / name).string()));
        };
        take("dot.png");
        display.movePointer(firstIcon);
        take("label.png");
        display.click(firstIcon, 3);
        take("menu.png");
        display.click(QPoint(200, 700));
        VirtualDisplay::runFor(500);
    }

    std::string settings;
    std::map<std::string, std::string> entries;
    const std::vector<QColor> colours{Qt::green, Qt::yellow, Qt::cyan, Qt::magenta, Qt::white, Qt::black};
};

TEST_F(MemoryTest, figuresAreThoseOfTheKernel) {
    const auto plain = install("plain", "anonymous=150");
    const auto family = install("family", "anonymous=10 forked=120 shared=60 private=15 children=4");
    const auto lazy = install("lazy", "anonymous=40 lazy=100");
    const auto detached = install("detached", "anonymous=20 detached=70");
    for (const auto& [id, entry] : entries) {
        launch(id);
    }
    ASSERT_TRUE(eventually([&] { return processesOf(detached).size() == 2; }));
    ASSERT_TRUE(eventually([&] {
        double sum = 0;
        for (const auto& process : processesOf(detached)) {
            sum += accounted(process);
        }
        return sum > 88;
    }));
    const auto text = report();
    EXPECT_TRUE(agree(text, "plain", plain, 1, 150, 155));
    EXPECT_TRUE(agree(text, "family", family, 5, 250, 260));
    // The kernel may have taken some of what was lazily freed: it counts in no case.
    EXPECT_TRUE(agree(text, "lazy", lazy, 1, 40, 45));
    EXPECT_TRUE(agree(text, "detached", detached, 2, 90, 100));
}

TEST_F(MemoryTest, whatNobodyMayReadCountsByItsCheapFigure) {
    install("secret", "anonymous=80 nodump=1");
    launch("secret");
    const auto figure = figureIn(report(), "secret");
    EXPECT_GE(figure, 80);
    EXPECT_LE(figure, 85);
}

TEST_F(MemoryTest, swappedMemoryCounts) {
    const auto swaps = Home::read("/proc/swaps");
    if (std::ranges::count(swaps, '\n') < 2) {
        GTEST_SKIP() << "the machine has neither swap nor zram in use";
    }
    const auto executable = install("swapped", "anonymous=20 swapped=60");
    launch("swapped");
    const auto text = report();
    EXPECT_TRUE(agree(text, "swapped", executable, 1, 80, 85));
}

TEST_F(MemoryTest, whatADockStartedIsTheApplicationsAndNotTheDocks) {
    const auto executable = install("launched", "anonymous=100 children=2 private=20");
    home.writeSettings(R"({"showMemory":true,"onboarded":true,"docks":[)" +
                       dockJson(leftKey, {entries.at("launched"), "/a"}, noGrowth) + "," +
                       dockJson(rightKey, {"/a"}, noGrowth) + "]}");
    startWithDocks(2);
    ASSERT_TRUE(eventually([&] { return colourBox(colours[0], leftScreen) == QRect(589, 833, 48, 48); }))
        << testing::PrintToString(colourBox(colours[0], leftScreen));
    display.click(firstIcon);
    ASSERT_TRUE(eventually([&] { return windowOf("launched") != XCB_WINDOW_NONE; })) << program.log();
    ASSERT_TRUE(program.quit());
    EXPECT_TRUE(agree(report(), "launched", executable, 3, 140, 148));
}

TEST_F(MemoryTest, aHogIsDrawnRedWithItsFigure) {
    // Under pressure the line is at 1 GiB: another table and other stalls, for the program alone.
    const auto table = home.path() / "meminfo";
    const auto stalls = home.path() / "stalls";
    Home::write(table, "MemTotal: 8388608 kB\nAnonPages: 4194304 kB\nActive(anon): 4194304 kB\n");
    Home::write(stalls,
                "some avg10=30.00 avg60=0.00 avg300=0.00 total=1\nfull avg10=20.00 avg60=0.00 total=1\n");
    const std::string mounts = "mount --bind '" + table.string() + "' /proc/meminfo && mount --bind '" +
                               stalls.string() + "' /proc/pressure/memory";
    if (std::system(("unshare -m sh -c \"" + mounts + "\" 2>/dev/null").c_str()) != 0) {
        GTEST_SKIP() << "this user may not mount, so the program cannot be shown another /proc/meminfo";
    }
    const std::vector<std::string> elsewhere{"unshare", "-m", "sh", "-c", mounts + " && exec env \"$@\"",
                                             "sh"};

    install("hog", "anonymous=1040");
    install("small", "anonymous=30");
    home.writeSettings(R"({"showMemory":true,"onboarded":true,"docks":[)" +
                       dockJson(leftKey, {entries.at("hog"), entries.at("small")}, noGrowth) + "," +
                       dockJson(rightKey, {"/a"}, noGrowth) + "]}");
    launch("hog");
    launch("small");
    program.start(elsewhere);
    ASSERT_TRUE(eventually([&] { return docks().size() == 2; })) << program.log();

    // The small one's icon: the hog's is not all to be seen. Until it rests, anything may pass below a point.
    ASSERT_TRUE(eventually([&] { return colourBox(colours[1], leftScreen) == QRect(643, 833, 48, 48); }));
    EXPECT_TRUE(eventually([&] { return redPixels(QRect(609, 886, 9, 9)) > 40; })) << "the dot";
    EXPECT_EQ(redPixels(QRect(663, 886, 9, 9)), 0) << "the small one's dot";
    EXPECT_GT(redPixels(QRect(600, 820, 55, 30)), 100) << "the pill";
    EXPECT_EQ(redPixels(QRect(656, 820, 55, 30)), 0);
    if (const char* folder = std::getenv("QUILLARY_MEMORY_PICTURES")) {
        takePictures(folder);
    }
    EXPECT_TRUE(program.quit());

    const auto text = report(elsewhere);
    EXPECT_TRUE(text.starts_with("showsMemory: true\npressure: critical · used 4.0 GB of 8.0 GB\n")) << text;
    EXPECT_NE(text.find("\n  hog · 1.0 GB · hog"), std::string::npos) << text;
    EXPECT_NEAR(figureIn(text, "small"), 30, 3) << text;
    EXPECT_NE(text.find(" MB · none"), std::string::npos) << text;
}

TEST_F(MemoryTest, whileTheDisplayIsOffNothingIsReadAgain) {
    home.writeSettings(
        settingsJson({dockJson(leftKey, {"/a"}, noGrowth), dockJson(rightKey, {"/a"}, noGrowth)}));
    startWithDocks(2);
    const auto switches = [this] {
        long sum = 0;
        std::error_code error;
        for (const auto& task : std::filesystem::directory_iterator(
                 "/proc/" + std::to_string(program.process()) + "/task", error)) {
            std::ifstream status(task.path() / "status");
            std::string word;
            long count = 0;
            while (status >> word) {
                if (word == "voluntary_ctxt_switches:" && status >> count) {
                    sum += count;
                }
            }
        }
        return sum;
    };
    // Until the start has settled.
    long before = switches();
    ASSERT_TRUE(eventually([&] {
        VirtualDisplay::runFor(2000);
        return std::exchange(before, switches()) == before;
    }));
    VirtualDisplay::runFor(9000);
    EXPECT_EQ(switches(), before);
}

} // namespace

} // namespace quillary::test

#include "tests/desktop/ClientResources.h"
#include "tests/desktop/DesktopFixture.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace quillary::test {

namespace {

const QColor red(220, 20, 20);
const QPoint leftStrip(640, 899);
const QPoint rightStrip(1840, 799);
const QPoint farAway(640, 300);
// Between the end of the row on LEFT and its first icon.
const QPoint freeSpace(584, 857);
constexpr xcb_keysym_t escapeKey = 0xff1b;

// What the allocator keeps back and takes again moves by about this much, in KiB.
#ifdef __SANITIZE_ADDRESS__
// The sanitizer keeps what is freed, and the stacks that freed it.
constexpr long memoryTolerance = 4 * 1024;
#else
constexpr long memoryTolerance = 1024;
#endif

int wanted(const char* variable, int otherwise) {
    const char* value = std::getenv(variable);
    const auto number = value != nullptr ? std::strtol(value, nullptr, 10) : 0;
    return number > 0 ? static_cast<int>(number) : otherwise;
}

/// Fewer cycles by default than scripts/soak asks for.
class SoakTest : public DesktopFixture {
protected:
    struct Figures {
        long memory = 0;
        std::size_t descriptors = 0;
        std::map<std::string, unsigned> resources;
    };

    void SetUp() override {
        DesktopFixture::SetUp();
        const std::vector<std::string> items{home.install("red", red), "/b"};
        const std::string options = R"("magnification":"off","autoHide":true)";
        home.writeSettings(
            settingsJson({dockJson(leftKey, items, options), dockJson(rightKey, items, options)}));
        startWithDocks(2);
        left = leftDock();
        right = rightDock();
        ASSERT_TRUE(eventually([&] { return isHidden(left) && isHidden(right); }));
    }
    [[nodiscard]] Figures figures() const {
        return {program.anonymousMemory(), program.descriptors(),
                clientResources(display, program.process())};
    }
    [[nodiscard]] bool isHidden(xcb_window_t dock) const { return inputShape(dock).isEmpty(); }

    /// Both docks come and go, as often in all.
    [[nodiscard]] bool hideAndReveal(int times) {
        for (int i = 0; i < times; i += 2) {
            display.movePointer(leftStrip);
            if (!eventually([&] { return !isHidden(left); })) {
                return false;
            }
            display.movePointer(rightStrip);
            if (!eventually([&] { return !isHidden(right); })) {
                return false;
            }
            display.movePointer(farAway);
            if (!eventually([&] { return isHidden(left) && isHidden(right); })) {
                return false;
            }
        }
        return true;
    }
    [[nodiscard]] bool openMenus(int times) {
        display.movePointer(leftStrip);
        if (!eventually([&] { return !isHidden(left); })) {
            return false;
        }
        display.movePointer(freeSpace);
        VirtualDisplay::runFor(400);
        for (int i = 0; i < times; ++i) {
            display.click(freeSpace, 3);
            if (!popupsTakeKeys(1)) {
                ADD_FAILURE() << "menu " << i << " did not open: " << popups().size();
                return false;
            }
            display.typeKey(escapeKey);
            if (!eventually([&] { return popups().empty(); })) {
                ADD_FAILURE() << "menu " << i << " did not close: " << popups().size();
                return false;
            }
        }
        display.movePointer(farAway);
        return eventually([&] { return isHidden(left); });
    }
    /// Compares with the present figures and prints both.
    void expectNoGrowth(const Figures& before, const std::string& what) {
        // What menus leave for the event loop to free goes with the next idle moment.
        ASSERT_TRUE(eventually([&] {
            const auto now = figures();
            return now.descriptors <= before.descriptors && isNoMore(now.resources, before.resources);
        })) << testing::PrintToString(before.resources)
            << "\n"
            << testing::PrintToString(figures().resources) << "\ndescriptors " << before.descriptors
            << " and " << figures().descriptors;
        const auto now = figures();
        std::cout << what << ": memory " << before.memory << " KiB before, " << now.memory
                  << " KiB after; descriptors " << before.descriptors << ", " << now.descriptors;
        for (const auto& [type, count] : before.resources) {
            const auto place = now.resources.find(type);
            std::cout << "; " << type << " " << count << ", "
                      << (place == now.resources.end() ? 0 : place->second);
        }
        std::cout << std::endl;
        EXPECT_GT(before.memory, 0);
        EXPECT_FALSE(before.resources.empty());
        EXPECT_LE(now.memory, before.memory + memoryTolerance);
    }

    using Resources = std::map<std::string, unsigned>;
    /// What only the start needed may be gone by now.
    [[nodiscard]] static bool isNoMore(const Resources& now, const Resources& before) {
        return !now.empty() && std::ranges::all_of(now, [&before](const auto& resource) {
            const auto place = before.find(resource.first);
            return place != before.end() && resource.second <= place->second;
        });
    }

    xcb_window_t left = XCB_WINDOW_NONE;
    xcb_window_t right = XCB_WINDOW_NONE;
};

} // namespace

TEST_F(SoakTest, hidingAndRevealingLeavesNothingBehind) {
    const int times = wanted("QUILLARY_SOAK_HIDES", 60);
    ASSERT_TRUE(hideAndReveal(20));
    const auto before = figures();
    ASSERT_TRUE(hideAndReveal(times));
    expectNoGrowth(before, std::to_string(times) + " times hidden and revealed");
}

TEST_F(SoakTest, openingMenusLeavesNothingBehind) {
    const int times = wanted("QUILLARY_SOAK_MENUS", 40);
    ASSERT_TRUE(openMenus(20));
    const auto before = figures();
    ASSERT_TRUE(openMenus(times));
    expectNoGrowth(before, std::to_string(times) + " menus");
}

} // namespace quillary::test

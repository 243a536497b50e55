#include "platform/linux/statusbar/DBusMenuLayout.h"

#include <gtest/gtest.h>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

ClosureMenuItem entry(const std::string& title, std::string* log = nullptr, const std::string& line = {}) {
    return {title, false, [log, line] {
                if (log != nullptr) {
                    *log += line;
                }
            }};
}

Menu sample(std::string* log = nullptr, const std::string& line = {}) {
    Menu menu;
    menu.push_back(entry("Settings_1…", log, line));
    menu.push_back(ClosureMenuItem::separator());
    menu.push_back(ClosureMenuItem("Dock on LEFT", true, nullptr));
    menu.push_back(entry("Greyed"));
    menu.back().enabled = false;
    menu.push_back(ClosureMenuItem::submenu("More", {entry("Inner")}));
    menu.push_back(entry("Quit"));
    menu.back().keyEquivalent = 'q';
    return menu;
}

} // namespace

TEST(DBusMenuLayout, describesEveryKindOfLine) {
    DBusMenuLayout layout;
    EXPECT_TRUE(layout.update(sample()));
    const auto root = layout.node(0, -1, {});
    ASSERT_TRUE(root);
    EXPECT_EQ(root->properties, (QVariantMap{{u"children-display"_s, u"submenu"_s}}));
    ASSERT_EQ(root->children.size(), 6U);
    EXPECT_EQ(root->children[0].properties, (QVariantMap{{u"label"_s, u"Settings__1…"_s}}));
    EXPECT_EQ(root->children[1].properties, (QVariantMap{{u"type"_s, u"separator"_s}}));
    EXPECT_EQ(root->children[2].properties, (QVariantMap{{u"label"_s, u"Dock on LEFT"_s},
                                                         {u"toggle-type"_s, u"checkmark"_s},
                                                         {u"toggle-state"_s, 1}}));
    EXPECT_EQ(root->children[3].properties, (QVariantMap{{u"label"_s, u"Greyed"_s}, {u"enabled"_s, false}}));
    EXPECT_EQ(root->children[4].properties,
              (QVariantMap{{u"label"_s, u"More"_s}, {u"children-display"_s, u"submenu"_s}}));
    ASSERT_EQ(root->children[4].children.size(), 1U);
    EXPECT_EQ(root->children[4].children[0].properties, (QVariantMap{{u"label"_s, u"Inner"_s}}));
    EXPECT_EQ(root->children[5].properties.value(u"shortcut"_s).value<QList<QStringList>>(),
              (QList<QStringList>{{u"Control"_s, u"q"_s}}));
}

TEST(DBusMenuLayout, givesOnlyTheLevelsAndPropertiesAskedFor) {
    DBusMenuLayout layout;
    EXPECT_TRUE(layout.update(sample()));
    EXPECT_TRUE(layout.node(0, 0, {})->children.empty());
    const auto one = layout.node(0, 1, {u"label"_s});
    ASSERT_EQ(one->children.size(), 6U);
    EXPECT_TRUE(one->children[1].properties.isEmpty());
    EXPECT_EQ(one->children[2].properties, (QVariantMap{{u"label"_s, u"Dock on LEFT"_s}}));
    EXPECT_TRUE(one->children[4].children.empty());
    EXPECT_FALSE(layout.node(99, -1, {}));
    EXPECT_FALSE(layout.node(-1, -1, {}));
}

TEST(DBusMenuLayout, aMenuThatLooksTheSameKeepsItsNumbersButTakesTheNewHandlers) {
    DBusMenuLayout layout;
    std::string log;
    EXPECT_TRUE(layout.update(sample(&log, "old ")));
    const auto revision = layout.revision();
    const int id = layout.node(0, 1, {})->children[0].id;
    EXPECT_FALSE(layout.update(sample(&log, "new ")));
    EXPECT_EQ(layout.revision(), revision);
    ASSERT_NE(layout.entry(id), nullptr);
    layout.entry(id)->fire();
    EXPECT_EQ(log, "new ");
}

TEST(DBusMenuLayout, numbersOfAnOutdatedMenuMeanNothing) {
    DBusMenuLayout layout;
    EXPECT_TRUE(layout.update(sample()));
    const auto before = *layout.node(0, -1, {});
    auto changed = sample();
    changed[2].checked = false;
    EXPECT_TRUE(layout.update(std::move(changed)));
    EXPECT_EQ(layout.revision(), 3U);
    for (const auto& line : before.children) {
        EXPECT_FALSE(layout.contains(line.id)) << line.id;
        EXPECT_EQ(layout.entry(line.id), nullptr);
    }
    EXPECT_TRUE(layout.contains(0));
}

TEST(DBusMenuLayout, onlyEnabledEntriesCanBeChosen) {
    DBusMenuLayout layout;
    EXPECT_TRUE(layout.update(sample()));
    const auto root = *layout.node(0, -1, {});
    EXPECT_EQ(layout.entry(0), nullptr);
    EXPECT_NE(layout.entry(root.children[0].id), nullptr);
    EXPECT_EQ(layout.entry(root.children[1].id), nullptr);
    EXPECT_EQ(layout.entry(root.children[3].id), nullptr);
    EXPECT_EQ(layout.entry(root.children[4].id), nullptr);
    EXPECT_NE(layout.entry(root.children[4].children[0].id), nullptr);
}

TEST(DBusMenuLayout, everyPartOfTheLooksCounts) {
    const auto changes = [](auto change) {
        DBusMenuLayout layout;
        static_cast<void>(layout.update(sample()));
        auto menu = sample();
        change(menu);
        return layout.update(std::move(menu));
    };
    EXPECT_FALSE(changes([](Menu&) {}));
    EXPECT_TRUE(changes([](Menu& menu) { menu.pop_back(); }));
    EXPECT_TRUE(changes([](Menu& menu) { menu[0].title = "Other"; }));
    EXPECT_TRUE(changes([](Menu& menu) { menu[0].checked = true; }));
    EXPECT_TRUE(changes([](Menu& menu) { menu[0].enabled = false; }));
    EXPECT_TRUE(changes([](Menu& menu) { menu[0].keyEquivalent = 'x'; }));
    EXPECT_TRUE(changes([](Menu& menu) { menu[4].items[0].title = "Other"; }));
}

} // namespace quillary

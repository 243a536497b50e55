#include "platform/linux/windows/UnitName.h"

#include <gtest/gtest.h>

namespace quillary::test {

namespace {

struct Case {
    std::string group;
    UnitApplication unit;
};

TEST(UnitName, controlGroupsNameTheirApplication) {
    const std::string session = "/user.slice/user-1000.slice/user@1000.service/app.slice/";
    const std::vector<Case> cases = {
        {session + "app-gnome-org.gnome.Nautilus-4711.scope", {"org.gnome.Nautilus", false}},
        {session + "app-firefox\\x2desr-12.scope", {"firefox-esr", false}},
        {session + "app-flatpak-org.gimp.GIMP-3456.scope", {"org.gimp.GIMP", true}},
        {session + "app-quillary-kde4\\x2dfoo-99.scope", {"kde4-foo", false}},
        {session + "app-org.kde.kate@0a1b2c.service", {"org.kde.kate", false}},
        {session + "app-gnome\\x2dkeyring@autostart.service", {"gnome-keyring", false}},
        {session + "snap.firefox.firefox-e8fdfc94-1234-4e5f-9abc-0123456789ab.scope",
         {"firefox_firefox", true}},
        {session + "snap.code.url-handler.e8fdfc94-1234-4e5f-9abc-0123456789ab.scope",
         {"code_url-handler", true}},
        {session + "app-org.gnome.Terminal.slice/vte-spawn-e8fdfc94.scope", {"", false}},
        {"/user.slice/user-1000.slice/session-2.scope", {"", false}},
        {"/", {"", false}},
        {"", {"", false}},
        {session + "app-.scope", {"", false}},
        {session + "app-\\xff\\xfe-1.scope", {"", false}},
    };
    for (const auto& item : cases) {
        EXPECT_EQ(unitApplication(item.group).id, item.unit.id) << item.group;
        EXPECT_EQ(unitApplication(item.group).sandboxed, item.unit.sandboxed) << item.group;
    }
}

TEST(UnitName, scopeOfAChildIsNamedForItsEntry) {
    EXPECT_EQ(scopeName("org.gnome.Nautilus", 42), "app-quillary-org.gnome.Nautilus-42.scope");
    EXPECT_EQ(scopeName("firefox-esr", 7), "app-quillary-firefox\\x2desr-7.scope");
    EXPECT_EQ(scopeName(std::string(300, 'a'), 7), "");
}

TEST(UnitName, escapingIsSystemdsAndComesBack) {
    EXPECT_EQ(escapeUnitPart(".a b-c/\xc3\xa4"), "\\x2ea\\x20b\\x2dc\\x2f\\xc3\\xa4");
    EXPECT_EQ(unescapeUnitPart("\\x2ea\\x20b\\x2dc\\x2f\\xc3\\xa4"), ".a b-c/\xc3\xa4");
    EXPECT_EQ(unescapeUnitPart("a\\xzz\\x2"), "a\\xzz\\x2");
}

} // namespace

} // namespace quillary::test

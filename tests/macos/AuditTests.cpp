#include "tests/macos/ObjectiveText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <vector>

namespace quillary::test {
namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

const fs::path root = QUILLARY_SOURCE_FOLDER;

std::string contents(const fs::path& file) {
    const std::ifstream stream(file);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// The files' texts one after the other.
std::string collected(const fs::path& folder, const std::vector<std::string>& extensions) {
    std::string text;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (std::ranges::find(extensions, entry.path().extension().string()) != extensions.end()) {
            text += "\n" + contents(entry.path());
        }
    }
    return text;
}

std::string backend() {
    return collected(root / "platform" / "macos", {".mm", ".h"});
}

std::string declarations() {
    return collected(root / "tests" / "macos" / "declarations", {".h"});
}

const std::map<std::string, double>& documentedNumbers() {
    static const std::map<std::string, double> table = {
#define NUMBER(name, value) {#name, value},
#define TEXT(name, value)
#include "tests/macos/DocumentedValues.def"
#undef NUMBER
#undef TEXT
    };
    return table;
}

const std::map<std::string, std::string>& documentedTexts() {
    static const std::map<std::string, std::string> table = {
#define NUMBER(name, value)
#define TEXT(name, value) {#name, value},
#include "tests/macos/DocumentedValues.def"
#undef NUMBER
#undef TEXT
    };
    return table;
}

Names without(const Names& all, const Names& known) {
    Names rest;
    std::ranges::set_difference(all, known, std::inserter(rest, rest.end()));
    return rest;
}

/// The value of a declared constant, of the forms that the declarations use; the one before for those that
/// count on.
double valueOf(const std::string& text) {
    if (text.starts_with('\'')) {
        return (((text.at(1) * 256.0 + text.at(2)) * 256.0) + text.at(3)) * 256.0 + text.at(4);
    }
    std::string plain = text;
    std::erase_if(plain, [](char character) { return character == '(' || character == ')'; });
    const auto shift = plain.find("<<");
    const double first =
        std::stod(plain.starts_with("0x") ? std::to_string(std::stol(plain, nullptr, 16)) : plain);
    return shift == std::string::npos
               ? first
               : first * static_cast<double>(1U << std::stoul(plain.substr(shift + 2)));
}

TEST(MacosAudit, everySelectorThatIsSentIsDeclared) {
    // The root class comes with the compiler.
    Names known = {"alloc", "class", "init", "isEqual:", "isKindOfClass:"};
    known.merge(ObjectiveText::declaredSelectors(declarations()));
    known.merge(ObjectiveText::declaredSelectors(backend()));
    const Names sent = ObjectiveText::sentSelectors(backend());
    EXPECT_GT(sent.size(), 100U);
    EXPECT_EQ(without(sent, known), Names{});
}

TEST(MacosAudit, nothingIsDeclaredThatIsNotUsed) {
    const Names needed = {
        "copyWithZone:", "countByEnumeratingWithState:objects:count:", "arrayWithObjects:count:"};
    const Names sent = ObjectiveText::sentSelectors(backend());
    Names declared = without(ObjectiveText::declaredSelectors(declarations()), needed);
    // A property may be used by one of its two selectors only.
    std::erase_if(declared, [&sent](const std::string& selector) {
        return sent.contains(selector) || (selector.starts_with("set") && selector.ends_with(":")) ||
               std::ranges::any_of(sent, [&selector](const std::string& used) {
                   const auto name = selector.starts_with("is") ? selector.substr(2) : selector;
                   return used.size() == name.size() + 4 && used.ends_with(name.substr(1) + ":");
               });
    });
    declared.erase("menuNeedsUpdate:"); // called by the system
    EXPECT_EQ(declared, Names{});
}

TEST(MacosAudit, everyConstantThatIsUsedHasADocumentedValue) {
    const Names used = ObjectiveText::words(backend());
    Names undocumented;
    for (const auto& [name, value] : ObjectiveText::declaredConstants(declarations())) {
        if (used.contains(name) && !documentedNumbers().contains(name) && !documentedTexts().contains(name)) {
            undocumented.insert(name);
        }
    }
    // Objects, which have no value to compare.
    EXPECT_EQ(undocumented, (Names{"NSZeroRect", "kCFAllocatorDefault", "kCFBooleanFalse", "kCFBooleanTrue",
                                   "kCGColorSpaceSRGB"}));
}

TEST(MacosAudit, everyDocumentedValueIsUsedAndDeclared) {
    const Names used = ObjectiveText::words(backend());
    const auto declared = ObjectiveText::declaredConstants(declarations());
    for (const auto& [name, value] : documentedNumbers()) {
        EXPECT_TRUE(used.contains(name)) << name;
        ASSERT_TRUE(declared.contains(name)) << name;
        const std::string& text = declared.at(name);
        if (!text.empty()) {
            EXPECT_EQ(valueOf(text), value) << name;
        }
    }
    for (const auto& [name, value] : documentedTexts()) {
        EXPECT_TRUE(used.contains(name)) << name;
        EXPECT_TRUE(declared.contains(name)) << name;
    }
}

TEST(MacosAudit, keysAndNamesAreSpelledAsDocumented) {
    EXPECT_EQ(
        ObjectiveText::literals(backend()),
        (Names{"", "CFBundleShortVersionString", "CFBundleVersion", "NSScreenNumber", "autohide",
               "autohide-delay", "com.apple.dock", "dock.rectangle", "org.quillary.Quillary.openedAgain"}));
}

TEST(MacosAudit, theDockIsRestartedByItsName) {
    const std::string source = contents(root / "platform" / "macos" / "MacSystemDockPreferences.mm");
    EXPECT_NE(source.find(R"(runAndWait("/usr/bin/killall", {"Dock"}))"), std::string::npos);
}

} // namespace
} // namespace quillary::test

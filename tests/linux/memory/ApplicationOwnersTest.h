#pragma once

#include "platform/linux/memory/ApplicationOwners.h"
#include "tests/linux/World.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace quillary::test {

inline const std::string session = "/user.slice/user-1000.slice/session-2.scope";
inline const std::string apps = "/user.slice/user-1000.slice/user@1000.service/app.slice";
constexpr std::int32_t ownPid = 900;

/// A desktop whose processes a test lists; pid 1 belongs to no application.
class ApplicationOwnersTest : public WorldTest {
protected:
    void SetUp() override {
        WorldTest::SetUp();
        for (const auto* id :
             {"browser", "terminal", "editor", "files", "org.gnome.Maps", "viewer", "quillary"}) {
            paths[id] = install(std::string(id) + ".desktop", "Name=x\nExec=x");
        }
    }

    struct Traits {
        std::string executable = {};
        std::string group = session;
        std::string launched = {};
        std::string sandbox = {};
    };

    void add(std::int32_t pid, std::int32_t parent, const Traits& traits,
             const std::string& application = {}) {
        m_kept.push_back(std::make_unique<ProcessTraits>(
            ProcessTraits{installFolder(traits.executable), traits.group, traits.launched, traits.sandbox}));
        processes.push_back({pid, parent, m_kept.back().get(), application});
    }

    std::string ownerOf(std::int32_t pid) {
        EntryPaths entries({World::systemData() / "applications"}, shown);
        ApplicationOwners owners(
            processes, ownPid, entries,
            [this](std::int32_t other) {
                const auto place = others.find(other);
                return place == others.end() ? std::nullopt : std::optional(place->second);
            },
            [this](std::int32_t asked) {
                namespacesRead.insert(asked);
                const auto place = namespaces.find(asked);
                return place == namespaces.end() ? ProcessNamespaces() : place->second;
            });
        return owners.ownerOf(pid);
    }

    std::map<std::string, std::string> paths;
    std::vector<DesktopNow::Entry> shown;
    std::vector<ApplicationOwners::Process> processes;
    // Processes of other users: their parents.
    std::map<std::int32_t, std::int32_t> others;
    // Of the processes whose namespaces may be read.
    std::map<std::int32_t, ProcessNamespaces> namespaces;
    // The processes whose namespaces were asked for.
    std::set<std::int32_t> namespacesRead;

private:
    std::vector<std::unique_ptr<ProcessTraits>> m_kept;
};

} // namespace quillary::test

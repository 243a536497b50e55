#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include <unistd.h> // mkdtemp on Darwin

namespace quillary::test {

/// A folder of a test's own, removed with all it holds at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quillary-core-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        m_path = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// The names of all entries.
    [[nodiscard]] std::set<std::string> names() const {
        std::set<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            result.insert(entry.path().filename().string());
        }
        return result;
    }

private:
    std::filesystem::path m_path;
};

inline void writeFile(const std::filesystem::path& path, std::string_view content) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
}

inline std::string readFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace quillary::test

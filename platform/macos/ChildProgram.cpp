#include "platform/macos/ChildProgram.h"

#include <array>
#include <cerrno>

#include <spawn.h>
#include <sys/wait.h>

namespace quillary {

int runAndWait(const std::string& program, const std::vector<std::string>& arguments) {
    auto texts = arguments;
    texts.insert(texts.begin(), program);
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (auto& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    std::array<char*, 1> noEnvironment{};
    pid_t child = 0;
    if (::posix_spawn(&child, program.c_str(), nullptr, nullptr, pointers.data(), noEnvironment.data()) !=
        0) {
        return -1;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            return -1;
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace quillary

#include "core/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace quillary {

void fatal(const char* message) {
    std::fprintf(stderr, "Quillary: %s\n", message);
    std::abort();
}

} // namespace quillary

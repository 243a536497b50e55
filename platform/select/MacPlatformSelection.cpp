#include "platform/macos/MacPlatform.h"
#include "platform/select/PlatformSelection.h"

namespace quillary {

void prepareEnvironment() {}

bool sessionHasWindowSystem() {
    return true;
}

std::unique_ptr<Platform> makePlatform() {
    return MacPlatform::open();
}

} // namespace quillary

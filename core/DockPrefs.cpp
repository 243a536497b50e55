#include "core/DockPrefs.h"

namespace quillary {

const DockPrefs DockPrefs::hidden{true, 1000.0};

} // namespace quillary

#pragma once

#include "platform/BundleInfo.h"
#include "platform/linux/login/LinuxLoginItem.h"

/// The identity of the running program, from the QCoreApplication, which must exist.
namespace quillary::OwnProgram {

/// What the program's autostart entry says. Call it when the program starts: the path is then that of the
/// running file, which an update of the package may remove later.
[[nodiscard]] LinuxLoginItem::Program autostart();

/// The version in the installed program's bundle.json; both fields are absent in a build folder.
[[nodiscard]] BundleInfo bundleInfo();

} // namespace quillary::OwnProgram

#pragma once

#include "core/AppUsage.h"
#include "core/ProcessSample.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Adds up the memory of processes by application.
namespace quillary::AppMemoryGrouping {

/// The application bundle that a path lies in: up to and with its first component that ends in ".app". The
/// outermost of several counts. Nothing when the path lies in none.
[[nodiscard]] std::optional<std::string> bundle(std::string_view path);

/// Whether the bundle at this path is an application that people start, not a part of the system: somewhere
/// below a folder "Applications", but not below "/System/Library" nor "/Library/Apple".
[[nodiscard]] bool isUserApp(std::string_view bundlePath);

/// The memory of each user application that the samples' executables lie in, as `sum` gives it. `exclude`
/// names one bundle that is left out with all that is nested inside it.
[[nodiscard]] std::vector<AppUsage> group(const std::vector<ProcessSample>& samples,
                                          const std::optional<std::string>& exclude = {});

/// The memory of each application, for samples whose paths are those of applications. By falling size, equal
/// sizes by name (bytewise), equal names in the order of their first samples. Samples of 0 bytes and of
/// `exclude` count for nothing. An overflow ends the program.
[[nodiscard]] std::vector<AppUsage> sum(const std::vector<ProcessSample>& samples,
                                        const std::optional<std::string>& exclude = {});

} // namespace quillary::AppMemoryGrouping

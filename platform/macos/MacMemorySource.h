#pragma once

#include "core/AppMemorySource.h"
#include "platform/MemorySource.h"

namespace quillary {

/// Memory by Mach, sysctl and libproc. The program's own bundle is left out.
class MacMemorySource final : public MemorySource {
public:
    MacMemorySource();
    [[nodiscard]] Sampler sampler() override;

private:
    AppMemorySource m_source;
};

} // namespace quillary

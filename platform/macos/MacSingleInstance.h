#pragma once

#include "platform/SingleInstance.h"

#include <memory>

namespace quillary {

/// Of the processes with the program's bundle identifier the one that was launched first stays. The system
/// itself starts a bundle once and tells the running one when it is opened again; others that make way tell
/// it too.
class MacSingleInstance final : public SingleInstance {
    Q_OBJECT

public:
    MacSingleInstance();
    ~MacSingleInstance() override;

    /// True as well for a program that is no bundle: nothing is known of its other processes.
    [[nodiscard]] bool claim() override;

private:
    void followReopening();

    struct Native;
    std::unique_ptr<Native> m_native;
};

} // namespace quillary

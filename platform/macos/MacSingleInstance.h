#pragma once

#include "platform/SingleInstance.h"

#include <memory>

namespace quillary {

/// Of the processes with the program's bundle identifier, the one that was launched first is the instance.
/// The system starts a bundle only once and sends the running process an Apple event when it is opened again.
/// A process that was started by other means notifies the instance before it ends.
class MacSingleInstance final : public SingleInstance {
    Q_OBJECT

public:
    MacSingleInstance();
    ~MacSingleInstance() override;

    /// Also true for a program that is not a bundle, whose other processes cannot be found.
    [[nodiscard]] bool claim() override;

private:
    void followReopening();

    struct Native;
    std::unique_ptr<Native> m_native;
};

} // namespace quillary

#include "platform/linux/OwnProgram.h"

#include "platform/linux/LinuxBundleInfo.h"

#include <QGuiApplication>

namespace quillary::OwnProgram {

LinuxLoginItem::Program autostart() {
    return {.id = QGuiApplication::desktopFileName().toStdString(),
            .name = QCoreApplication::applicationName().toStdString(),
            .path = QCoreApplication::applicationFilePath().toStdString()};
}

BundleInfo bundleInfo() {
    return readBundleInfo(bundleInfoFile(QCoreApplication::applicationFilePath().toStdString()));
}

} // namespace quillary::OwnProgram

#pragma once

#include "tests/surroundings/Surroundings.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QIcon>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace quillary::test {

/// Expects that the toolkit sees the fonts of the tests' surroundings and no icon theme or data of the
/// machine. Needs a QGuiApplication.
inline void expectOwnFontsAndIcons() {
    const QStringList own{QStringLiteral("DejaVu Sans"), QStringLiteral("DejaVu Sans Mono"),
                          QStringLiteral("DejaVu Serif")};
    // The toolkit adds the generic names.
    const QStringList generic{QStringLiteral("Monospace"), QStringLiteral("Sans Serif"),
                              QStringLiteral("Serif")};
    EXPECT_EQ(QFontDatabase::families(), own + generic);
    for (const auto& family : own) {
        auto styles = QFontDatabase::styles(family);
        styles.sort();
        EXPECT_EQ(styles, (QStringList{QStringLiteral("Bold"), QStringLiteral("Book")}))
            << family.toStdString();
    }
    EXPECT_EQ(QFontInfo(QFont(QStringLiteral("Cantarell"))).family(), QStringLiteral("DejaVu Sans"));

    const auto root = QString::fromStdString(Surroundings::root().string());
    for (const auto& path : QIcon::themeSearchPaths()) {
        EXPECT_TRUE(path.startsWith(root) || path == QLatin1String(":/icons")) << path.toStdString();
    }
    for (const auto& path : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        EXPECT_TRUE(path.startsWith(root)) << path.toStdString();
    }
}

} // namespace quillary::test

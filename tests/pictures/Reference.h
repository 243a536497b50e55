#pragma once

#include "tests/pictures/Gallery.h"

#include <QDir>
#include <QImage>
#include <QString>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace quillary::test {

/// Half of what the least of the omissions that tests make adds; text of another rasteriser stays under it.
constexpr double tolerance = 3;

/// Compares a picture with the file of that name in the folder. One that differs is put into
/// pictures-that-differ.
inline void expectLooksAs(const QString& folder, const std::string& name, const QImage& now) {
    const QString file = QString::fromStdString(name) + QStringLiteral(".png");
    const QImage reference(folder + u'/' + file);
    ASSERT_FALSE(reference.isNull()) << "no reference " << qPrintable(file)
                                     << ": scripts/pictures renews them";
    const double found = difference(now, reference);
    EXPECT_LT(found, tolerance);
    if (found >= tolerance) {
        QDir().mkpath(QStringLiteral("pictures-that-differ"));
        now.save(QStringLiteral("pictures-that-differ/") + file);
    }
}

/// The exhibit's name as tests may be called.
template<typename Tested>
std::string testName(const Tested& tested) {
    std::string name = tested.param.name;
    std::ranges::replace_if(
        name, [](char letter) { return letter == '-' || letter == '.'; }, '_');
    return name;
}

} // namespace quillary::test

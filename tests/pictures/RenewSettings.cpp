#include "tests/pictures/SettingsGallery.h"

#include <QApplication>
#include <QFont>

#include <cstdio>

// Draws every reference picture of the settings window anew into the folder given as the one argument.
int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("Usage: quillary_renew_settings_pictures FOLDER\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(quillary::test::settingsFont());
    const QString folder = QString::fromLocal8Bit(argv[1]);
    for (const auto& exhibit : quillary::test::settingsExhibits()) {
        const QString file = folder + u'/' + QString::fromStdString(exhibit.name) + QStringLiteral(".png");
        if (!quillary::test::settingsPicture(exhibit).save(file, "PNG")) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}

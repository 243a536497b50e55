#include "platform/linux/icons/PathIcons.h"

#include "core/BoundedFile.h"
#include "core/Paths.h"
#include "platform/linux/LinuxFolders.h"
#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/Released.h"
#include "platform/linux/icons/PlainIcon.h"

#include <QFileInfo>
#include <QImageReader>

#include <gio/gio.h>

#include <array>
#include <filesystem>

namespace quillary::PathIcons {

namespace {

constexpr qint64 largestPicture = qint64{16} << 20U;
constexpr int longestPictureSide = 4096;
constexpr std::size_t sniffedBytes = 4096;

struct SpecialFolder {
    GUserDirectory folder;
    const char* iconName;
};

constexpr std::array specialFolders = {
    SpecialFolder{G_USER_DIRECTORY_DESKTOP, "user-desktop"},
    SpecialFolder{G_USER_DIRECTORY_DOCUMENTS, "folder-documents"},
    SpecialFolder{G_USER_DIRECTORY_DOWNLOAD, "folder-download"},
    SpecialFolder{G_USER_DIRECTORY_MUSIC, "folder-music"},
    SpecialFolder{G_USER_DIRECTORY_PICTURES, "folder-pictures"},
    SpecialFolder{G_USER_DIRECTORY_PUBLIC_SHARE, "folder-publicshare"},
    SpecialFolder{G_USER_DIRECTORY_TEMPLATES, "folder-templates"},
    SpecialFolder{G_USER_DIRECTORY_VIDEOS, "folder-videos"},
};

QIcon fromTheme(const std::vector<std::string>& names) {
    for (const auto& name : names) {
        auto icon = QIcon::fromTheme(QString::fromStdString(name));
        if (!icon.isNull() && !icon.availableSizes().isEmpty()) {
            return icon;
        }
    }
    return {};
}

bool isUsablePicture(const QString& path) {
    const QFileInfo file(path);
    if (!file.isFile() || file.size() > largestPicture) {
        return false;
    }
    const QImageReader reader(path);
    const auto size = reader.size();
    return reader.canRead() && size.width() <= longestPictureSide && size.height() <= longestPictureSide;
}

// Old entries give the name with its extension.
std::string withoutExtension(const std::string& name) {
    for (const std::string_view extension : {".png", ".svg", ".xpm"}) {
        if (name.ends_with(extension)) {
            return name.substr(0, name.size() - extension.size());
        }
    }
    return name;
}

std::vector<std::string> contentTypeIconNames(const std::string& path) {
    gboolean uncertain = FALSE;
    auto type = takeText(g_content_type_guess(path.c_str(), nullptr, 0, &uncertain));
    if (uncertain != FALSE) {
        const auto bytes = readFileStart(path, sniffedBytes).value_or("");
        const auto* data = reinterpret_cast<const guchar*>(bytes.data());
        type = takeText(g_content_type_guess(path.c_str(), data, bytes.size(), nullptr));
    }
    const Released<GIcon, g_object_unref> icon(g_content_type_get_icon(type.c_str()));
    std::vector<std::string> names;
    if (icon && G_IS_THEMED_ICON(icon.get())) {
        const auto* list = g_themed_icon_get_names(reinterpret_cast<GThemedIcon*>(icon.get()));
        for (; list != nullptr && *list != nullptr; ++list) {
            names.emplace_back(*list);
        }
    }
    return names;
}

} // namespace

QIcon ofEntry(const std::string& iconKey) {
    const auto key = QString::fromStdString(iconKey);
    if (iconKey.starts_with('/')) {
        if (isUsablePicture(key)) {
            return QIcon(key);
        }
    } else if (!iconKey.empty() && iconKey.find('/') == std::string::npos) {
        auto icon = fromTheme({iconKey, withoutExtension(iconKey)});
        if (!icon.isNull()) {
            return icon;
        }
    }
    auto icon = fromTheme({"application-x-executable", "application-default-icon"});
    return icon.isNull() ? plainIcon(PlainIconShape::application) : icon;
}

std::vector<std::string> folderIconNames(const std::string& path) {
    const auto plain = withoutTrailingSlashes(path);
    std::vector<std::string> names;
    if (plain == "/") {
        names.emplace_back("drive-harddisk");
    } else if (plain == withoutTrailingSlashes(LinuxFolders::home())) {
        names.emplace_back("user-home");
    } else {
        for (const auto& special : specialFolders) {
            const char* folder = g_get_user_special_dir(special.folder);
            if (folder != nullptr && plain == withoutTrailingSlashes(folder)) {
                names.emplace_back(special.iconName);
            }
        }
    }
    names.emplace_back("folder");
    names.emplace_back("inode-directory");
    return names;
}

QIcon ofFolder(const std::string& path) {
    auto icon = fromTheme(folderIconNames(path));
    return icon.isNull() ? plainIcon(PlainIconShape::folder) : icon;
}

QIcon ofFile(const std::string& path) {
    auto names = contentTypeIconNames(path);
    names.emplace_back("text-x-generic");
    auto icon = fromTheme(names);
    return icon.isNull() ? plainIcon(PlainIconShape::document) : icon;
}

} // namespace quillary::PathIcons

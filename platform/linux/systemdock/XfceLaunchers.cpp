#include "platform/linux/systemdock/XfceLaunchers.h"

#include "platform/linux/glib/GlibText.h"
#include "platform/linux/glib/KeyFile.h"

#include <QStringList>
#include <QXmlStreamReader>

#include <map>

#include <glib.h>

namespace quillary::XfceLaunchers {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t largestEntry = std::size_t{1} << 20U;
constexpr qsizetype deepestProperty = 16;
constexpr std::size_t mostValues = 1000;

// The channel's contents: the plugins that each panel shows, those that are launchers, and their items.
struct Channel {
    std::vector<QString> plugins;
    std::map<QString, std::vector<QString>> launchers;
};

void readValue(Channel& channel, const QStringList& names, const QString& value) {
    if (names.size() == 3 && names[0] == u"panels"_s && names[2] == u"plugin-ids"_s) {
        if (channel.plugins.size() < mostValues) {
            channel.plugins.push_back(u"plugin-"_s + value);
        }
    } else if (names.size() == 3 && names[0] == u"plugins"_s && names[2] == u"items"_s) {
        const auto launcher = channel.launchers.find(names[1]);
        if (launcher != channel.launchers.end() && launcher->second.size() < mostValues) {
            launcher->second.push_back(value);
        }
    }
}

Channel readChannel(std::string_view text) {
    Channel channel;
    QXmlStreamReader reader(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
    QStringList names;
    while (!reader.atEnd() && names.size() < deepestProperty) {
        const auto token = reader.readNext();
        const bool isProperty = reader.name() == u"property"_s;
        if (token == QXmlStreamReader::StartElement && isProperty) {
            const auto attributes = reader.attributes();
            names.append(attributes.value(u"name"_s).toString());
            if (names.size() == 2 && names[0] == u"plugins"_s &&
                attributes.value(u"value"_s) == u"launcher"_s) {
                channel.launchers[names[1]];
            }
        } else if (token == QXmlStreamReader::StartElement && reader.name() == u"value"_s) {
            readValue(channel, names, reader.attributes().value(u"value"_s).toString());
        } else if (token == QXmlStreamReader::EndElement && isProperty && !names.isEmpty()) {
            names.removeLast();
        }
    }
    return channel;
}

} // namespace

std::vector<std::string> entryFiles(std::string_view text) {
    const auto channel = readChannel(text);
    std::vector<std::string> files;
    for (const auto& plugin : channel.plugins) {
        const auto launcher = channel.launchers.find(plugin);
        if (launcher == channel.launchers.end()) {
            continue;
        }
        const QString folder = u"launcher-"_s + plugin.mid(u"plugin-"_s.size());
        for (const auto& item : launcher->second) {
            const QString file = folder + u'/' + item;
            if (!item.contains(u'/') && !folder.contains(u'/')) {
                files.push_back(file.toStdString());
            }
        }
    }
    return files;
}

std::string sourceOf(const std::filesystem::path& launcher) {
    const auto file = KeyFile::read(launcher, largestEntry);
    const auto uri = file ? file->text(G_KEY_FILE_DESKTOP_GROUP, "X-XFCE-Source") : std::string();
    auto path = pathOfStoredUri(uri);
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) ? path : std::string();
}

} // namespace quillary::XfceLaunchers

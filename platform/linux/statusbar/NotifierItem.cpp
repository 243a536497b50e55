#include "platform/linux/statusbar/NotifierItem.h"

#include <QDBusMetaType>
#include <QImage>
#include <QPixmap>
#include <QtEndian>

#include <array>
#include <utility>

namespace quillary {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array sides = {16, 22, 24, 32, 44, 48, 64, 96};

NotifierPixmap pixmapOf(const QImage& picture) {
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    NotifierPixmap result{.width = image.width(), .height = image.height()};
    const qsizetype row = qsizetype{image.width()} * 4;
    result.bytes.resize(row * image.height());
    for (int y = 0; y < image.height(); ++y) {
        qToBigEndian<quint32>(image.constScanLine(y), image.width(), result.bytes.data() + row * y);
    }
    return result;
}

void registerTypes() {
    static const bool done = [] {
        qDBusRegisterMetaType<NotifierPixmap>();
        qDBusRegisterMetaType<QList<NotifierPixmap>>();
        qDBusRegisterMetaType<NotifierToolTip>();
        return true;
    }();
    static_cast<void>(done);
}

} // namespace

QList<NotifierPixmap> NotifierPixmap::allOf(const QIcon& icon) {
    QList<NotifierPixmap> result;
    for (const int side : sides) {
        const auto pixmap = icon.pixmap(QSize(side, side), 1.0);
        if (!pixmap.isNull()) {
            result.append(pixmapOf(pixmap.toImage()));
        }
    }
    return result;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip) {
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.pixmaps << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip) {
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.pixmaps >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

NotifierItem::NotifierItem(const QIcon& symbol, QString description, QString menu)
    : m_description(std::move(description)),
      m_menu(std::move(menu)),
      m_pixmaps(NotifierPixmap::allOf(symbol)) {
    registerTypes();
}

QString NotifierItem::category() const {
    return u"ApplicationStatus"_s;
}

QString NotifierItem::title() const {
    return u"Quillary"_s;
}

QString NotifierItem::status() const {
    return u"Active"_s;
}

} // namespace quillary

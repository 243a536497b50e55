#include "app/view/SceneMotion.h"

#include <algorithm>

namespace quillary {

namespace {

constexpr double response = 0.3;
constexpr double damping = 0.85;

/// Lengths along the dock's edge, from the panel's middle: it stays where it is on the screen when the panel
/// grows or shrinks.
double along(const DockScene& scene, QPointF point) {
    return isHorizontal(scene.edge) ? point.x() - scene.panelSize.width() / 2
                                    : point.y() - scene.panelSize.height() / 2;
}

double alongLength(const DockScene& scene, const QRectF& rect) {
    return isHorizontal(scene.edge) ? rect.width() : rect.height();
}

double depthLength(const DockScene& scene, const QRectF& rect) {
    return isHorizontal(scene.edge) ? rect.height() : rect.width();
}

/// A move along the edge, and one away from it.
QPointF shift(DockEdge edge, double along, double depth) {
    switch (edge) {
    case DockEdge::bottom:
        return {along, -depth};
    case DockEdge::top:
        return {along, depth};
    case DockEdge::left:
        return {depth, along};
    case DockEdge::right:
        break;
    }
    return {-depth, along};
}

QRectF centred(QPointF center, double width, double height) {
    const QSizeF size(std::max(width, 0.0), std::max(height, 0.0));
    return {center - QPointF(size.width() / 2, size.height() / 2), size};
}

using Icons = std::map<ItemId, const DockScene::Icon*>;

Icons byId(const DockScene& scene) {
    Icons icons;
    for (const DockScene::Icon& icon : scene.icons) {
        icons.emplace(icon.id(), &icon);
    }
    return icons;
}

double present(const Spring& presence, double now) {
    return std::clamp(1 + presence.value(now), 0.0, 1.0);
}

} // namespace

SceneMotion::Part::Part()
    : along(response, damping, 0), size(response, damping, 0), presence(response, damping, 0) {}

bool SceneMotion::Part::settled(double now) const {
    return along.settled(now) && size.settled(now) && presence.settled(now);
}

void SceneMotion::clear() {
    m_icons.clear();
    m_separator = {};
    m_background = {};
}

bool SceneMotion::settled(double now) const {
    return m_separator.settled(now) && m_background.settled(now) &&
           std::ranges::all_of(m_icons, [now](const auto& icon) { return icon.second.settled(now); });
}

void SceneMotion::retarget(const DockScene& seen, const DockScene& wanted, double now) {
    if (seen.edge != wanted.edge || seen.opacity <= 0 || seen.panelSize.isEmpty()) {
        clear();
        return;
    }
    retargetIcons(seen, wanted, now);
    if (wanted.separators.empty()) {
        m_separator = {};
    } else if (seen.separators.empty()) {
        m_separator = {};
        m_separator.presence.displace(-1, now);
    } else {
        m_separator.along.displace(along(seen, seen.separators.front().rect.center()) -
                                       along(wanted, wanted.separators.front().rect.center()),
                                   now);
    }
    m_background.along.displace(
        alongLength(seen, seen.background.rect) - alongLength(wanted, wanted.background.rect), now);
    m_background.size.displace(
        depthLength(seen, seen.background.rect) - depthLength(wanted, wanted.background.rect), now);
}

void SceneMotion::retargetIcons(const DockScene& seen, const DockScene& wanted, double now) {
    const Icons seenIcons = byId(seen);
    std::erase_if(m_icons, [kept = byId(wanted)](const auto& icon) { return !kept.contains(icon.first); });
    for (const DockScene::Icon& icon : wanted.icons) {
        Part& part = m_icons[icon.id()];
        const auto found = seenIcons.find(icon.id());
        if (found == seenIcons.end()) {
            part = {};
            part.presence.displace(-1, now);
            continue;
        }
        const DockScene::Icon* before = found->second;
        part.along.displace(along(seen, before->rect.center()) - along(wanted, icon.rect.center()), now);
        part.size.displace(before->rect.width() - icon.rect.width(), now);
    }
}

void SceneMotion::apply(DockScene& scene, double now) const {
    for (DockScene::Icon& icon : scene.icons) {
        const auto found = m_icons.find(icon.id());
        // A settled part is drawn exactly in its place: the rest of a spring's movement would blur it.
        if (found == m_icons.end() || found->second.settled(now)) {
            continue;
        }
        const Part& part = found->second;
        const double grown = std::max(part.size.value(now), 1 - icon.rect.width());
        const double moved = part.along.value(now);
        // It grows away from the edge, its near side stays.
        const QPointF center = icon.rect.center() + shift(scene.edge, moved, grown / 2);
        const double side = icon.rect.width() + grown;
        const double share = side / icon.rect.width();
        const QPointF corner = icon.rect.topRight();
        icon.rect = centred(center, side, side);
        icon.presence = present(part.presence, now);
        if (icon.disc) {
            icon.disc->center = center;
            icon.disc->diameter *= share;
        }
        if (icon.dot) {
            icon.dot->center += shift(scene.edge, moved, 0);
        }
        if (icon.pill) {
            icon.pill->rect.translate(icon.rect.topRight() - corner);
        }
    }
    for (DockScene::Separator& line : scene.separators) {
        if (m_separator.settled(now)) {
            break;
        }
        line.rect.translate(shift(scene.edge, m_separator.along.value(now), 0));
        line.opacity *= present(m_separator.presence, now);
    }
    if (m_background.settled(now)) {
        return;
    }
    const double longer = m_background.along.value(now);
    const double deeper = m_background.size.value(now);
    const QRectF rect = scene.background.rect;
    const QPointF center = rect.center() + shift(scene.edge, 0, deeper / 2);
    const bool lying = isHorizontal(scene.edge);
    scene.background.rect =
        centred(center, rect.width() + (lying ? longer : deeper), rect.height() + (lying ? deeper : longer));
}

} // namespace quillary

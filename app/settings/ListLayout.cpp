#include "app/settings/ListLayout.h"

namespace quillary {

ListLayout::ListLayout(QWidget* parent) : QLayout(parent) {}

ListLayout::~ListLayout() = default;

void ListLayout::addItem(QLayoutItem* item) {
    m_items.emplace_back(item);
}

QLayoutItem* ListLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* ListLayout::takeAt(int index) {
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    const auto place = m_items.begin() + index;
    QLayoutItem* item = place->release();
    m_items.erase(place);
    return item;
}

int ListLayout::count() const {
    return static_cast<int>(m_items.size());
}

} // namespace quillary

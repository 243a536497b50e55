#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace quillary {

/// A layout that keeps its items in the order in which they were added, and whose height depends on its
/// width. Where the items are placed is up to the class derived from it.
class ListLayout : public QLayout {
    Q_OBJECT

public:
    explicit ListLayout(QWidget* parent);
    ~ListLayout() override;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] int count() const override;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

protected:
    [[nodiscard]] const std::vector<std::unique_ptr<QLayoutItem>>& items() const { return m_items; }

private:
    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

} // namespace quillary

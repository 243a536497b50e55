#pragma once

#include <QWidget>

#include <vector>

class QLabel;
class QVBoxLayout;

namespace quillary {

/// One section of the form: a header over a rounded box with rows. Hidden rows leave no gap.
class FormGroup : public QWidget {
    Q_OBJECT

public:
    /// An empty title means no header. To assistive technology the group has the title as its name.
    explicit FormGroup(const QString& title, QWidget* parent = nullptr);

    void setTitle(const QString& title);
    [[nodiscard]] const QString& title() const { return m_title; }

    enum class Separation {
        /// A line separates the row from the one above.
        line,
        /// The row belongs to the one above.
        none,
    };
    /// Appends a row and takes ownership of it.
    void addRow(QWidget* row, Separation separation = Separation::line);
    /// Lays out the rows at once instead of in the next turn of the event loop.
    void layOut();
    /// The controls that take the focus, from top to bottom.
    [[nodiscard]] std::vector<QWidget*> controls() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Row {
        QWidget* widget;
        Separation separation;
    };
    void fitTitle();

    QString m_title;
    QLabel* m_header;
    QWidget* m_box;
    QVBoxLayout* m_rowLayout;
    std::vector<Row> m_rows;
};

} // namespace quillary

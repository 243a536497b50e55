// A program from which files are dragged, as a file manager would offer them. Arguments: the URLs. Its window
// is 100 × 100 at 100, 300; a press in it and a movement start the drag.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class Source : public QWidget {
public:
    explicit Source(const QStringList& files) {
        for (const QString& file : files) {
            m_urls.append(QUrl(file));
        }
        setGeometry(100, 300, 100, 100);
    }

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override {}
    void mouseMoveEvent(QMouseEvent* event) override {
        if (event->buttons() == Qt::LeftButton) {
            auto* drag = new QDrag(this);
            auto* offer = new QMimeData;
            offer->setUrls(m_urls);
            drag->setMimeData(offer);
            drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction);
        }
    }

private:
    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    Source source(QApplication::arguments().mid(1));
    source.show();
    return QApplication::exec();
}

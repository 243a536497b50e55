#include "platform/macos/RaisedWindow.h"

namespace quillary {

bool bringsForward(QEvent::Type event, Qt::WindowType window) {
    return (window == Qt::Window || window == Qt::Dialog) &&
           (event == QEvent::Show || event == QEvent::ZOrderChange);
}

} // namespace quillary

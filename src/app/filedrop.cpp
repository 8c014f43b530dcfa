#include "app/filedrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <utility>

namespace ovrano {

namespace {

/// The one file that is dragged; empty when it is something else.
QString draggedFile(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

} // namespace

FileDrop::FileDrop(QWidget& window, Open open)
    : QObject(&window)
    , m_open(std::move(open)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
    // Text fields take drops for themselves, and would type the file's address.
    for (QWidget* inside : window.findChildren<QWidget*>())
        if (inside->acceptDrops())
            inside->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QObject::eventFilter(watched, event);
    auto& drop = *static_cast<QDropEvent*>(event);
    const QString path = draggedFile(drop);
    if (path.isEmpty())
        return QObject::eventFilter(watched, event);
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    if (type == QEvent::Drop)
        QTimer::singleShot(0, this, [this, path] { m_open(path); });
    return true;
}

} // namespace ovrano

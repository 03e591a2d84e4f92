#include "app/workbench/VolumeFiles.h"

#include "app/workbench/Commands.h"
#include "app/workbench/MainWindow.h"
#include "host/exchange/VolumeExchange.h"

#include <QApplication>
#include <QDropEvent>
#include <QTimer>

namespace workbench {

VolumeFiles::VolumeFiles(MainWindow& window) : QObject(&window), m_window(window)
{
    window.commands().handle("import.segy", window.volumeExchange(), &hv::VolumeExchange::chooseSegy);
    window.setAcceptDrops(true);
    qApp->installEventFilter(this);
}

bool VolumeFiles::eventFilter(QObject* receiver, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return false;
    const auto* widget = qobject_cast<QWidget*>(receiver);
    auto* drag = static_cast<QDropEvent*>(event);
    if (!widget || widget->window() != &m_window)
        return false;
    const QStringList files = hv::VolumeExchange::segyFiles(drag->mimeData());
    if (files.isEmpty())
        return false;
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    // Whoever the files come from waits for the drop to end.
    if (type == QEvent::Drop)
        QTimer::singleShot(0, this, [this, files] { m_window.volumeExchange()->importSegy(files); });
    return true;
}

} // namespace workbench

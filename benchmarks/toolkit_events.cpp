// Makes Qt events for widgets whoever made them, so that two bindings of Qt can be compared in one process.
#include <boost/python.hpp>

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>

namespace bp = boost::python;

namespace {

QWidget& window(const std::string& title)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowTitle().toStdString() == title)
            return *widget;
    throw std::invalid_argument("no window " + title);
}

/// Nanoseconds for one mouse move sent to the window.
double moves(const std::string& title, int count)
{
    QWidget& widget = window(title);
    QElapsedTimer clock;
    clock.start();
    for (int index = 0; index < count; ++index) {
        QMouseEvent event(QEvent::MouseMove, QPointF(index % 100, 5), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
    return static_cast<double>(clock.nsecsElapsed()) / count;
}

/// Nanoseconds for one signal of the button that is the window.
double clicks(const std::string& title, int count)
{
    auto& button = dynamic_cast<QAbstractButton&>(window(title));
    QElapsedTimer clock;
    clock.start();
    for (int index = 0; index < count; ++index)
        Q_EMIT button.clicked();
    return static_cast<double>(clock.nsecsElapsed()) / count;
}

} // namespace

BOOST_PYTHON_MODULE(toolkit_events)
{
    bp::def("moves", moves);
    bp::def("clicks", clicks);
}

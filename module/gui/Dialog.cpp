#include "host/services/HVEventBus.h"
#include "host/services/IAppWrapper.h"
#include "module/Bindings.h"
#include "module/gui/Connector.h"
#include "module/gui/Construction.h"
#include "module/gui/Property.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/PendingError.h"
#include "runtime/RunMonitor.h"

#include <QDialog>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <vector>

namespace bp = boost::python;

namespace python {

namespace {

/// A dialog that knows when it is just closing: Qt can not close it once more then, so that nothing may wait for that.
class QDialogIndirect : public Indirect<QDialog>
{
public:
    bool isClosing() const { return m_closing > 0; }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::Close && event->type() != QEvent::Hide)
            return Indirect<QDialog>::event(event); // which may be its end
        ++m_closing;
        const bool result = Indirect<QDialog>::event(event);
        --m_closing;
        return result;
    }

private:
    int m_closing = 0;
};

using PyDialog = Wrapper<QDialogIndirect>;

constexpr ConstructorArguments g_arguments = {{"title", "windowTitle"}, {"parent", "parentWidget"}};

/// The dialogs that execute() waits for. GUI thread.
std::vector<const QDialog*>& waitingDialogs()
{
    static std::vector<const QDialog*> all;
    return all;
}

bool isWaiting(const QDialog* dialog)
{
    const std::vector<const QDialog*>& waiting = waitingDialogs();
    return std::find(waiting.begin(), waiting.end(), dialog) != waiting.end();
}

/// Changes which windows wait for a dialog. Qt notes who is waiting when it shows a dialog and forgets them when it
/// hides it, by what the dialog says at that time: one that changes on the screen may be waited for without end.
template <typename Change>
void changeModality(QDialog& dialog, Change change)
{
    const bool isShown = dialog.isVisible();
    const WidgetPeer::SilentScope silence;
    if (isShown)
        dialog.hide();
    change();
    if (isShown)
        dialog.show();
}

void requireNotWaiting(const QDialog& dialog, const char* where)
{
    if (isWaiting(&dialog))
        raise(PyExc_RuntimeError, "%s, the dialog is waiting for an answer", where);
}

void setModal(QDialog& dialog, bool modal)
{
    requireNotWaiting(dialog, "Dialog.modal");
    if (modal != dialog.isModal())
        changeModality(dialog, [&] { dialog.setModal(modal); });
}

void setModality(QDialog& dialog, Qt::WindowModality modality)
{
    requireNotWaiting(dialog, "Dialog.modality");
    if (modality != dialog.windowModality())
        changeModality(dialog, [&] { dialog.setWindowModality(modality); });
}

PyGetSetDef g_properties[] = {
    property<&QDialog::isModal, setModal>(
        "modal", "bool: Whether the other windows wait until it is closed; for show(), execute() always waits."),
    property<&QDialog::windowModality, setModality>("modality", "Modality: Which windows wait until it is closed."),
};

void accept(const Handle<QDialog>& handle)
{
    handle.get().accept();
}

void reject(const Handle<QDialog>& handle)
{
    handle.get().reject();
}

/// A dialog without a parent still belongs in front of the application's window.
void placeOverApplication(QDialog& dialog)
{
    const IAppWrapper* app = dialog.parentWidget() ? nullptr : applicationInterface();
    const QMainWindow* window = app ? app->mainWindow() : nullptr;
    if (!window || !window->isVisible() || !window->windowHandle())
        return;
    dialog.winId();                                  // makes its window
    dialog.setAttribute(Qt::WA_NativeWindow, false); // which it need not keep when it becomes a part of something
    dialog.windowHandle()->setTransientParent(window->windowHandle());
    if (!dialog.testAttribute(Qt::WA_Moved)) {
        dialog.adjustSize();
        dialog.move(window->frameGeometry().center() - dialog.rect().center());
    }
}

bool isTerminalProgram()
{
    const IAppWrapper* app = applicationInterface();
    return app && app->isTerminalProgram();
}

/// On a terminal without a display nobody sees the dialog that a script waits for.
void warnUnseen(const QDialog& dialog)
{
    if (isTerminalProgram() && QGuiApplication::platformName() == QLatin1String("offscreen"))
        HVEventBus::instance().sendMessage(
            MessageLevel::Warning,
            QStringLiteral("The dialog \"%1\" waits for an answer, but there is no display").arg(dialog.windowTitle()));
}

/// Ends a dialog on Ctrl+C, as it ends everything else on a terminal: the interpreter notices only when it is asked.
class InterruptWatch
{
public:
    explicit InterruptWatch(const QPointer<QDialog>& dialog)
    {
        if (!isTerminalProgram())
            return;
        m_timer.callOnTimeout([this, dialog] {
            const GilLock lock;
            if (PyErr_CheckSignals() == 0)
                return;
            PendingError interruption;
            m_interruption = Ref::borrow(interruption.value());
            interruption.drop();
            m_timer.stop();
            if (dialog)
                dialog->reject();
        });
        m_timer.start(100);
    }
    /// Unwinds with the exception of the signal, if one came. Needs the interpreter lock.
    void raiseIfInterrupted()
    {
        if (!m_interruption)
            return;
        PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(m_interruption.get())), m_interruption.get());
        raisePending();
    }

private:
    QTimer m_timer;
    Ref m_interruption;
};

/// Shows the dialog and waits until it is hidden or gone.
int waitFor(const QPointer<QDialog>& dialog)
{
    changeModality(*dialog, [&] { dialog->setAttribute(Qt::WA_ShowModal); });
    dialog->setResult(QDialog::Rejected);
    dialog->show();
    // Qt would wait for ever for a dialog that its own handlers have already closed.
    if (dialog && dialog->isVisible()) {
        warnUnseen(*dialog);
        return dialog->exec();
    }
    return dialog ? dialog->result() : QDialog::Rejected;
}

QDialog::DialogCode execute(const Handle<QDialog>& handle)
{
    const QPointer<QDialog> dialog = &handle.get();
    const QDialog* key = dialog;
    if (isWaiting(key))
        raise(PyExc_RuntimeError, "Dialog.execute(), the dialog is already waiting for an answer");
    if (const auto* own = dynamic_cast<const QDialogIndirect*>(key); own && own->isClosing())
        raise(PyExc_RuntimeError, "Dialog.execute(), the dialog is just closing");
    if (!dialog->isWindow())
        raise(PyExc_RuntimeError, "Dialog.execute(), the dialog is a part of another widget");
    placeOverApplication(*dialog);
    const bool wasModal = dialog->testAttribute(Qt::WA_ShowModal);
    waitingDialogs().push_back(key);
    int answer = QDialog::Rejected;
    InterruptWatch watch(dialog);
    {
        const RunPause pause;
        const GilRelease release;
        answer = waitFor(dialog);
        if (dialog)
            changeModality(*dialog, [&] { dialog->setAttribute(Qt::WA_ShowModal, wasModal); });
    }
    std::vector<const QDialog*>& waiting = waitingDialogs();
    waiting.erase(std::find(waiting.begin(), waiting.end(), key));
    watch.raiseIfInterrupted();
    return answer == QDialog::Accepted ? QDialog::Accepted : QDialog::Rejected;
}

void accepted(const Handle<QDialog>& handle, const bp::object& callable)
{
    connectCall(handle.get(), &QDialog::accepted, callable, "Dialog.accepted()");
}

void rejected(const Handle<QDialog>& handle, const bp::object& callable)
{
    connectCall(handle.get(), &QDialog::rejected, callable, "Dialog.rejected()");
}

} // namespace

void bindDialog()
{
    bindBase<QDialog>("_QDialog", "What dialogs have.")
        .def("accept", accept, bp::args("self"), "accept() -> None\n\nCloses the dialog with the answer Accepted.")
        .def("reject", reject, bp::args("self"), "reject() -> None\n\nCloses the dialog with the answer Rejected.")
        .def("execute", execute, bp::args("self"),
             "execute() -> DialogResponse\n\nShows the dialog and waits until the user closes it.\n\nRaises "
             "RuntimeError when it is already waiting, just closing or a part of another widget.")
        .def("accepted", accepted, bp::args("self", "callable"),
             "accepted(callable: Callable[[], object]) -> None\n\nCalls `callable` when the dialog is closed by "
             "accept().\n\nRaises TypeError for what can not be called.")
        .def("rejected", rejected, bp::args("self", "callable"),
             "rejected(callable: Callable[[], object]) -> None\n\nCalls `callable` when the dialog is closed by "
             "reject(), "
             "the Escape key or the window's button.\n\nRaises TypeError for what can not be called.");
    installProperties<QDialog>(g_properties);
    bindPublic<QDialog>("Dialog", "Dialog(title: str = '', parent: Widget = None, **properties)\n\nA window that asks "
                                  "the user for something.");
    bindConstructor<PyDialog, g_arguments>(
        "__init__(title: str = '', parent: Widget = None, **properties) -> None\n\nAn empty dialog.");
}

} // namespace python

#include "module/app/ModalProgressBar.h"

#include "host/services/IAppWrapper.h"
#include "runtime/ApplicationInterface.h"
#include "runtime/Errors.h"
#include "runtime/GuiThread.h"

#include <QThread>

namespace python {

namespace {

IProgressService* progressService()
{
    const IAppWrapper* app = applicationInterface();
    return app ? app->progressService() : nullptr;
}

std::uintptr_t currentThread()
{
    return reinterpret_cast<std::uintptr_t>(QThread::currentThreadId());
}

} // namespace

void OpenBar::closeUnlessCancelled(std::int32_t id)
{
    IProgressService* service = id == IProgressService::NoBar ? nullptr : progressService();
    // Elsewhere only closing is safe, and closing a cancelled bar does no harm.
    if (service && (!isGuiThread() || !service->wasCancelled(id)))
        service->close(id);
}

ModalProgressBar::ModalProgressBar(std::string name, std::int32_t steps,
                                   const std::shared_ptr<ModalProgressBar>& parent)
    : m_name(std::move(name)), m_steps(steps), m_parent(parent)
{}

ModalProgressBar::~ModalProgressBar()
{
    OpenBar::closeUnlessCancelled(m_id);
}

std::shared_ptr<OpenBar> ModalProgressBar::open()
{
    IProgressService* service = progressService();
    if (service)
        requireGuiThread();
    m_thread = currentThread();
    const bool isFresh = std::exchange(m_isFresh, false);
    if (m_entered && isOpen() && isFresh)
        return m_entered;
    if (isOpen())
        close();
    m_id = IProgressService::NoBar;
    if (service) {
        const std::shared_ptr<ModalProgressBar> parent = m_parent.lock();
        m_id = service->create(m_steps, QString::fromStdString(m_name), parent ? parent->m_id : IProgressService::NoBar,
                               true, 0);
    }
    auto opened = std::make_shared<OpenBar>(m_id);
    m_open = opened;
    return opened;
}

void ModalProgressBar::close()
{
    m_open.reset();
    if (IProgressService* service = progressService())
        service->close(m_id);
}

void ModalProgressBar::enter()
{
    if (m_entered)
        raise(PyExc_RuntimeError, "ModalProgressBar, the bar is used by a with statement already");
    m_entered = open();
    m_isFresh = true;
}

void ModalProgressBar::exit()
{
    if (isOpen())
        close();
    m_entered.reset();
}

bool ModalProgressBar::wasCancelled(const IProgressService* service)
{
    if (!m_cancelled && service)
        m_cancelled = service->wasCancelled(m_id);
    return m_cancelled;
}

ModalProgressBar::Step ModalProgressBar::step(std::int32_t& index)
{
    if (currentThread() != m_thread) [[unlikely]] {
        PyErr_SetString(PyExc_RuntimeError, "ModalProgressBar, a loop goes on only on the thread where it began");
        return Step::Refused;
    }
    IProgressService* service = progressService();
    if (wasCancelled(service) || index >= m_steps) [[unlikely]] {
        close();
        return Step::Ended;
    }
    ++index;
    if (service)
        service->increment(m_id, 1);
    return Step::Done;
}

bool ModalProgressBar::increment(std::int32_t count)
{
    if (count < 0)
        raise(PyExc_ValueError, "ModalProgressBar, the count must not be negative");
    if (!isOpen())
        raise(PyExc_RuntimeError, "ModalProgressBar, the bar is not open: use it in a with statement");
    IProgressService* service = progressService();
    if (service && currentThread() != m_thread)
        requireGuiThread();
    if (wasCancelled(service))
        return false;
    m_isFresh = false;
    if (service)
        service->increment(m_id, count);
    return true;
}

} // namespace python

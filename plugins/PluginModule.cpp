#include "plugins/PluginModule.h"

#include "runtime/Errors.h"
#include "runtime/LateRelease.h"
#include "runtime/ScriptCoding.h"

#include <QDateTime>
#include <QFile>
#include <QTextStream>

namespace python {

PluginModule::~PluginModule()
{
    releaseLate(m_module);
}

QByteArray freshModuleName(const QString& init)
{
    PyObject* modules = PyImport_GetModuleDict();
    for (qint64 second = QDateTime::currentSecsSinceEpoch();; ++second) {
        const QByteArray name = init.toUtf8() + '_' + QByteArray::number(second);
        if (!PyDict_GetItemString(modules, name.constData()))
            return name;
    }
}

bool readStartupFile(const QString& path, QString& text, QString& error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("Error opening file %1: %2").arg(path, file.errorString());
        return false;
    }
    const QByteArray bytes = file.readAll();
    QString reason;
    if (decodeScript(bytes, text, reason))
        return true;
    QTextStream stream(bytes);
    stream.setAutoDetectUnicode(true);
    text = stream.readAll();
    return true;
}

HookResult callHook(PyObject* hook)
{
    const Ref result = Ref::steal(PyObject_CallNoArgs(hook));
    if (!result) {
        printPendingError();
        return HookResult::Raised;
    }
    return result.get() == Py_True    ? HookResult::True
           : result.get() == Py_False ? HookResult::False
                                      : HookResult::NotBool;
}

PyObject* findHook(PyObject* module, const HookName& hookName, QString& error)
{
    Ref hook = Ref::steal(PyObject_GetAttrString(module, hookName.name));
    PyErr_Clear();
    if (!hook) {
        error = QLatin1String(hookName.notFound);
        return nullptr;
    }
    if (PyCallable_Check(hook.get()))
        return hook.release();
    error = QLatin1String(hookName.notCallable);
    return nullptr;
}

} // namespace python

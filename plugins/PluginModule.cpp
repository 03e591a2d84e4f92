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

hv::Result<QString> readStartupFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return hv::Failure(QStringLiteral("Error opening file %1: %2").arg(path, file.errorString()), path);
    const QByteArray bytes = file.readAll();
    if (auto text = decodeScript(bytes))
        return text;
    QTextStream stream(bytes);
    stream.setAutoDetectUnicode(true);
    return stream.readAll();
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

hv::Result<Ref> findHook(PyObject* module, const HookName& hookName)
{
    Ref hook = Ref::steal(PyObject_GetAttrString(module, hookName.name));
    PyErr_Clear();
    if (!hook)
        return hv::Failure(QLatin1String(hookName.notFound));
    if (!PyCallable_Check(hook.get()))
        return hv::Failure(QLatin1String(hookName.notCallable));
    return hook;
}

} // namespace python

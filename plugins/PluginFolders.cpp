#include "plugins/PluginFolders.h"

#include <QDir>

#include <algorithm>
#include <cstring>
#include <vector>

namespace python {

namespace {

struct FolderInUse
{
    QString name;
    FolderPrefix prefix;
};

std::vector<FolderInUse>& foldersInUse()
{
    static std::vector<FolderInUse> folders;
    return folders;
}

} // namespace

FolderPrefix::FolderPrefix(const QString& folder)
    : m_absolute(QDir::toNativeSeparators(QDir::cleanPath(QDir(folder).absolutePath()) + QLatin1Char('/')).toUtf8()),
      m_given(QDir::toNativeSeparators(folder + QLatin1Char('/')).toUtf8())
{}

bool FolderPrefix::contains(PyObject* path) const
{
    Py_ssize_t size = 0;
    const char* utf8 = path && PyUnicode_Check(path) ? PyUnicode_AsUTF8AndSize(path, &size) : nullptr;
    PyErr_Clear();
    const auto begins = [&](const QByteArray& prefix) {
        return size >= prefix.size() && std::memcmp(utf8, prefix.constData(), prefix.size()) == 0;
    };
    return utf8 && (begins(m_absolute) || begins(m_given));
}

void enterPluginFolder(const QString& name, const QString& folder)
{
    leavePluginFolder(name);
    foldersInUse().push_back({name, FolderPrefix(folder)});
}

void leavePluginFolder(const QString& name)
{
    std::erase_if(foldersInUse(), [&](const FolderInUse& folder) { return folder.name == name; });
}

QString pluginFolderOf(PyObject* file)
{
    const FolderInUse* innermost = nullptr;
    for (const FolderInUse& folder : foldersInUse())
        if (folder.prefix.contains(file) && (!innermost || folder.prefix.length() > innermost->prefix.length()))
            innermost = &folder;
    return innermost ? innermost->name : QString();
}

} // namespace python

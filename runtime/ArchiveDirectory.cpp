#include "runtime/ArchiveDirectory.h"

#include "runtime/Ref.h"

#include <QFile>
#include <QtEndian>

namespace python {

namespace {

// Of the ZIP format, https://pkware.cachefly.net/webdocs/casestudies/APPNOTE.TXT, sections 4.3.12 and 4.3.16.
constexpr qint64 g_endSize = 22;
constexpr qint64 g_headerSize = 46;
constexpr quint32 g_endSignature = 0x06054b50;
constexpr quint32 g_headerSignature = 0x02014b50;

quint32 number16(const char* place)
{
    return qFromLittleEndian<quint16>(place);
}

quint32 number32(const char* place)
{
    return qFromLittleEndian<quint32>(place);
}

/// The central directory's records and where the first file begins; false when the archive has a comment or is torn.
bool readRecords(const QString& archive, QByteArray& records, qint64& begin)
{
    QFile file(archive);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(file.size() - g_endSize))
        return false;
    const QByteArray end = file.read(g_endSize);
    if (end.size() != g_endSize || number32(end.constData()) != g_endSignature)
        return false;
    const qint64 size = number32(end.constData() + 12);
    const qint64 position = file.size() - g_endSize - size;
    begin = position - number32(end.constData() + 16);
    if (begin < 0 || !file.seek(position))
        return false;
    records = file.read(size);
    return records.size() == size;
}

/// What the interpreter keeps of one file (zipimport): path, compression, sizes, offset, time, date, checksum.
bool enter(PyObject* directory, PyObject* prefix, const char* header, quint32 nameSize, qint64 begin)
{
    const Ref name = Ref::steal(PyUnicode_DecodeASCII(header + g_headerSize, nameSize, nullptr));
    const Ref path = name ? Ref::steal(PyUnicode_Concat(prefix, name.get())) : Ref();
    if (!path)
        return false;
    const Ref entry =
        Ref::steal(Py_BuildValue("(OIIILIII)", path.get(), number16(header + 10), number32(header + 20),
                                 number32(header + 24), static_cast<long long>(begin + number32(header + 42)),
                                 number16(header + 12), number16(header + 14), number32(header + 16)));
    return entry && PyDict_SetItem(directory, name.get(), entry.get()) == 0;
}

bool fill(PyObject* directory, PyObject* prefix, const QByteArray& records, qint64 begin)
{
    for (qint64 place = 0; place < records.size();) {
        const char* header = records.constData() + place;
        if (records.size() - place < g_headerSize || number32(header) != g_headerSignature)
            return false;
        const quint32 nameSize = number16(header + 28);
        place += g_headerSize + nameSize + number16(header + 30) + number16(header + 32);
        if (place > records.size() || !enter(directory, prefix, header, nameSize, begin))
            return false;
    }
    return true;
}

} // namespace

void presentArchive(const std::wstring& archive)
{
    QByteArray records;
    qint64 begin = 0;
    if (!readRecords(QString::fromStdWString(archive), records, begin))
        return;
    const Ref importer = Ref::steal(PyImport_ImportModule("zipimport"));
    const Ref known = importer ? Ref::steal(PyObject_GetAttrString(importer.get(), "_zip_directory_cache")) : Ref();
    const Ref path = Ref::steal(PyUnicode_FromWideChar(archive.c_str(), -1));
    const Ref prefix = path ? Ref::steal(PyUnicode_FromFormat("%U/", path.get())) : Ref();
    const Ref directory = Ref::steal(PyDict_New());
    if (known && prefix && directory && fill(directory.get(), prefix.get(), records, begin))
        PyObject_SetItem(known.get(), path.get(), directory.get());
    PyErr_Clear();
}

} // namespace python

#pragma once

#include "host/core/Result.h"
#include "host/kinds/ObjectKind.h"
#include "host/kinds/ObjectValue.h"

#include <QString>

#include <memory>

class HVProject;

/// Data objects in the hands of scripts: colour bars, cultures, volumes, horizons, faults.
///
/// One rule of ownership: what a script changes is its own until it saves or writes.
/// - A handle has a value of its own. Opening a file twice gives two handles that know nothing of each other, so that
///   before and after can be compared.
/// - Viewers, browser and project see a change when it is saved, never before; what others save reaches a handle when
///   the file is opened again.
/// - Saving a file of the open project goes through its store: everybody hears of it, and Undo takes it back. A failed
///   save leaves the file and the handle as they were.
/// - Handles keep no project alive and outlive it; they then stand for their files.
///
/// How a new kind uses it (host/kinds has its reader and writer, of which none is repeated here):
///
///     using Culture = DataHandle<culture::Outline>;      // the value that the kind's IObjectKind::read() gives
///
///     std::shared_ptr<Culture> open(const QString& filename)              // a constructor
///     {
///         auto opened = Culture::open(ObjectKind::Culture, filename);
///         if (!opened)
///             raise(PyExc_RuntimeError, "Culture, %s", opened.failure().sentence.toUtf8().constData());
///         return std::make_shared<Culture>(*opened);
///     }
///     int size(const Culture& self) { return self->size(); }              // reading: ->
///     void move(Culture& self, vec3 by) { self.edit().translate(by); }    // changing: edit()
///
///     bp::class_<Culture, std::shared_ptr<Culture>>("Culture", ...)
///
/// A value is copied when it is first changed while somebody else holds it too. So one with much data keeps that in
/// shared, immutable parts: a volume its file and the frames that the script has replaced.
///
/// Reading, changing and copying happen on any one thread at a time; the project takes part on the main thread only.
namespace python {

/// The project of the application, for objects that tell it what is done to them; null without one, and off the main
/// thread, where it has no part in anything.
HVProject* openProject();

/// The value that a file holds; of an object of the open project the snapshot that everybody shares. A failure is a
/// sentence that names the file.
hv::Result<hv::ObjectValue> readValue(ObjectKind kind, const QString& filename);

enum class Existing
{
    Refused, ///< by the project; who writes elsewhere has asked before
    Replaced,
};
hv::Result<void> writeValue(ObjectKind kind, const QString& filename, const hv::ObjectValue& value, Existing existing);

template <typename Value>
class DataHandle
{
public:
    DataHandle() : DataHandle(Value()) {}
    /// A value that no file holds yet, or that was read from `filename` in another way than open().
    DataHandle(Value value, QString filename = {})
        : m_own(std::make_shared<Value>(std::move(value))), m_value(m_own), m_filename(std::move(filename))
    {}

    static hv::Result<DataHandle> open(ObjectKind kind, const QString& filename)
    {
        const hv::Result<hv::ObjectValue> read = readValue(kind, filename);
        if (!read)
            return read.failure();
        auto value = read->template as<Value>();
        if (!value)
            return hv::Failure(QStringLiteral("'%1' holds something else.").arg(filename), filename);
        return DataHandle(std::move(value), filename);
    }

    const Value& operator*() const { return *m_value; }
    const Value* operator->() const { return m_value.get(); }
    /// The value to change: from here on nobody else's. Valid until the next copy or save of the handle.
    Value& edit()
    {
        // Two references are the two members of this handle.
        if (!m_own || m_own.use_count() > 2)
            m_value = m_own = std::make_shared<Value>(*m_value);
        return *m_own;
    }

    /// The file that the handle stands for; empty when there is none yet.
    const QString& filename() const { return m_filename; }
    /// Lets it stand for another one; nothing is moved.
    void setFilename(const QString& filename) { m_filename = filename; }

    /// Writes the value into a file, which the handle stands for from then on.
    hv::Result<void> save(ObjectKind kind, const QString& filename, Existing existing)
    {
        hv::Result<void> written = writeValue(kind, filename, hv::ObjectValue(m_value), existing);
        if (written)
            m_filename = filename;
        return written;
    }

private:
    DataHandle(std::shared_ptr<const Value> value, QString filename)
        : m_value(std::move(value)), m_filename(std::move(filename))
    {}

    std::shared_ptr<Value> m_own; // null while the value is the project's
    std::shared_ptr<const Value> m_value;
    QString m_filename;
};

} // namespace python

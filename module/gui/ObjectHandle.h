#pragma once

#include "runtime/GuiThread.h"

#include <boost/python.hpp>

#include <QObject>
#include <QPointer>

#include <memory>

/// module/gui: windows and what is in them as scripts see them. A Python object is a handle on a Qt object: using it
/// after the Qt object was destroyed raises RuntimeError, and as long as a handle lives, the same Qt object comes back
/// as the same Python object. Handles are used with the interpreter lock held, on the GUI thread.
///
/// Who keeps whom alive:
/// - Objects of the application (its main window, its menus) belong to it; a handle only points at them.
/// - A widget without a parent that a script made belongs to its Python object and dies with it, unless it is a window
///   on the screen: that stays until it is closed.
/// - A widget with a parent belongs to the parent, and keeps its Python object: overridden handlers and attributes stay
///   though the script dropped every name of it.
/// - What a connection calls lives as long as the sender.
///
/// References that the Qt side holds are shown to the interpreter's collector (see Collection.h), so a window whose
/// parts refer to it is found when the script has dropped it.
namespace python {

class ObjectHandle
{
public:
    /// `object` is not owned; `className` is the Python name and stays valid.
    ObjectHandle(QObject* object, const char* className) : m_object(object), m_className(className) {}
    virtual ~ObjectHandle();
    ObjectHandle(const ObjectHandle&) = delete;
    ObjectHandle& operator=(const ObjectHandle&) = delete;

    /// The Qt object; RuntimeError when it is gone, and on any thread but the main one.
    template <typename Object>
    Object& alive() const
    {
        requireGuiThread();
        QObject* object = objectOrNull();
        if (!object) [[unlikely]]
            raiseDeleted();
        return *static_cast<Object*>(object);
    }
    QObject* objectOrNull() const { return m_isRemembered && !m_watched ? nullptr : m_object; }
    const char* className() const { return m_className; }

    /// Whether the Qt object and all that hangs in it goes when the Python object does, at the latest when the Qt
    /// object's parent goes too: only then the collector may count what it holds.
    virtual bool isScriptMade() const { return false; }

    /// The Python object of a living handle on `object`, borrowed; null when there is none.
    static PyObject* known(QObject* object);
    /// Makes `self` known as the object of the handle. Objects that scripts made know theirs and tell of their end;
    /// those of the application are watched from here on.
    static void remember(ObjectHandle& handle, PyObject* self);

protected:
    /// The Qt object is about to go.
    void forgetObject() { m_object = nullptr; }

private:
    [[noreturn]] void raiseDeleted() const;

    QPointer<QObject> m_watched;
    QObject* m_object; // only an address when m_watched has lost it
    const char* m_className;
    bool m_isRemembered = false;
};

} // namespace python

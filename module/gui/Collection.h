#pragma once

#include "runtime/SharedReference.h"

#include <QObject>

namespace python {

/// A Python object that lives as long as a Qt object does: what a connection calls, a widget in a layout that is in no
/// window yet. A child of the Qt object; it is destroyed to end the reference earlier.
class HeldReference final : public QObject
{
public:
    HeldReference(QObject* owner, const SharedReference& reference) : QObject(owner), m_reference(reference) {}
    const SharedReference& reference() const { return m_reference; }

private:
    SharedReference m_reference;
};

/// Ends the references below a Qt object, down to the widgets and layouts that have Python objects of their own. On the
/// GUI thread, with the interpreter lock; runs code of scripts.
void clearReferences(const QObject& root);

/// Lets the interpreter's collector see what objects of `type`, and of the classes derived from it later, hold: their
/// attributes, and the references below the Qt objects that scripts made. Called once, for the class that all others
/// of the family derive from.
///
/// Qt objects are looked into on the GUI thread only. A collection on another thread takes what they hold for used,
/// which is safe.
void showReferencesToCollector(PyTypeObject* type);

} // namespace python

#pragma once

#include <boost/python/object.hpp>

#include <QVariant>

/// What scripts attach to the items of a list, in the model's Qt::UserRole.
namespace python {

/// The variant for an object: the object itself is kept for as long as the item, so that the script gets back what it
/// gave (True stays a bool, an enumeration's value stays one). Only None and values of bool, int, float, str (an
/// ObjectId is an int) and classes derived from them are taken; for others TypeError with `message`, which has no
/// placeholder. `model` is what the item goes into: an object with attributes, which may refer to the list, hangs on it
/// in HeldReferences, so that the collector finds the cycle. Needs the interpreter lock, like the function below.
QVariant itemData(QObject& model, const boost::python::object& value, const char* message);

/// The object back, or what the application's own item data is in Python. None for nothing.
boost::python::object itemObject(const QVariant& data);

} // namespace python

#include "module/ArgumentErrors.h"

#include "runtime/Errors.h"
#include "runtime/PendingError.h"

#include <boost/python.hpp>
#include <boost/python/object/function.hpp>

#include <QStringList>

namespace bp = boost::python;

namespace python {

namespace {

/// The binding layer's own way to call a function, and its type of errors for arguments that do not fit.
ternaryfunc g_call = nullptr;        // NOLINT: set once, when the module is made
PyObject* g_argumentError = nullptr; // NOLINT

/// A function as scripts know it.
struct Called
{
    QString shown;               ///< "ColorBar.setRange()", "BlockSpace.scanOrientation"
    QString propertyType = {};   ///< of a property only: how its docstring begins
    QStringList signatures = {}; ///< what may stand in the parentheses, one per overload
    bool isMethod = false;       ///< the first argument is the object
};

QString textOf(PyObject* object)
{
    const Ref text = Ref::steal(object ? PyObject_Str(object) : nullptr);
    const char* utf8 = text ? PyUnicode_AsUTF8(text.get()) : nullptr;
    if (!utf8)
        PyErr_Clear();
    return QString::fromUtf8(utf8);
}

Ref attribute(PyObject* object, const char* name)
{
    Ref value = Ref::steal(PyObject_GetAttrString(object, name));
    if (!value)
        PyErr_Clear();
    return value;
}

QString docOf(PyObject* object)
{
    const Ref doc = attribute(object, "__doc__");
    return doc && isStr(doc.get()) ? textOf(doc.get()) : QString();
}

/// Docstrings hold a line "name(arguments) -> type" per overload.
QStringList signaturesOf(PyObject* function, const QStringList& names)
{
    QStringList found;
    for (const QString& line : docOf(function).split(QLatin1Char('\n')))
        for (const QString& name : names) {
            const int end = line.lastIndexOf(QLatin1String(") ->"));
            if (end > 0 && line.startsWith(name + QLatin1Char('('))) {
                found << line.mid(name.size() + 1, end - name.size() - 1);
                break;
            }
        }
    return found;
}

Called asMethod(PyObject* function, const QString& className, const QString& name, bool isMethod)
{
    const bool isConstructor = name == QLatin1String("__init__");
    return {isConstructor ? className + QLatin1String("()") : className + QLatin1Char('.') + name + QLatin1String("()"),
            {},
            signaturesOf(function, {name, isConstructor ? className : name}),
            isMethod};
}

/// Finds the function among the members of one class.
bool findMember(PyTypeObject* type, PyObject* function, const QString& className, Called& found)
{
    PyObject *key, *member;
    for (Py_ssize_t position = 0; type->tp_dict && PyDict_Next(type->tp_dict, &position, &key, &member);) {
        const bool isProperty = PyObject_TypeCheck(member, &PyProperty_Type);
        const bool isStatic = Py_IS_TYPE(member, &PyStaticMethod_Type);
        if (member == function || (isStatic && attribute(member, "__func__").get() == function)) {
            found = asMethod(function, className, textOf(key), !isStatic);
            return true;
        }
        if (isProperty &&
            (attribute(member, "fset").get() == function || attribute(member, "fget").get() == function)) {
            const QString doc = docOf(member);
            found = {className + QLatin1Char('.') + textOf(key),
                     doc.left(std::max(doc.indexOf(QLatin1String(": ")), 0))};
            return true;
        }
    }
    return false;
}

bool isPublicClass(PyTypeObject* type)
{
    const Ref module = attribute(reinterpret_cast<PyObject*>(type), "__module__");
    return type->tp_name[0] != '_' && textOf(module.get()).startsWith(QLatin1String("strativo_python"));
}

/// The class of the module that a script uses when it uses the object.
QString publicName(PyTypeObject* type)
{
    for (Py_ssize_t i = 0; i < PyTuple_GET_SIZE(type->tp_mro); ++i) {
        auto* each = reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(type->tp_mro, i));
        if (isPublicClass(each))
            return QString::fromUtf8(each->tp_name);
    }
    return QString::fromUtf8(type->tp_name);
}

/// Errors are rare and functions many, so that no table is kept.
Called find(PyObject* function, PyObject* arguments)
{
    Called found;
    if (PyTuple_GET_SIZE(arguments) > 0) {
        PyTypeObject* type = Py_TYPE(PyTuple_GET_ITEM(arguments, 0));
        for (Py_ssize_t i = 0; type->tp_mro && i < PyTuple_GET_SIZE(type->tp_mro); ++i)
            if (findMember(reinterpret_cast<PyTypeObject*>(PyTuple_GET_ITEM(type->tp_mro, i)), function,
                           publicName(type), found))
                return found;
    }
    // A static function, or a method with something else for its object.
    PyObject* module = PyImport_AddModule("strativo_python");
    PyObject *key, *value;
    for (Py_ssize_t position = 0; module && PyDict_Next(PyModule_GetDict(module), &position, &key, &value);)
        if (PyType_Check(value) && findMember(reinterpret_cast<PyTypeObject*>(value), function, textOf(key), found)) {
            if (found.isMethod) {
                for (QString& signature : found.signatures)
                    signature.prepend(
                        QStringLiteral("self: %1%2").arg(textOf(key), QLatin1String(signature.isEmpty() ? "" : ", ")));
                found.isMethod = false;
            }
            return found;
        }
    const QString name = textOf(attribute(function, "__name__").get());
    return {name + QLatin1String("()"), {}, signaturesOf(function, {name})};
}

/// "str, int, name=str": the types of what was given.
QString given(const Called& called, PyObject* arguments, PyObject* keywords)
{
    QStringList types;
    for (Py_ssize_t i = called.isMethod ? 1 : 0; i < PyTuple_GET_SIZE(arguments); ++i)
        types << QString::fromUtf8(typeName(PyTuple_GET_ITEM(arguments, i)));
    PyObject *key, *value;
    for (Py_ssize_t position = 0; keywords && PyDict_Next(keywords, &position, &key, &value);)
        types << textOf(key) + QLatin1Char('=') + QString::fromUtf8(typeName(value));
    return types.join(QLatin1String(", "));
}

QString mismatch(const Called& called, PyObject* arguments, PyObject* keywords)
{
    if (!called.propertyType.isEmpty() && PyTuple_GET_SIZE(arguments) == 2)
        return QStringLiteral("%1, expected '%2' but got '%3' instead")
            .arg(called.shown, called.propertyType, QString::fromUtf8(typeName(PyTuple_GET_ITEM(arguments, 1))));
    QStringList expected;
    for (const QString& signature : called.signatures)
        expected << QStringLiteral("(%1)").arg(signature);
    const QString wanted =
        expected.isEmpty() ? QStringLiteral("other arguments") : expected.join(QLatin1String(" or "));
    return QStringLiteral("%1, expected %2 but got (%3)").arg(called.shown, wanted, given(called, arguments, keywords));
}

/// The text in Python's terms for one of the binding layer's; null for any other.
QString translated(const PendingError& error, const QString& text, PyObject* function, PyObject* arguments,
                   PyObject* keywords)
{
    const auto called = [&] { return find(function, arguments); };
    if (error.isExactly(g_argumentError) && text.startsWith(QLatin1String("Python argument types in")))
        return mismatch(called(), arguments, keywords);
    if (error.isExactly(PyExc_OverflowError) && text.startsWith(QLatin1String("bad numeric conversion")))
        return called().shown + QStringLiteral(", the value must fit 32 bits");
    if (error.isExactly(PyExc_TypeError) && text.startsWith(QLatin1String("No registered converter"))) {
        const QString before = QStringLiteral("from this Python object of type ");
        const int type = text.lastIndexOf(before) + before.size();
        return called().shown + QStringLiteral(", unexpected object of type '%1'").arg(text.mid(type));
    }
    if (error.isExactly(PyExc_RuntimeError) && text.startsWith(QLatin1String("Pickling of \"")))
        return publicName(Py_TYPE(PyTuple_GET_ITEM(arguments, 0))) +
               QStringLiteral(", objects can not be copied or pickled");
    return {};
}

void translate(PyObject* function, PyObject* arguments, PyObject* keywords)
{
    PendingError error;
    if (!error.isExactly(g_argumentError) && !error.isExactly(PyExc_OverflowError) &&
        !error.isExactly(PyExc_TypeError) && !error.isExactly(PyExc_RuntimeError))
        return;
    const QString text = translated(error, textOf(error.value()), function, arguments, keywords);
    if (text.isNull())
        return;
    const Ref type = Ref::borrow(reinterpret_cast<PyObject*>(Py_TYPE(error.value())));
    error.drop();
    PyErr_SetString(type.get(), text.toUtf8().constData());
}

/// Whether a constructor is called for an object that is none of the binding layer's: it would put its own part into
/// memory that is something else.
bool isForeignConstruction(PyObject* function, PyObject* arguments)
{
    PyObject* name = static_cast<bp::objects::function*>(function)->name().ptr();
    // The length is asked first, for every call comes through here.
    if (!isStr(name) || PyUnicode_GET_LENGTH(name) != 8 || PyTuple_GET_SIZE(arguments) == 0 ||
        PyUnicode_CompareWithASCIIString(name, "__init__") != 0)
        return false;
    auto* type = reinterpret_cast<PyObject*>(Py_TYPE(PyTuple_GET_ITEM(arguments, 0)));
    return !PyObject_TypeCheck(type, bp::objects::class_metatype().get());
}

PyObject* call(PyObject* function, PyObject* arguments, PyObject* keywords)
{
    if (isForeignConstruction(function, arguments)) [[unlikely]]
        return PyErr_Format(PyExc_TypeError, "%s, an object of type '%s' is not one of the class",
                            find(function, arguments).shown.toUtf8().constData(),
                            typeName(PyTuple_GET_ITEM(arguments, 0)));
    PyObject* result = g_call(function, arguments, keywords);
    if (!result) [[unlikely]]
        translate(function, arguments, keywords);
    return result;
}

} // namespace

void translateArgumentErrors()
{
    if (g_call)
        return;
    // The type of the error is made with the first one.
    const bp::object function = bp::make_function(+[](int) {});
    const Ref none = Ref::steal(PyTuple_New(0));
    PyTypeObject* type = Py_TYPE(function.ptr());
    const Ref result = Ref::steal(type->tp_call(function.ptr(), none.get(), nullptr));
    g_argumentError = Py_NewRef(PyErr_Occurred());
    PyErr_Clear();
    g_call = std::exchange(type->tp_call, call);
}

} // namespace python

#include "module/gui/LayoutRows.h"

#include "module/gui/LayoutHandle.h"
#include "module/gui/LayoutParts.h"
#include "module/gui/PartArgument.h"
#include "module/gui/WidgetHandle.h"
#include "runtime/Errors.h"
#include "runtime/NumberArguments.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>

namespace bp = boost::python;

namespace python {

namespace {

int nextRow(const QGridLayout& grid)
{
    return grid.count() > 0 ? grid.rowCount() : 0;
}

void requireRows(const QLayout& layout, const char* method)
{
    if (!qobject_cast<const QFormLayout*>(&layout) && !qobject_cast<const QGridLayout*>(&layout))
        raise(PyExc_RuntimeError, "%s, only form and grid layouts have rows", method);
}

LayoutPart requireEither(const bp::object& argument, QLayout& layout, const char* method)
{
    if (bp::extract<const LayoutHandle&>(argument).check())
        return LayoutPart(requireInnerLayout(argument, layout, method));
    if (!bp::extract<const WidgetHandle&>(argument).check())
        raise(PyExc_TypeError, "%s, expected type 'Widget' or 'Layout' but got '%s' instead", method,
              typeName(argument));
    return LayoutPart(requirePart(argument, layout.parentWidget(), method));
}

/// The label in an argument; null for an empty text.
QWidget* requireLabel(const bp::object& argument, QLayout& layout, const char* method)
{
    if (bp::extract<const WidgetHandle&>(argument).check())
        return &requirePart(argument, layout.parentWidget(), method);
    const QString text = requireStr(
        argument, (std::string(method) + ", expected 'str' or 'Widget' for the label but got '%s' instead").c_str());
    return text.isEmpty() ? nullptr : makeLabel(layout, text);
}

void join(QLayout& layout, const LayoutPart& part, const bp::object& object)
{
    if (part.layout)
        joinLayout(layout, *part.layout);
    else
        joinWidget(layout, *part.widget, object);
}

void addToGrid(QGridLayout& grid, QWidget* label, const LayoutPart& field)
{
    const int row = nextRow(grid);
    if (label)
        grid.addWidget(label, row, 0);
    if (field.layout)
        grid.addLayout(field.layout, row, 1);
    else
        grid.addWidget(field.widget, row, 1);
}

/// The first widget in the layout, or in the layouts in it, that takes the keyboard; null when none does.
QWidget* firstToFocus(const QLayout& layout)
{
    for (int index = 0; index < layout.count(); ++index) {
        QLayoutItem& item = *layout.itemAt(index);
        QWidget* found = item.layout() ? firstToFocus(*item.layout()) : item.widget();
        if (found && found->focusPolicy() != Qt::NoFocus)
            return found;
    }
    return nullptr;
}

void addToForm(QFormLayout& form, QWidget* label, const LayoutPart& field)
{
    if (field.layout)
        form.addRow(label, field.layout);
    else
        form.addRow(label, field.widget);
}

} // namespace

void requirePixels(int pixels, int smallest, const char* where)
{
    if (pixels < smallest || pixels > QWIDGETSIZE_MAX)
        raise(PyExc_ValueError, "%s, %d is out of range (%d -> %d)", where, pixels, smallest, QWIDGETSIZE_MAX);
}

int requireStretch(const bp::object& stretch, const char* format)
{
    constexpr int largest = 32767; // sums of many stay far from overflow
    long long value = 0;
    if (!toPosition(stretch.ptr(), value, format))
        raisePending();
    if (value < 0 || value > largest)
        raise(PyExc_ValueError, "Layout, stretch %lld is out of range (0 -> %d)", value, largest);
    return static_cast<int>(value);
}

void addRowPart(QLayout& layout, const LayoutPart& part, Qt::Alignment alignment)
{
    if (auto* form = qobject_cast<QFormLayout*>(&layout)) {
        part.layout ? form->addRow(part.layout) : form->addRow(part.widget);
    } else {
        auto& grid = static_cast<QGridLayout&>(layout);
        const int row = nextRow(grid);
        part.layout ? grid.addLayout(part.layout, row, 0, 1, -1) : grid.addWidget(part.widget, row, 0, 1, -1);
    }
    if (alignment)
        part.layout ? layout.setAlignment(part.layout, alignment) : layout.setAlignment(part.widget, alignment);
}

void addUnlabelledRow(QLayout& layout, const char* method, const bp::object& argument)
{
    requireRows(layout, method);
    const LayoutPart part = requireEither(argument, layout, method);
    addRowPart(layout, part, {});
    join(layout, part, argument);
}

void addLabelledRow(QLayout& layout, const char* method, const bp::object& labelArgument, const bp::object& argument)
{
    requireRows(layout, method);
    const LayoutPart field = requireEither(argument, layout, method);
    QWidget* label = requireLabel(labelArgument, layout, method);
    if (label && !isStr(labelArgument.ptr()))
        requireEither(argument, layout, method); // handlers of the label may have run
    if (label && label == field.widget)
        raise(PyExc_ValueError, "%s, a widget can not be its own label", method);
    if (auto* text = qobject_cast<QLabel*>(label); text && !text->buddy())
        text->setBuddy(field.layout ? firstToFocus(*field.layout)
                                    : field.widget); // Alt and the underlined letter lead to the field
    if (auto* form = qobject_cast<QFormLayout*>(&layout))
        addToForm(*form, label, field);
    else
        addToGrid(static_cast<QGridLayout&>(layout), label, field);
    if (label && labelArgument.ptr() != Py_None && !isStr(labelArgument.ptr()))
        joinWidget(layout, *label, labelArgument);
    join(layout, field, argument);
}

} // namespace python

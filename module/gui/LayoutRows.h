#pragma once

#include <boost/python/object.hpp>

#include <QLayout>
#include <QWidget>

/// Rows of layouts that have rows: what form and grid layouts share.
namespace python {

/// A widget or a layout.
struct LayoutPart
{
    explicit LayoutPart(QWidget& part) : widget(&part) {}
    explicit LayoutPart(QLayout& part) : layout(&part) {}

    QWidget* widget = nullptr;
    QLayout* layout = nullptr;
};

/// Puts `part` into a row of its own, over the whole width. The caller joins it, see LayoutParts.h.
void addRowPart(QLayout& layout, const LayoutPart& part, Qt::Alignment alignment);

/// A row of a label (str or widget) and a field (widget or layout), from the arguments of `method`; nothing is changed
/// when one is refused. RuntimeError for layouts without rows.
void addLabelledRow(QLayout& layout, const char* method, const boost::python::object& label,
                    const boost::python::object& field);
/// A row of one widget or layout.
void addUnlabelledRow(QLayout& layout, const char* method, const boost::python::object& part);

/// ValueError when a number of pixels is out of range.
void requirePixels(int pixels, int smallest, const char* where);
/// TypeError from `format`, ValueError for a stretch that is negative or beyond reason.
int requireStretch(const boost::python::object& stretch, const char* format);

} // namespace python

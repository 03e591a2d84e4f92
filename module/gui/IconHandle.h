#pragma once

#include <QIcon>

namespace python {

/// An icon as scripts hold it: a value, shared with whatever shows it.
struct IconHandle
{
    QIcon icon;
};

} // namespace python

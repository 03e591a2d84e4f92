#include "module/Bindings.h"
#include "module/core/TypedArrayBinding.h"

namespace python {

void bindDoubleArray()
{
    bindTypedArray<double>(
        "A growable array of 64-bit floats in one block of memory: the carrier of coordinates and other exact numbers "
        "between scripts and the application.");
}

} // namespace python

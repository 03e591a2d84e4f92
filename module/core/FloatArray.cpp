#include "module/Bindings.h"
#include "module/core/TypedArrayBinding.h"

namespace python {

void bindFloatArray()
{
    bindTypedArray<float>(
        "A growable array of 32-bit floats in one block of memory: the carrier of samples, maps and attributes between "
        "scripts and the application. Numbers are rounded to 32 bits; beyond their range they become infinite.");
}

} // namespace python

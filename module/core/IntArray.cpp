#include "module/Bindings.h"
#include "module/core/TypedArrayBinding.h"

namespace python {

void bindIntArray()
{
    bindTypedArray<std::int32_t>(
        "A growable array of signed 32-bit integers in one block of memory: the carrier of whole numbers (indices, "
        "classes) between scripts and the application. Values beyond 32 bits raise OverflowError, floats TypeError.");
}

} // namespace python

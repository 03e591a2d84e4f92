#include "module/Bindings.h"
#include "module/core/TypedArrayBinding.h"

namespace python {

void bindVec3Array()
{
    bindTypedArray<core::vec3>(
        "A growable array of vec3 points in one block of memory: the carrier of point sets between scripts and the "
        "application. Elements are read and written by copy: changing a vec3 got from the array does not change the "
        "array. As a buffer (numpy.asarray) it is of shape (n, 3).");
}

} // namespace python

#include "module/Bindings.h"
#include "module/drawing/PairSlots.h"

namespace python {

void bindSize()
{
    static const slots::PairTexts texts{
        "Size",
        "A width and a height in pixels. Wherever a Size is wanted a pair of ints can stand as well: (width, height). "
        "width, height = size unpacks it.",
        "__init__(width: int = 0, height: int = 0) -> None\n__init__(other: Size | tuple[int, int]) -> None\n\nRaises "
        "TypeError, and OverflowError beyond 32 bits.",
        {"width", "height"},
        {"Size.width", "Size.height"},
        {"int: Pixels from left to right.", "int: Pixels from top to bottom."}};
    slots::PairSlots<QSize>::bind(texts);
    // The last of the pairs.
    registerGeometryArguments();
}

} // namespace python

#include "module/Bindings.h"
#include "module/drawing/PairSlots.h"

namespace python {

void bindPoint()
{
    static const slots::PairTexts texts{
        "Point",
        "A position in pixels, from the top left corner of a widget or of the screen. Wherever a Point is wanted a "
        "pair "
        "of ints can stand as well: (x, y). x, y = point unpacks it.",
        "__init__(x: int = 0, y: int = 0) -> None\n__init__(other: Point | tuple[int, int]) -> None\n\nRaises "
        "TypeError, and OverflowError beyond 32 bits.",
        {"x", "y"},
        {"Point.x", "Point.y"},
        {"int: Pixels to the right.", "int: Pixels down."}};
    slots::PairSlots<QPoint>::bind(texts);
}

void bindPointF()
{
    static const slots::PairTexts texts{
        "PointF",
        "A position in pixels with fractions. Wherever a PointF is wanted a Point or a pair of numbers can stand as "
        "well. x, y = point unpacks it. Equality is exact.",
        "__init__(x: float = 0, y: float = 0) -> None\n__init__(other: PointF | Point | tuple[float, float]) -> "
        "None\n\n"
        "Raises TypeError.",
        {"x", "y"},
        {"PointF.x", "PointF.y"},
        {"float: Pixels to the right.", "float: Pixels down."}};
    slots::PairSlots<QPointF>::bind(texts);
}

} // namespace python

#include "host/geom/Rect2d.h"

namespace geom {

std::string Rect2d::toText() const
{
    return "------------- HVRect2D dump<br>Top Left: " + topLeft().toText() +
           "<br>Bottom Right: " + bottomRight().toText() + "<br>------------- END HVRect2D dump";
}

} // namespace geom

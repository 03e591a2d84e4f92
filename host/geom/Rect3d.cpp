#include "host/geom/Rect3d.h"

namespace geom {

std::string Rect3d::toText() const
{
    return "------------- HVRect3D dump<br>Top Left Front: " + topLeftFront().toText() +
           "<br>Bottom Right Back: " + bottomRightBack().toText() + "<br>------------- END HVRect3D dump";
}

} // namespace geom

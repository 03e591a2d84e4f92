#include "host/viewers/HVMouseMode.h"

hv::Result<QString> hv::viewerAction(HVMouseMode mode)
{
    switch (mode) {
    case HVMouseMode::Selection:
        return QStringLiteral("TYPE_SELECT");
    case HVMouseMode::SquareSelection:
        return QStringLiteral("SQUARE_SELECTION");
    case HVMouseMode::CrossNavigation:
        return QStringLiteral("TYPE_GOTO");
    case HVMouseMode::Translation:
        return QStringLiteral("TYPE_HAND");
    case HVMouseMode::Zoom:
        return QStringLiteral("TYPE_ZOOM");
    case HVMouseMode::Unknown:
        break;
    }
    return Failure(QStringLiteral("Unknown mouse mode requested"));
}

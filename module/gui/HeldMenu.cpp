#include "module/gui/Collection.h"
#include "module/gui/Widgets.h"

#include <QPointer>

#include <vector>

namespace bp = boost::python;

namespace python {

namespace {

/// Tells these references from those of connections, which may hold a menu that can be called.
constexpr const char* g_name = "menu";

std::vector<QPointer<HeldReference>> heldMenus(const QObject& owner)
{
    std::vector<QPointer<HeldReference>> found;
    for (QObject* child : owner.children())
        if (auto* held = dynamic_cast<HeldReference*>(child); held && held->objectName() == QLatin1String(g_name))
            found.emplace_back(held);
    return found;
}

} // namespace

void holdMenu(QObject& owner, const bp::object& menu)
{
    for (const QPointer<HeldReference>& held : heldMenus(owner))
        if (held->reference().get() == menu.ptr())
            return;
    (new HeldReference(&owner, SharedReference(menu)))->setObjectName(QLatin1String(g_name));
}

void holdOnlyMenu(QObject& owner, const bp::object& menu)
{
    const std::vector<QPointer<HeldReference>> before = heldMenus(owner);
    if (!menu.is_none())
        holdMenu(owner, menu);
    for (const QPointer<HeldReference>& held : before)
        if (held && held->reference().get() != menu.ptr())
            delete held;
}

} // namespace python

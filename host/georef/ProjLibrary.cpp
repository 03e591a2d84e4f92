#include "host/georef/ProjLibrary.h"

#include <QLibrary>

namespace georef {

const ProjLibrary& ProjLibrary::instance()
{
    static const ProjLibrary library;
    return library;
}

ProjLibrary::ProjLibrary()
{
    // Never unloaded: PROJ's own clean-up runs when the process ends.
    QLibrary library(QStringLiteral(STRATIVO_PROJ_LIBRARY));
    if (!library.load()) {
        m_error = QStringLiteral("the PROJ library cannot be loaded: %1").arg(library.errorString());
        return;
    }
    const auto find = [&](auto& function, const char* name) {
        function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(library.resolve(name));
        if (!function)
            m_error = QStringLiteral("the PROJ library lacks %1").arg(QLatin1String(name));
    };
#define STRATIVO_PROJ_FIND(name) find(name, #name);
    STRATIVO_PROJ_FUNCTIONS(STRATIVO_PROJ_FIND)
#undef STRATIVO_PROJ_FIND
}

hv::Result<void> ProjLibrary::isLoaded() const
{
    return m_error.isEmpty() ? hv::Result<void>() : hv::Failure(m_error);
}

} // namespace georef

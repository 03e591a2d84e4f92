#include "host/georef/Crs.h"

#include "host/georef/ProjLibrary.h"

#include <QStringList>

#include <mutex>
#include <optional>

namespace georef {

namespace {

const ProjLibrary& library()
{
    return ProjLibrary::instance();
}

struct ContextRelease
{
    void operator()(PJ_CONTEXT* context) const { library().proj_context_destroy(context); }
};
struct ObjectRelease
{
    void operator()(PJ* object) const { library().proj_destroy(object); }
};
using ContextPtr = std::unique_ptr<PJ_CONTEXT, ContextRelease>;
using ObjectPtr = std::unique_ptr<PJ, ObjectRelease>;

void collectMessage(void* messages, int, const char* text)
{
    static_cast<QStringList*>(messages)->append(QString::fromUtf8(text));
}

void ignoreMessage(void*, int, const char*) {}

QString errorText(const QStringList& messages)
{
    return messages.isEmpty() ? QStringLiteral("not a coordinate reference system")
                              : messages.join(QStringLiteral("; "));
}

std::optional<geom::Rect2d> areaOfUse(PJ_CONTEXT* context, const PJ* object)
{
    geom::Rect2d area;
    const bool known =
        library().proj_get_area_of_use(context, object, &area.left, &area.top, &area.right, &area.bottom, nullptr);
    // PROJ reports an unknown area as -1000.
    return known && area.left > -1000.0 ? std::optional(area) : std::nullopt;
}

/// The entry of the database that `object` names as its identity.
ObjectPtr byOwnCode(PJ_CONTEXT* context, const PJ* object)
{
    const char* authority = library().proj_get_id_auth_name(object, 0);
    const char* code = library().proj_get_id_code(object, 0);
    return ObjectPtr(authority && code
                         ? library().proj_create_from_database(context, authority, code, PJ_CATEGORY_CRS, 0, nullptr)
                         : nullptr);
}

/// The registered system that `object` names as its own or, failing that, is equivalent to.
ObjectPtr registered(PJ_CONTEXT* context, const PJ* object)
{
    if (ObjectPtr named = byOwnCode(context, object))
        return named;
    // A datum shift added to a system hides it from the search.
    ObjectPtr base;
    if (library().proj_get_type(object) == PJ_TYPE_BOUND_CRS)
        base.reset(library().proj_get_source_crs(context, object));
    int* confidence = nullptr;
    PJ_OBJ_LIST* candidates =
        library().proj_identify(context, base ? base.get() : object, nullptr, nullptr, &confidence);
    // PROJ's scale: 70 and more is an equivalent system, perhaps of another name; the best comes first.
    constexpr int Equivalent = 70;
    ObjectPtr best;
    if (candidates && library().proj_list_get_count(candidates) > 0 && confidence[0] >= Equivalent)
        best.reset(library().proj_list_get(context, candidates, 0));
    library().proj_int_list_destroy(confidence);
    library().proj_list_destroy(candidates);
    // What the search returns may lack the area; the entry itself has it.
    ObjectPtr entry = best ? byOwnCode(context, best.get()) : nullptr;
    return entry ? std::move(entry) : std::move(best);
}

} // namespace

/// The context stands first: it outlives the object made in it.
struct Crs::Proj
{
    Proj() : context(library().proj_context_create())
    {
        library().proj_log_func(context.get(), messages.get(), collectMessage);
        library().proj_context_set_enable_network(context.get(), 0);
    }

    std::unique_ptr<QStringList> messages = std::make_unique<QStringList>();
    ContextPtr context;
    ObjectPtr object;
};

struct Crs::Description
{
    explicit Description(Proj made) : proj(std::move(made)) {}

    Proj proj;
    QString name, authority, code, wkt;
    geom::Rect2d area;
    /// PROJ objects keep caches and their context keeps an error state: one call at a time.
    mutable std::mutex mutex;
};

hv::Result<Crs> Crs::describe(Proj proj)
{
    if (!proj.object || !library().proj_is_crs(proj.object.get()))
        return hv::Failure(errorText(*proj.messages));
    auto description = std::make_shared<Description>(std::move(proj));
    PJ_CONTEXT* context = description->proj.context.get();
    const PJ* object = description->proj.object.get();
    library().proj_log_func(context, nullptr, ignoreMessage);

    description->name = QString::fromUtf8(library().proj_get_name(object));
    const char* const options[] = {"MULTILINE=NO", nullptr};
    description->wkt = QString::fromUtf8(library().proj_as_wkt(context, object, PJ_WKT2_2019, options));
    description->authority = QString::fromUtf8(library().proj_get_id_auth_name(object, 0));
    description->code = QString::fromUtf8(library().proj_get_id_code(object, 0));
    auto area = areaOfUse(context, object);
    if (!area || description->authority.isEmpty()) {
        if (const ObjectPtr found = registered(context, object)) {
            if (!area)
                area = areaOfUse(context, found.get());
            if (description->authority.isEmpty()) {
                description->authority = QString::fromUtf8(library().proj_get_id_auth_name(found.get(), 0));
                description->code = QString::fromUtf8(library().proj_get_id_code(found.get(), 0));
            }
        }
    }
    description->area = area.value_or(geom::Rect2d());
    Crs crs;
    crs.m_description = std::move(description);
    return crs;
}

hv::Result<Crs> Crs::fromWkt(const QString& wkt)
{
    if (const auto loaded = library().isLoaded(); !loaded)
        return loaded.failure();
    Proj proj;
    PROJ_STRING_LIST warnings = nullptr;
    PROJ_STRING_LIST errors = nullptr;
    proj.object.reset(
        library().proj_create_from_wkt(proj.context.get(), wkt.toUtf8().constData(), nullptr, &warnings, &errors));
    // The text is also refused by way of this list; the log then repeats it with less detail.
    if (errors && *errors)
        proj.messages->clear();
    for (PROJ_STRING_LIST text = errors; text && *text; ++text)
        proj.messages->append(QString::fromUtf8(*text));
    library().proj_string_list_destroy(warnings);
    library().proj_string_list_destroy(errors);
    return describe(std::move(proj));
}

hv::Result<Crs> Crs::fromAuthority(const QString& authority, const QString& code)
{
    if (const auto loaded = library().isLoaded(); !loaded)
        return loaded.failure();
    Proj proj;
    proj.object.reset(library().proj_create_from_database(proj.context.get(), authority.toUtf8().constData(),
                                                          code.toUtf8().constData(), PJ_CATEGORY_CRS, 0, nullptr));
    return describe(std::move(proj));
}

QString Crs::name() const
{
    return isNull() ? QString() : m_description->name;
}

QString Crs::authority() const
{
    return isNull() ? QString() : m_description->authority;
}

QString Crs::authorityCode() const
{
    return isNull() ? QString() : m_description->code;
}

geom::Rect2d Crs::area() const
{
    return isNull() ? geom::Rect2d() : m_description->area;
}

QString Crs::toWkt() const
{
    return isNull() ? QString() : m_description->wkt;
}

bool operator==(const Crs& a, const Crs& b)
{
    if (a.m_description == b.m_description || !a.m_description || !b.m_description)
        return a.m_description == b.m_description;
    const std::scoped_lock lock(a.m_description->mutex, b.m_description->mutex);
    return library().proj_is_equivalent_to_with_ctx(
        a.m_description->proj.context.get(), a.m_description->proj.object.get(), b.m_description->proj.object.get(),
        PJ_COMP_EQUIVALENT_EXCEPT_AXIS_ORDER_GEOGCRS);
}

} // namespace georef

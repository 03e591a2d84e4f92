#pragma once

#include "host/core/Result.h"

#include <QString>

#include <proj.h>

namespace georef {

/// The functions of PROJ that are used here, found when the first reference system is made: loading PROJ with the
/// network and image libraries behind it would cost every start of the program 7 ms.
struct ProjLibrary
{
    static const ProjLibrary& instance();

    /// Fails when the library is not there; no function may be called then.
    hv::Result<void> isLoaded() const;

#define STRATIVO_PROJ_FUNCTIONS(FUNCTION)                                                                              \
    FUNCTION(proj_as_wkt)                                                                                              \
    FUNCTION(proj_context_create)                                                                                      \
    FUNCTION(proj_context_destroy)                                                                                     \
    FUNCTION(proj_context_set_enable_network)                                                                          \
    FUNCTION(proj_create_from_database)                                                                                \
    FUNCTION(proj_create_from_wkt)                                                                                     \
    FUNCTION(proj_destroy)                                                                                             \
    FUNCTION(proj_get_area_of_use)                                                                                     \
    FUNCTION(proj_get_id_auth_name)                                                                                    \
    FUNCTION(proj_get_id_code)                                                                                         \
    FUNCTION(proj_get_name)                                                                                            \
    FUNCTION(proj_get_source_crs)                                                                                      \
    FUNCTION(proj_get_type)                                                                                            \
    FUNCTION(proj_identify)                                                                                            \
    FUNCTION(proj_int_list_destroy)                                                                                    \
    FUNCTION(proj_is_crs)                                                                                              \
    FUNCTION(proj_is_equivalent_to_with_ctx)                                                                           \
    FUNCTION(proj_list_destroy)                                                                                        \
    FUNCTION(proj_list_get)                                                                                            \
    FUNCTION(proj_list_get_count)                                                                                      \
    FUNCTION(proj_log_func)                                                                                            \
    FUNCTION(proj_string_list_destroy)

#define STRATIVO_PROJ_MEMBER(name) decltype(&::name) name = nullptr;
    STRATIVO_PROJ_FUNCTIONS(STRATIVO_PROJ_MEMBER)
#undef STRATIVO_PROJ_MEMBER

private:
    ProjLibrary();

    QString m_error;
};

} // namespace georef

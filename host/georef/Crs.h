#pragma once

#include "host/core/Result.h"
#include "host/geom/Rect2d.h"

#include <QString>

#include <memory>

namespace georef {

/// A coordinate reference system, described by well-known text and known to PROJ.
///
/// An immutable value: copies share one description, so they cost nothing, and any thread may read and compare them.
/// Every description has a PROJ context of its own; PROJ's messages come back as error texts and never reach the
/// standard error stream, and PROJ does not use the network. Nothing of PROJ runs before the first system is made.
class Crs
{
public:
    /// Null: no reference system.
    Crs() = default;

    /// From well-known text of either generation (WKT 1 as of GDAL or ESRI, WKT 2). Fails, in PROJ's words, when the
    /// text cannot be read or describes something else (an ellipsoid, an operation). Never null.
    static hv::Result<Crs> fromWkt(const QString& wkt);
    /// A registered system, e.g. "EPSG", "32631". Fails when there is none.
    static hv::Result<Crs> fromAuthority(const QString& authority, const QString& code);

    bool isNull() const { return !m_description; }
    /// E.g. "WGS 84 / UTM zone 31N".
    QString name() const;
    /// The defining authority and its code, e.g. "EPSG" and "32631". A text that names none is compared with the
    /// registered systems; both are empty when nothing equivalent is registered.
    QString authority() const;
    QString authorityCode() const;
    /// Area of use in degrees: left = west, top = south, right = east, bottom = north; left > right across the
    /// antimeridian. A text that states none takes the registered system's. All zero (isNull()) when unknown.
    geom::Rect2d area() const;
    /// WKT 2 (ISO 19162:2019) in one line; empty for the null system.
    QString toWkt() const;

    /// Equivalent definitions: names, remarks and the order of axes of geographic systems are not compared.
    friend bool operator==(const Crs& a, const Crs& b);

private:
    struct Description;
    struct Proj;

    static hv::Result<Crs> describe(Proj proj);

    std::shared_ptr<const Description> m_description;
};

/// For those who go on without: the null system in place of a failure.
inline Crs orNull(const hv::Result<Crs>& crs)
{
    return crs ? *crs : Crs();
}

} // namespace georef

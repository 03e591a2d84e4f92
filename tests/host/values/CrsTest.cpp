#include "host/georef/Crs.h"

#include <thread>
#include <vector>

using georef::Crs;

namespace {

const char* const UtmWithAuthority =
    R"(PROJCS["WGS 84 / UTM zone 31N",GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563]],)"
    R"(PRIMEM["Greenwich",0],UNIT["degree",0.0174532925199433],AUTHORITY["EPSG","4326"]],)"
    R"(PROJECTION["Transverse_Mercator"],PARAMETER["latitude_of_origin",0],PARAMETER["central_meridian",3],)"
    R"(PARAMETER["scale_factor",0.9996],PARAMETER["false_easting",500000],PARAMETER["false_northing",0],)"
    R"(UNIT["metre",1],AXIS["Easting",EAST],AXIS["Northing",NORTH],AUTHORITY["EPSG","32631"]])";

// As desktop programs write it into .prj files: no authority, other names.
const char* const UtmOfEsri =
    R"(PROJCS["WGS_1984_UTM_Zone_31N",GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,)"
    R"(298.257223563]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]],PROJECTION["Transverse_Mercator"],)"
    R"(PARAMETER["False_Easting",500000.0],PARAMETER["False_Northing",0.0],PARAMETER["Central_Meridian",3.0],)"
    R"(PARAMETER["Scale_Factor",0.9996],PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0]])";

void expectUtm31(const Crs& crs)
{
    ASSERT_FALSE(crs.isNull());
    EXPECT_EQ(crs.authority(), QStringLiteral("EPSG"));
    EXPECT_EQ(crs.authorityCode(), QStringLiteral("32631"));
    // EPSG: between 0 and 6 degrees east, northern hemisphere between equator and 84 degrees north.
    EXPECT_EQ(crs.area(), geom::Rect2d(0, 0, 6, 84));
}

} // namespace

TEST(Crs, DescriptionsOfOneSystem)
{
    const Crs registered = *Crs::fromAuthority(QStringLiteral("EPSG"), QStringLiteral("32631"));
    SCOPED_TRACE("descriptions");
    expectUtm31(registered);
    const Crs first = *Crs::fromWkt(QString::fromLatin1(UtmWithAuthority));
    const Crs esri = *Crs::fromWkt(QString::fromLatin1(UtmOfEsri));
    const Crs second = *Crs::fromWkt(registered.toWkt());
    expectUtm31(first);
    expectUtm31(esri);
    expectUtm31(second);
    EXPECT_TRUE(second.toWkt().startsWith(QStringLiteral("PROJCRS[")));
    EXPECT_EQ(first, second);
    EXPECT_EQ(first, registered);
    const Crs other = *Crs::fromAuthority(QStringLiteral("EPSG"), QStringLiteral("32632"));
    EXPECT_FALSE(first == other);
    EXPECT_FALSE(first == Crs());
    Crs copy = other;
    copy = first;
    EXPECT_EQ(copy.name(), QStringLiteral("WGS 84 / UTM zone 31N"));
}

TEST(Crs, LocalSystemIsNotRegistered)
{
    QString wkt = QString::fromLatin1(UtmOfEsri);
    const Crs crs = *Crs::fromWkt(
        wkt.replace(QStringLiteral("\"Central_Meridian\",3.0"), QStringLiteral("\"Central_Meridian\",3.7")));
    ASSERT_FALSE(crs.isNull());
    EXPECT_TRUE(crs.authority().isEmpty());
    EXPECT_TRUE(crs.area().isNull());
}

TEST(Crs, RefusedTextsSayWhyAndStaySilent)
{
    testing::internal::CaptureStderr();
    const QString truncated = QString::fromLatin1(UtmOfEsri).left(200);
    const QString ellipsoid = QStringLiteral(R"(ELLIPSOID["WGS 84",6378137,298.257223563])");
    for (const QString& text :
         {QString(), QStringLiteral("not a system"), truncated, ellipsoid, QStringLiteral("PROJCS[")}) {
        const auto crs = Crs::fromWkt(text);
        ASSERT_FALSE(crs) << text.toStdString();
        EXPECT_FALSE(crs.failure().sentence.isEmpty()) << text.toStdString();
    }
    const auto unknown = Crs::fromAuthority(QStringLiteral("EPSG"), QStringLiteral("1"));
    ASSERT_FALSE(unknown);
    EXPECT_FALSE(unknown.failure().sentence.isEmpty());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(Crs().toWkt().isEmpty());
    EXPECT_EQ(Crs(), Crs());
}

TEST(Crs, ThreadsMakeAndCompareSystems)
{
    const Crs shared = *Crs::fromAuthority(QStringLiteral("EPSG"), QStringLiteral("32631"));
    std::vector<int> agreeing(4);
    std::vector<std::thread> threads;
    for (int& count : agreeing)
        threads.emplace_back([&count, shared] {
            for (int i = 0; i < 5; ++i)
                count += *Crs::fromWkt(QString::fromLatin1(UtmWithAuthority)) == shared;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(agreeing, std::vector<int>(4, 5));
}

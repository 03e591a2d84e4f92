// Kinds of object: what each reads, writes, paints and says.
#include "TestFiles.h"
#include "host/kinds/IObjectKind.h"
#include "host/kinds/ObjectPicture.h"
#include "host/kinds/crs/CrsKind.h"
#include "host/kinds/plain/PlainKind.h"
#include "host/kinds/script/ScriptKind.h"
#include "host/kinds/well/WellKind.h"

#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>

namespace {

using hv::IObjectKind;
using hv::ObjectValue;

TEST(Kinds, whatTheDemonstrationHasComesBackFromTheDiskAndIsShown)
{
    const QTemporaryDir folder;
    int shown = 0;
    for (const ObjectKindInfo& info : objectKinds()) {
        const IObjectKind& kind = hv::objectKind(info.kind);
        EXPECT_EQ(kind.info().kind, info.kind);
        for (const hv::DemoObject& object : kind.demo()) {
            const QString path = folder.filePath(object.name + info.suffix());
            ASSERT_TRUE(kind.write(object.value, path)) << info.singular;
            const QByteArray written = readFile(path);
            const auto read = kind.read(path);
            ASSERT_TRUE(read) << reason(read).toStdString();
            ASSERT_TRUE(kind.write(*read, path));
            EXPECT_EQ(readFile(path), written) << "saving what was read loses nothing";
            EXPECT_FALSE(kind.describe(*read).empty()) << info.singular;
            const auto picture = kind.picture(*read);
            ASSERT_TRUE(picture) << info.singular;
            const QImage image = hv::imageOf(*picture, {200, 150});
            int painted = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    painted += image.pixel(x, y) != qRgb(255, 255, 255);
            EXPECT_GT(painted, 100) << info.singular;
            ++shown;
        }
        // A value of another kind is refused everywhere, and leaves what is there.
        const QString path = folder.filePath(QStringLiteral("other") + info.suffix());
        writeFile(path, "kept");
        const ObjectValue other = ObjectValue::of(42);
        EXPECT_FALSE(kind.write(other, path)) << info.singular;
        EXPECT_FALSE(kind.write({}, path)) << info.singular;
        EXPECT_EQ(readFile(path), QByteArray("kept"));
        EXPECT_FALSE(kind.picture(other)) << info.singular;
        EXPECT_TRUE(kind.describe(other).empty()) << info.singular;
        const auto missing = kind.read(folder.filePath("none"));
        ASSERT_FALSE(missing);
        EXPECT_TRUE(missing.failure().sentence.contains("none")) << "names the file";
    }
    EXPECT_EQ(shown, 10);
}

TEST(Kinds, referenceSystemsScriptsAndPlainFiles)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("file");
    writeFile(path, georef::Crs::fromAuthority("EPSG", "32631")->toWkt().toUtf8());
    const auto system = hv::objectKind(ObjectKind::Crs).read(path);
    ASSERT_TRUE(system) << reason(system).toStdString();
    EXPECT_EQ(system->as<hv::ReferenceSystem>()->crs.authorityCode(), "32631");
    EXPECT_FALSE(system->as<hv::Script>()) << "a value has one type";
    EXPECT_EQ(hv::objectKind(ObjectKind::Crs).describe(*system)[1].text, "EPSG:32631");
    writeFile(path, "PROJCS[");
    EXPECT_FALSE(hv::objectKind(ObjectKind::Crs).read(path));

    const QByteArray latin = "# coding: latin-1\nx = '\xe9'\r\ny";
    writeFile(path, latin);
    const auto script = hv::objectKind(ObjectKind::PythonScript).read(path);
    ASSERT_TRUE(script);
    EXPECT_EQ(script->as<hv::Script>()->text, latin);
    EXPECT_EQ(hv::objectKind(ObjectKind::PythonScript).describe(*script)[0].text, "3");

    const auto plain = hv::objectKind(ObjectKind::Wavelet).read(path);
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->as<hv::PlainFile>()->size, latin.size());
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

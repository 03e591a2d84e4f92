// Volumes as files of NumPy and folders of Zarr, there and back, and arrays that are no volumes.
#include "host/arrays/ZarrFolder.h"
#include "host/volume/VolumeWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <functional>

namespace {

using namespace hv;

class ArrayVolume : public ::testing::Test
{
protected:
    static constexpr int inlines = 67, crosslines = 5, samples = 9;
    static float sample(int y, int x, int z) { return static_cast<float>(y * 100 + x * 10 + z); }

    /// With a trace that is not there, at (3, 2).
    std::shared_ptr<const VolumeFile> volume()
    {
        VolumeHeader header;
        header.space = georef::BlocSpace(crosslines, inlines, samples);
        EXPECT_TRUE(header.space.setSurveySpace(200, 208, 100, 166, 500, 532).empty());
        EXPECT_TRUE(
            header.space.setWorldSpace({1000, 2000, 500}, {1100, 2050, 500}, {900, 2200, 500}, {1000, 2000, 532})
                .empty());
        header.domain = georef::Domain::Depth;
        header.verticalUnit = georef::Unit::Feet;
        header.note(QStringLiteral("Made by a test."));
        auto writer = VolumeWriter::create(path("v.svol"), header, {false, false});
        EXPECT_TRUE(writer);
        for (int y = 0; y < inlines; ++y)
            for (int x = 0; x < crosslines; ++x) {
                float trace[samples];
                for (int z = 0; z < samples; ++z)
                    trace[z] = sample(y, x, z);
                if (y != 3 || x != 2) {
                    EXPECT_TRUE((*writer)->writeTraces(y, x, 1, trace));
                }
            }
        EXPECT_TRUE((*writer)->finish(nullptr));
        return open(path("v.svol"));
    }

    static std::shared_ptr<const VolumeFile> open(const QString& file)
    {
        auto opened = VolumeFile::open(file);
        EXPECT_TRUE(opened) << (opened ? "" : opened.failure().sentence.toStdString());
        return opened ? *opened : nullptr;
    }

    static void expectSamples(const VolumeFile& file)
    {
        std::vector<float> traces(crosslines * samples);
        for (int y = 0; y < inlines; ++y) {
            ASSERT_TRUE(file.readTraces(y, 0, crosslines, traces.data()));
            for (int x = 0; x < crosslines; ++x)
                for (int z = 0; z < samples; ++z)
                    ASSERT_EQ(traces[static_cast<std::size_t>(x * samples + z)],
                              y == 3 && x == 2 ? -9999.0F : sample(y, x, z));
        }
    }

    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }
    static void change(const QString& file, const std::function<void(QByteArray&)>& change)
    {
        QFile opened(file);
        ASSERT_TRUE(opened.open(QIODevice::ReadWrite));
        QByteArray bytes = opened.readAll();
        change(bytes);
        opened.resize(0);
        opened.seek(0);
        opened.write(bytes);
    }

    QTemporaryDir folder;
    JobProgress progress;
    JobContext context{progress};
};

TEST_F(ArrayVolume, numpyKeepsEverySample)
{
    const auto file = volume();
    ASSERT_TRUE(arrays::writeNumpy(*file, path("v.npy"), context));
    EXPECT_EQ(QFileInfo(path("v.npy")).size() % 64, inlines * crosslines * samples * 4 % 64);
    ASSERT_TRUE(arrays::readNumpy(path("v.npy"), path("back.svol"), {true, true}, context));
    const auto back = open(path("back.svol"));
    ASSERT_TRUE(back);
    expectSamples(*back);
}

TEST_F(ArrayVolume, zarrKeepsEverySampleAndThePlace)
{
    const auto file = volume();
    for (const bool compresses : {false, true}) {
        const QString zarr = path(compresses ? "small.zarr" : "v.zarr");
        ASSERT_TRUE(arrays::writeZarr(*file, zarr, compresses, context));
        ASSERT_TRUE(arrays::readZarr(zarr, path("back.svol"), {true, true}, context));
        const auto back = open(path("back.svol"));
        ASSERT_TRUE(back);
        expectSamples(*back);
        EXPECT_EQ(back->header().space, file->header().space);
        EXPECT_EQ(back->header().domain, georef::Domain::Depth);
        EXPECT_EQ(back->header().verticalUnit, georef::Unit::Feet);
        const auto again = arrays::writeZarr(*file, zarr, compresses, context);
        ASSERT_FALSE(again) << "what is there stays";
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{"small.zarr", "v.zarr"}));
}

TEST_F(ArrayVolume, chunksThatAreMissingHaveNoValueAndDamagedOnesAreRefused)
{
    const auto file = volume();
    ASSERT_TRUE(arrays::writeZarr(*file, path("v.zarr"), true, context));
    ASSERT_TRUE(QFile::remove(path("v.zarr/samples/1.0.0")));
    ASSERT_TRUE(arrays::readZarr(path("v.zarr"), path("back.svol"), {}, context));
    float trace[samples];
    ASSERT_TRUE(open(path("back.svol"))->readTraces(64, 0, 1, trace));
    EXPECT_EQ(trace[0], -9999.0F);
    change(path("v.zarr/samples/0.0.0"), [](QByteArray& bytes) { bytes.chop(5); });
    const auto read = arrays::readZarr(path("v.zarr"), path("other.svol"), {}, context);
    ASSERT_FALSE(read);
    EXPECT_TRUE(read.failure().sentence.contains("0.0.0 is damaged")) << read.failure().sentence.toStdString();
    EXPECT_FALSE(QFile::exists(path("other.svol")));
}

TEST_F(ArrayVolume, arraysThatAreNoVolumesAreRefusedWithTheReason)
{
    const auto file = volume();
    const struct
    {
        const char* from;
        const char* to;
        const char* reason;
    } heads[] = {{"'<f4'", "'<c8'", "no numbers that are read"},
                 {"False", "True ", "not in C order"},
                 {"(67, 5, 9)", "(67, 45)  ", ""},
                 {"(67, 5, 9)", "(67, 5, 0)", "dimensions of a volume"},
                 {"(67, 5, 9)", "(3015,)   ", "dimensions of a volume"},
                 {"(67, 5, 9)", "(67, 6, 9)", "shorter than its header"},
                 {"NUMPY", "MUMPY", "no file of NumPy"}};
    for (const auto& each : heads) {
        ASSERT_TRUE(arrays::writeNumpy(*file, path("v.npy"), context));
        change(path("v.npy"), [&each](QByteArray& bytes) { bytes.replace(each.from, each.to); });
        const auto read = arrays::readNumpy(path("v.npy"), path("back.svol"), {}, context);
        EXPECT_EQ(bool(read), each.reason[0] == '\0') << each.to;
        if (!read) {
            EXPECT_TRUE(read.failure().sentence.contains(QLatin1String(each.reason)))
                << read.failure().sentence.toStdString();
        }
    }
    ASSERT_TRUE(arrays::writeZarr(*file, path("v.zarr"), false, context));
    const struct
    {
        const char* from;
        const char* to;
    } members[] = {{"\"<f4\"", "\"|S4\""},
                   {"\"C\"", "\"F\""},
                   {"\"compressor\": null", "\"compressor\": {\"id\": \"blosc\"}"},
                   {"\"zarr_format\": 2", "\"zarr_format\": 3"},
                   {"67", "-67"},
                   {"64", "0"},
                   {"64", "6400000000"},
                   {"{", "["}};
    const QString description = path("v.zarr/samples/.zarray");
    for (const auto& each : members) {
        QByteArray before;
        change(description, [&](QByteArray& bytes) {
            before = bytes;
            bytes.replace(each.from, each.to);
        });
        const auto read = arrays::readZarr(path("v.zarr"), path("none.svol"), {}, context);
        EXPECT_FALSE(read) << each.to;
        change(description, [&](QByteArray& bytes) { bytes = before; });
    }
    EXPECT_FALSE(QFile::exists(path("none.svol")));
    EXPECT_TRUE(arrays::readZarr(path("v.zarr"), path("none.svol"), {}, context));
}

TEST_F(ArrayVolume, whatIsCancelledLeavesNothing)
{
    const auto file = volume();
    JobProgress stopped;
    JobContext stop(stopped);
    stopped.cancel();
    EXPECT_FALSE(arrays::writeNumpy(*file, path("v.npy"), stop));
    EXPECT_FALSE(arrays::writeZarr(*file, path("v.zarr"), false, stop));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList("v.svol"));
}

} // namespace

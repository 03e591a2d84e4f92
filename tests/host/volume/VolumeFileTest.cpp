// What lies in a volume file is read as it was written, in every direction, and what is wrong with a file is said.
#include "VolumeTestData.h"
#include "host/img/Statistics.h"
#include "host/volume/OrderCopy.h"
#include "host/volume/VolumeIo.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cmath>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace hv;
using georef::ScanOrientation;
using volumes::expectSamples;

class VolumeFileTest : public ::testing::Test
{
protected:
    QString path(const QString& name = QStringLiteral("cube.svol")) const { return m_folder.filePath(name); }
    /// What an attempt to open the file says.
    QString refusal() const
    {
        const auto file = VolumeFile::open(path());
        if (file)
            return QStringLiteral("(opened)");
        EXPECT_TRUE(file.failure().sentence.contains(QStringLiteral("cube.svol"))) << "it names the file";
        return file.failure().sentence;
    }
    QByteArray line() const
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readLine();
    }
    /// Both copies of the header.
    void putLine(const QByteArray& text) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QByteArray whole = text.leftJustified(volumeHeaderBytes - 1, ' ', true) + '\n';
        file.write(whole + whole);
    }

    QTemporaryDir m_folder;
};

TEST_F(VolumeFileTest, FramesAreThoseOfACubeWhicheverOrdersTheFileHas)
{
    for (const VolumeOrders orders :
         {VolumeOrders{true, true}, VolumeOrders{true, false}, VolumeOrders{false, true}, VolumeOrders{false, false}}) {
        volumes::make(path(), volumes::header(70, 37, 65), orders);
        const auto file = volumes::open(path());
        EXPECT_EQ(file->layout().orders(), orders);
        expectSamples(*file);
    }
}

TEST_F(VolumeFileTest, SmallestVolumesAndSingleLinesAreVolumes)
{
    for (const auto& [inlines, crosslines, samples] :
         {std::array{1, 1, 1}, std::array{1, 9, 5}, std::array{9, 1, 5}, std::array{3, 3, 1}}) {
        volumes::make(path(), volumes::header(inlines, crosslines, samples));
        expectSamples(*volumes::open(path()));
    }
}

TEST_F(VolumeFileTest, RegionsAreInlineCrosslineSample)
{
    volumes::make(path(), volumes::header(8, 7, 6));
    const auto file = volumes::open(path());
    const CellRegion region{2, 5, 1, 7, 3, 4};
    std::vector<float> samples(3 * 6 * 1);
    ASSERT_TRUE(file->readRegion(region, samples.data()));
    auto next = samples.begin();
    for (int i = 2; i < 5; ++i)
        for (int x = 1; x < 7; ++x)
            EXPECT_EQ(*next++, volumes::sampleAt(i, x, 3));
    std::vector<float> traces(4 * 6);
    ASSERT_TRUE(file->readTraces(7, 3, 7, traces.data()));
    EXPECT_EQ(traces, volumes::traces(file->header(), 7, 3, 4));
    EXPECT_EQ(*file->sample(7, 6, 5), volumes::sampleAt(7, 6, 5));
    EXPECT_FALSE(file->readRegion({0, 9, 0, 7, 0, 6}, samples.data())) << "one inline too many";
    EXPECT_EQ(file->clipped({}), (CellRegion{0, 8, 0, 7, 0, 6}));
    EXPECT_FALSE(file->clipped({8, 9}));
}

TEST_F(VolumeFileTest, TheHeaderComesBackAsItWas)
{
    VolumeHeader header = volumes::header(4, 3, 5);
    ASSERT_TRUE(header.space.setSurveySpace(5001, 5005, 1001, 1007, 0, 16).empty());
    ASSERT_TRUE(header.space
                    .setWorldSpace({456000.1, 6782000.2, 0}, {456050, 6782000, 0}, {456000, 6782100, 0},
                                   {456000.1, 6782000.2, 16})
                    .empty());
    header.crs = QStringLiteral("PROJCRS[\"Ünïcode \\ \"]");
    header.horizontalUnit = georef::Unit::FeetUS;
    header.verticalUnit = georef::Unit::Meters;
    header.domain = georef::Domain::Depth;
    header.noValue = -1.5f;
    header.content = VolumeContent::Property;
    header.samples = QStringLiteral("Velocity");
    header.note(QStringLiteral("Imported: {\"order\":\"inline\",\"state\":\"stale\"}"));
    header.further.insert(QStringLiteral("later"), 7);
    volumes::make(path(), header);
    const auto file = volumes::open(path());
    const VolumeHeader& read = file->header();
    EXPECT_EQ(read.space, header.space);
    EXPECT_EQ(read.crs, header.crs);
    EXPECT_EQ(read.horizontalUnit, header.horizontalUnit);
    EXPECT_EQ(read.verticalUnit, header.verticalUnit);
    EXPECT_EQ(read.domain, header.domain);
    EXPECT_EQ(read.noValue, header.noValue);
    EXPECT_EQ(read.content, header.content);
    EXPECT_EQ(read.samples, header.samples);
    EXPECT_EQ(read.history, header.history);
    EXPECT_EQ(read.further, header.further);
}

TEST_F(VolumeFileTest, EveryDamagedMemberOfTheHeaderIsNamed)
{
    volumes::make(path(), volumes::header(4, 3, 5));
    const QJsonObject sound = QJsonDocument::fromJson(line()).object();
    QStringList members = sound.keys();
    members.removeOne(QStringLiteral("format"));
    const QJsonArray wrongs{QStringLiteral("x"), -1, 1e300, QJsonArray{1, QStringLiteral("y")}, QJsonObject{}};
    for (const QString& member : qAsConst(members))
        for (const QJsonValue wrong : wrongs) {
            // A text is as good as another there.
            if (wrong.isString() && (member == QLatin1String("crs") || member == QLatin1String("samples")))
                continue;
            if (wrong == QJsonValue(-1) && member == QLatin1String("noValue"))
                continue;
            QJsonObject damaged = sound;
            damaged.insert(member, wrong);
            putLine(QJsonDocument(damaged).toJson(QJsonDocument::Compact));
            EXPECT_TRUE(refusal().contains(QStringLiteral("its header has no valid \"%1\"").arg(member)))
                << qPrintable(member) << ": " << qPrintable(refusal());
        }
    members.removeOne(QStringLiteral("statistics"));
    for (const QString& member : qAsConst(members)) {
        QJsonObject damaged = sound;
        damaged.remove(member);
        putLine(QJsonDocument(damaged).toJson(QJsonDocument::Compact));
        EXPECT_TRUE(refusal().contains(QStringLiteral("\"%1\"").arg(member))) << qPrintable(refusal());
    }
}

TEST_F(VolumeFileTest, ArraysThatOverlapOrLieOutsideAreRefused)
{
    volumes::make(path(), volumes::header(40, 30, 50));
    const QByteArray sound = line();
    const auto with = [&](const QByteArray& before, const QByteArray& after) {
        QByteArray changed = sound;
        EXPECT_TRUE(changed.contains(before)) << before.constData();
        putLine(changed.replace(before, after));
        return refusal();
    };
    const QString orders = QStringLiteral("\"orders\"");
    EXPECT_TRUE(with(R"("offset":131072)", R"("offset":131073)").contains(orders)) << "not at a page";
    EXPECT_TRUE(with(R"("offset":131072)", R"("offset":65536)").contains(orders)) << "in the header";
    EXPECT_TRUE(with(R"("order":"timeslice")", R"("order":"crossline")").contains(orders)) << "twice";
    EXPECT_TRUE(with(R"("order":"inline","state":"whole")", R"("order":"inline","state":"stale")").contains(orders));
    EXPECT_TRUE(with(R"("offset":372736)", R"("offset":131072)").contains(orders)) << "one upon the other";
    EXPECT_TRUE(with(R"("offset":372736)", R"("offset":4503599627366400)").contains(QStringLiteral("not whole")));
    for (const char* inlines : {"41", "2000000000"})
        EXPECT_TRUE(
            with(R"("inlines":40)", R"("inlines":)" + QByteArray(inlines)).contains(QStringLiteral("not whole")));
}

TEST_F(VolumeFileTest, ExtentsWhoseProductOverflowsAreRefused)
{
    volumes::make(path(), volumes::header(4, 3, 5));
    QByteArray changed = line();
    for (const char* member : {"inlines", "crosslines", "samples"})
        changed.replace(QRegularExpression(QStringLiteral("\"%1\":\\d+").arg(QLatin1String(member)))
                            .match(QString::fromUtf8(changed))
                            .captured()
                            .toUtf8(),
                        '"' + QByteArray(member) + "\":2147483647");
    putLine(changed);
    EXPECT_TRUE(refusal().contains(QStringLiteral("\"extents\""))) << qPrintable(refusal());
    EXPECT_FALSE(VolumeWriter::create(path(QStringLiteral("large.svol")),
                                      volumes::header(2147483647, 2147483647, 2147483647), {}));
    // More than 32 bits of bytes is nothing special.
    EXPECT_EQ(sampleBytes(georef::BlocSpace(100000, 100000, 5)), 200'000'000'000);
}

TEST_F(VolumeFileTest, WhatIsNoVolumeIsRefusedWithTheReason)
{
    EXPECT_TRUE(refusal().contains(QStringLiteral("No such file")));
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_TRUE(refusal().contains(QStringLiteral("it is no volume file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"version\":\"1.0\"}\n");
    file.close();
    EXPECT_TRUE(refusal().contains(QStringLiteral("it is no volume file")));
    volumes::make(path(), volumes::header(4, 3, 5));
    putLine(line().replace("\"version\":\"1.0\"", "\"version\":\"2.0\""));
    EXPECT_TRUE(refusal().contains(QStringLiteral("a later version of Strativo"))) << qPrintable(refusal());
    volumes::make(path(), volumes::header(40, 30, 50));
    const qint64 size = QFileInfo(path()).size();
    for (const qint64 half : {size - 1, size / 2, qint64(volumeHeaderBytes * 2)}) {
        ASSERT_TRUE(QFile::resize(path(), half));
        EXPECT_TRUE(refusal().contains(QStringLiteral("it is not whole"))) << qPrintable(refusal());
    }
    ASSERT_TRUE(QFile::resize(path(), 1000));
    EXPECT_TRUE(refusal().contains(QStringLiteral("it is ")));
    ASSERT_TRUE(QFile::remove(path()) && QDir().mkdir(path()));
    EXPECT_TRUE(refusal().contains(QStringLiteral("not an ordinary file"))) << qPrintable(refusal());
}

TEST_F(VolumeFileTest, AHeaderThatWasHalfWrittenIsReadFromItsCopy)
{
    volumes::make(path(), volumes::header(4, 3, 5));
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek(40);
    file.write(QByteArray(3000, 'x'));
    file.close();
    expectSamples(*volumes::open(path()));
}

TEST_F(VolumeFileTest, TwoHundredGigabytesOpenAtOnce)
{
    const VolumeHeader header = volumes::header(5000, 5000, 2000);
    const VolumeFileHead head{header, VolumeLayout::make(header.space, {false, false})};
    QFile file(path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(*volumeHeaderText(head));
    ASSERT_TRUE(file.resize(head.layout.fileSize(header.space)));
    file.close();
    const auto opened = volumes::open(path());
    ASSERT_GT(opened->fileSize(), 200'000'000'000);
    std::vector<float> trace(2000, 1.0f);
    ASSERT_TRUE(opened->readTraces(4999, 4999, 5000, trace.data()));
    EXPECT_EQ(trace, std::vector<float>(2000, 0.0f)) << "the last one, of nothing but holes";
}

TEST_F(VolumeFileTest, AFileThatIsTruncatedWhileItIsReadGivesAnError)
{
    volumes::make(path(), volumes::header(100, 90, 80));
    const auto file = volumes::open(path());
    const float* view = file->order(ScanOrientation::Inline);
    std::vector<float> frame(90 * 80);
    ASSERT_TRUE(file->readFrame(ScanOrientation::Inline, 99, frame.data()));
    ASSERT_TRUE(QFile::resize(path(), volumeHeaderBytes * 2 + 4096));
    const auto read = file->readFrame(ScanOrientation::Inline, 99, frame.data());
    ASSERT_FALSE(read);
    EXPECT_TRUE(read.failure().sentence.contains(QStringLiteral("lost"))) << qPrintable(read.failure().sentence);
    EXPECT_EQ(view[10], volumes::sampleAt(0, 10, 0)) << "what is left is there";
    double sum = 0.0;
    for (int i = 0; i < 100 * 90 * 80; ++i)
        sum += view[i];
    EXPECT_TRUE(std::isnan(sum)) << "what a view of another library reads is no number, and no signal ends the program";
    EXPECT_FALSE(file->check());
    // It stays so when the file is longer again.
    ASSERT_TRUE(QFile::resize(path(), file->fileSize()));
    EXPECT_FALSE(file->readFrame(ScanOrientation::Inline, 0, frame.data()));
}

TEST_F(VolumeFileTest, ASignalThatIsNotAboutAFileGoesToWhoeverHadItBefore)
{
    volumes::make(path(), volumes::header(4, 3, 5));
    static const auto before = [](int) { _exit(7); };
    const auto endWithFile = [this](void (*handler)(int)) {
        std::signal(SIGBUS, handler);
        const auto file = volumes::open(path());
        std::raise(SIGBUS);
    };
    EXPECT_EXIT(endWithFile(before), ::testing::ExitedWithCode(7), "");
    EXPECT_EXIT(endWithFile(SIG_DFL), ::testing::KilledBySignal(SIGBUS), "");
    // A handler that gives the signal back to the one that it found, ours, and sends it again.
    static struct sigaction found;
    EXPECT_EXIT(
        {
            auto file = volumes::open(path());
            struct sigaction own
            {};
            own.sa_handler = [](int) {
                sigaction(SIGBUS, &found, nullptr);
                std::raise(SIGBUS);
            };
            sigaction(SIGBUS, &own, &found);
            file = volumes::open(path());
            std::raise(SIGBUS);
        },
        ::testing::KilledBySignal(SIGBUS), "");
}

TEST_F(VolumeFileTest, ADeletedFileStaysReadableToItsReaders)
{
    volumes::make(path(), volumes::header(4, 3, 5));
    const auto file = volumes::open(path());
    ASSERT_TRUE(QFile::remove(path()));
    expectSamples(*file);
}

TEST_F(VolumeFileTest, OrdersAreMadeInBlocksWithinTheirMemory)
{
    const VolumeHeader header = volumes::header(23, 31, 17);
    for (const ScanOrientation orientation : {ScanOrientation::Crossline, ScanOrientation::Timeslice})
        for (const std::int64_t bytes : {16, 200, 3000, 20000}) {
            volumes::make(path(), header);
            auto whole = volumes::open(path());
            const std::int64_t offset = whole->layout().order(orientation)->offset;
            QFile file(path());
            ASSERT_TRUE(file.open(QIODevice::ReadWrite));
            file.seek(offset);
            file.write(QByteArray(static_cast<int>(*sampleBytes(header.space)), '\0'));
            file.flush();
            const OrderCopy copy{file.handle(),
                                 header.space,
                                 ScanOrientation::Inline,
                                 whole->layout().order(ScanOrientation::Inline)->offset,
                                 orientation,
                                 offset,
                                 bytes};
            ASSERT_TRUE(copy.run(*whole->clipped({}), nullptr));
            expectSamples(*whole);
        }
}

TEST_F(VolumeFileTest, FilesThatAreMadeMayBeReadLikeAnyOther)
{
    const QTemporaryDir made;
    const QString path = made.filePath(QStringLiteral("made"));
    const mode_t mask = umask(022);
    const FileDescriptor file = FileDescriptor::open(path, O_WRONLY | O_CREAT | O_EXCL);
    umask(mask);
    ASSERT_TRUE(bool(file));
    struct stat state
    {};
    ASSERT_EQ(fstat(file.number(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0644u);
}

} // namespace

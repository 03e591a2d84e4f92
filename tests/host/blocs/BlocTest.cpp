// Frames in memory and in files, and what a project hears of them and can take back.
#include "VolumeTestData.h"
#include "host/blocs/HVPropertyBloc.h"
#include "host/blocs/HVRandomLine.h"
#include "host/blocs/HVSeismicBloc.h"
#include "host/kinds/IObjectKind.h"

#include <QCoreApplication>
#include <QDir>

#include <cerrno>

namespace {

using namespace hv;
using georef::ScanOrientation;

constexpr int g_inlines = 12;
constexpr int g_crosslines = 10;
constexpr int g_samples = 8;

class BlocTest : public ::testing::Test, public IUndoSink
{
protected:
    void SetUp() override
    {
        project = *HVProject::create(folder.filePath(QStringLiteral("project")), QStringLiteral("Test"));
        ASSERT_TRUE(project->store().ensureFolder(ObjectKind::Volume));
        volumes::make(path(), volumes::header(g_inlines, g_crosslines, g_samples));
        project->changes().setSink(this);
        QObject::connect(&project->store(), &ObjectStore::changed,
                         [this](const ObjectChange& change) { changes.push_back(change); });
    }
    void TearDown() override { project.reset(); }
    void add(std::unique_ptr<ChangeStep> step) override { steps.push_back(std::move(step)); }
    void clear() override { steps.clear(); }

    QString path(const QString& name = QStringLiteral("Cube")) const
    {
        return project->path() + QStringLiteral("/volumes/") + name + QStringLiteral(".svol");
    }
    std::unique_ptr<HVBloc> load() const
    {
        auto bloc = HVBloc::load(path(), project.get());
        EXPECT_TRUE(bloc) << qPrintable(bloc.failure().sentence);
        return std::move(*bloc);
    }
    static std::unique_ptr<img::Image2d> image(const FrameShape& shape, float value)
    {
        auto made = img::Image2d::create(shape.width, shape.height);
        made->fill(value);
        return made;
    }
    static std::vector<float> pixels(const Result<std::unique_ptr<img::Image2d>>& frame)
    {
        EXPECT_TRUE(frame);
        return frame ? std::vector<float>((*frame)->data(), (*frame)->data() + (*frame)->size()) : std::vector<float>();
    }
    /// One timer brings the file up to date, and the store's tells of it.
    static void turn()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }

    QTemporaryDir folder;
    std::unique_ptr<HVProject> project;
    std::vector<std::unique_ptr<ChangeStep>> steps;
    std::vector<ObjectChange> changes;
};

TEST_F(BlocTest, FramesAreReadAlongTheOrientation)
{
    const auto bloc = load();
    EXPECT_TRUE(bloc->inherits("HVSeismicBloc"));
    EXPECT_EQ(bloc->name(), QStringLiteral("Cube"));
    EXPECT_EQ(bloc->datasize(), 12 * 10 * 8 * 4);
    for (const ScanOrientation orientation : scanOrientations) {
        bloc->setScanOrientation(orientation);
        const int last = bloc->maxFrameIndex();
        EXPECT_EQ(last + 1, frameShape(bloc->header().space, orientation).count);
        EXPECT_EQ(pixels(bloc->frame(last)), volumes::frame(bloc->header().space, orientation, last));
        EXPECT_FALSE(bloc->frame(last + 1));
        EXPECT_FALSE(bloc->frame(-1));
    }
    bloc->setFrameIndex(100);
    EXPECT_EQ(bloc->frameIndex(), g_samples - 1) << "there are fewer time slices than inlines";
    EXPECT_EQ(pixels(bloc->currentFrame()), pixels(bloc->frame(g_samples - 1)));
    EXPECT_EQ(bloc->blocSpace().frameIndex(), g_samples - 1);
}

TEST_F(BlocTest, FramesInMemoryCrossEachOtherAndLeaveTheFileAlone)
{
    const auto bloc = load();
    ASSERT_TRUE(bloc->setFrame(3, *image(bloc->shape(), 1.0f)));
    bloc->setScanOrientation(ScanOrientation::Crossline);
    ASSERT_TRUE(bloc->setFrame(4, *image(bloc->shape(), 2.0f)));
    bloc->setScanOrientation(ScanOrientation::Timeslice);
    const auto slice = pixels(bloc->frame(5));
    EXPECT_EQ(slice[3 * g_crosslines + 0], 1.0f);
    EXPECT_EQ(slice[0 * g_crosslines + 4], 2.0f);
    EXPECT_EQ(slice[3 * g_crosslines + 4], 2.0f) << "the crossline came later";
    EXPECT_EQ(slice[0], volumes::sampleAt(0, 0, 5));
    bloc->setScanOrientation(ScanOrientation::Inline);
    EXPECT_EQ(pixels(bloc->frame(3))[4], 2.0f) << "and the inline knows of it";
    volumes::expectSamples(*volumes::open(path()));
    // What is written is so in the file and in the frames that it crosses.
    ASSERT_TRUE(bloc->writeFrame(3, *image(bloc->shape(), 7.0f)));
    EXPECT_EQ(pixels(bloc->frame(3)), std::vector<float>(g_crosslines * g_samples, 7.0f));
    bloc->setScanOrientation(ScanOrientation::Crossline);
    EXPECT_EQ(pixels(bloc->frame(4))[3], 7.0f);
    EXPECT_EQ(pixels(bloc->frame(4))[2], 2.0f) << "in memory still";
    ASSERT_TRUE(bloc->settle());
    EXPECT_EQ(*volumes::open(path())->sample(3, 4, 5), 7.0f);
    EXPECT_EQ(*volumes::open(path())->sample(2, 4, 5), volumes::sampleAt(2, 4, 5));
    EXPECT_FALSE(bloc->setFrame(3, *image({1, g_samples, g_inlines}, 0.0f))) << "width and height swapped";
    EXPECT_FALSE(bloc->setFrame(g_crosslines, *image(bloc->shape(), 0.0f)));
}

TEST_F(BlocTest, AFrameThatWasJustWrittenIsRightInEveryDirection)
{
    const auto bloc = load();
    ASSERT_TRUE(bloc->writeFrame(11, *image(bloc->shape(), -3.0f)));
    for (const ScanOrientation orientation : {ScanOrientation::Crossline, ScanOrientation::Timeslice}) {
        bloc->setScanOrientation(orientation);
        const auto frame = pixels(bloc->frame(0));
        EXPECT_EQ(frame[orientation == ScanOrientation::Crossline ? 11 : 11 * g_crosslines], -3.0f);
        EXPECT_EQ(frame[1], volumes::frame(bloc->header().space, orientation, 0)[1]);
    }
}

TEST_F(BlocTest, ManyFramesAreOneChangeOfTheObjectAndOneStepThatCanBeTakenBack)
{
    const auto object = project->store().open({ObjectKind::Volume, QStringLiteral("Cube")});
    ASSERT_TRUE(object);
    const auto before = (*object)->valueAs<VolumeFile>();
    ASSERT_TRUE(before);
    const auto bloc = load();
    {
        const ChangeScope run(&project->changes(), "Run filter.py");
        for (int i = 2; i < 6; ++i)
            ASSERT_TRUE(bloc->writeFrame(i, *image(bloc->shape(), float(i))));
        ASSERT_TRUE(bloc->writeFrame(2, *image(bloc->shape(), 100.0f))) << "once more";
    }
    EXPECT_TRUE(changes.empty()) << "nobody is told while it goes on";
    turn();
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].region, (CellRegion{2, 6, 0, g_crosslines, 0, g_samples}));
    EXPECT_TRUE(volumes::open(path())->order(ScanOrientation::Timeslice)) << "all orders are up to date by then";
    EXPECT_EQ(*(*(*object)->valueAs<VolumeFile>())->sample(2, 0, 0), 100.0f);
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(steps[0]->text(), QStringLiteral("Run filter.py"));
    ASSERT_TRUE(steps[0]->undo());
    volumes::expectSamples(*volumes::open(path()));
    turn();
    ASSERT_EQ(changes.size(), 2u);
    ASSERT_TRUE(steps[0]->redo());
    for (int i = 2; i < 6; ++i)
        EXPECT_EQ(*volumes::open(path())->sample(i, 9, 7), i == 2 ? 100.0f : float(i));
    ASSERT_TRUE(steps[0]->undo());
    volumes::expectSamples(*volumes::open(path()));
    EXPECT_EQ(QDir(project->path() + QStringLiteral("/.trash")).entryList(QDir::Files | QDir::Hidden).size(), 0);
}

TEST_F(BlocTest, EachWriteOutsideOfAScopeIsAStepOfItsOwn)
{
    const auto bloc = load();
    ASSERT_TRUE(bloc->writeFrame(0, *image(bloc->shape(), 1.0f)));
    ASSERT_TRUE(bloc->writeFrame(0, *image(bloc->shape(), 2.0f)));
    turn();
    ASSERT_EQ(steps.size(), 2u);
    ASSERT_TRUE(steps[1]->undo());
    EXPECT_EQ(*volumes::open(path())->sample(0, 5, 5), 1.0f);
    ASSERT_TRUE(steps[0]->undo());
    volumes::expectSamples(*volumes::open(path()));
}

TEST_F(BlocTest, WhatIsTooLargeToBeKeptIsMarkedInTheList)
{
    project->changes().setMostBytes(3 * g_crosslines * g_samples * 4);
    const auto bloc = load();
    {
        const ChangeScope run(&project->changes(), "Run");
        for (int i = 0; i < 5; ++i)
            ASSERT_TRUE(bloc->writeFrame(i, *image(bloc->shape(), 0.0f)));
    }
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_FALSE(steps[0]->canUndo());
}

TEST_F(BlocTest, ANewVolumeBecomesAnObjectOfTheProject)
{
    const auto bloc = HVBloc::create(VolumeContent::Property, project.get());
    EXPECT_FALSE(bloc->createFile(nullptr)) << "it has no name";
    bloc->setName(QStringLiteral("New"));
    EXPECT_EQ(bloc->filename(), path(QStringLiteral("New")));
    ASSERT_TRUE(bloc->setBlocSpace(georef::BlocSpace(4, 5, 6)));
    EXPECT_FALSE(bloc->setBlocSpace(georef::BlocSpace(0, 5, 6)));
    EXPECT_EQ(pixels(bloc->frame(0)), std::vector<float>(4 * 6, -9999.0f));
    ASSERT_TRUE(bloc->setFrame(1, *image(bloc->shape(), 3.0f)));
    bloc->setTransposed(true);
    EXPECT_EQ(bloc->transposedCount(), 0);
    ASSERT_TRUE(bloc->createFile(nullptr));
    EXPECT_EQ(bloc->transposedCount(), 2);
    EXPECT_TRUE(project->store().contains({ObjectKind::Volume, QStringLiteral("New")}));
    EXPECT_EQ(pixels(bloc->frame(1)), std::vector<float>(4 * 6, 3.0f));
    const auto again = HVBloc::load(bloc->filename(), project.get());
    ASSERT_TRUE(again);
    EXPECT_TRUE((*again)->inherits("HVPropertyBloc"));
    EXPECT_FALSE((*again)->inherits("HVSeismicBloc"));
    EXPECT_EQ(pixels((*again)->frame(1)), std::vector<float>(4 * 6, 3.0f));
    EXPECT_EQ(bloc->createFile(nullptr).failure().systemError, EEXIST);
    EXPECT_FALSE(bloc->setBlocSpace(georef::BlocSpace(9, 9, 9))) << "it has a file now";
    // A copy under another name, with what is in memory.
    ASSERT_TRUE(bloc->setFrame(0, *image(bloc->shape(), 8.0f)));
    bloc->setName(QStringLiteral("Second.Copy"));
    bloc->setTransposed(false);
    ASSERT_TRUE(bloc->createFile(nullptr));
    EXPECT_EQ(bloc->transposedCount(), 0);
    EXPECT_EQ(*volumes::open(path(QStringLiteral("Second.Copy")))->sample(0, 0, 0), 8.0f);
    EXPECT_EQ(*volumes::open(path(QStringLiteral("New")))->sample(0, 0, 0), -9999.0f);
    ASSERT_EQ(steps.size(), 2u);
    ASSERT_TRUE(steps[1]->undo());
    EXPECT_FALSE(project->store().contains({ObjectKind::Volume, QStringLiteral("Second.Copy")}));
}

TEST_F(BlocTest, FailedWritesCarryTheSystemsErrorAndChangeNothing)
{
    const auto bloc = load();
    bloc->setName(QStringLiteral("None"));
    const auto missing = bloc->writeFrame(0, *image(bloc->shape(), 1.0f));
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.failure().systemError, ENOENT);
    EXPECT_TRUE(missing.failure().sentence.contains(QStringLiteral("None.svol")));
    volumes::make(path(QStringLiteral("None")), volumes::header(3, 3, 3));
    EXPECT_FALSE(bloc->writeFrame(0, *image(bloc->shape(), 1.0f))) << "a volume of another size";
    volumes::expectSamples(*volumes::open(path(QStringLiteral("None"))));
    EXPECT_FALSE(bloc->writeFrame(g_inlines, *image(bloc->shape(), 1.0f)));
    EXPECT_TRUE(steps.empty());
}

TEST_F(BlocTest, VolumesAreRenamedDuplicatedAndDeleted)
{
    ObjectStore& store = project->store();
    const ObjectKey cube{ObjectKind::Volume, QStringLiteral("Cube")};
    const ObjectKey copy{ObjectKind::Volume, QStringLiteral("Copy")};
    ASSERT_TRUE(store.duplicate(cube, QStringLiteral("Copy")));
    EXPECT_FALSE(store.duplicate(cube, QStringLiteral("Copy"))) << "it is there";
    volumes::expectSamples(*volumes::open(path(QStringLiteral("Copy"))));
    const auto held = store.open(copy);
    const auto value = (*held)->valueAs<VolumeFile>();
    ASSERT_TRUE(value);
    EXPECT_EQ((*value)->path(), path(QStringLiteral("Copy")));
    ASSERT_TRUE(store.rename(copy, QStringLiteral("Renamed")));
    EXPECT_EQ((*held)->key().name, QStringLiteral("Renamed"));
    ASSERT_TRUE(store.remove((*held)->key()));
    volumes::expectSamples(**value);
    ASSERT_EQ(steps.size(), 3u);
    ASSERT_TRUE(steps[2]->undo() && steps[1]->undo() && steps[0]->undo());
    EXPECT_FALSE(store.contains(copy));
    ASSERT_TRUE(steps[0]->redo());
    volumes::expectSamples(*volumes::open(path(QStringLiteral("Copy"))));
    // What is saved is a copy of the value's file, and is read from the new one.
    ASSERT_TRUE(store.save(copy, *(*store.open(cube))->value()));
    const auto saved = store.open(copy);
    EXPECT_EQ((*(*saved)->valueAs<VolumeFile>())->path(), path(QStringLiteral("Copy")));
    EXPECT_FALSE(objectKind(ObjectKind::Volume).describe(*(*saved)->value()).empty());
}

TEST_F(BlocTest, RandomLinesAreFiles)
{
    HVRandomLine line(RandomLine{QStringLiteral("a"), RandomLine::Frame::Survey, {{0, 0}, {11, 9}}, {}});
    EXPECT_EQ(line.name(), QStringLiteral("a"));
    const QString file = folder.filePath(QStringLiteral("diagonal.randomline"));
    ASSERT_TRUE(line.save(file));
    const auto read = HVRandomLine::load(file);
    ASSERT_TRUE(read) << qPrintable(read.failure().sentence);
    EXPECT_EQ(read->name(), QStringLiteral("diagonal"));
    EXPECT_EQ(read->filename(), file);
    const auto section = read->section(*volumes::open(path()), Interpolation::Nearest);
    ASSERT_TRUE(section);
    EXPECT_EQ(section->image->width(), 12);
    EXPECT_EQ(section->image->value(11, 2), volumes::sampleAt(11, 9, 2));
    EXPECT_FALSE(HVRandomLine::load(folder.filePath(QStringLiteral("none.randomline"))));
    EXPECT_FALSE(HVRandomLine().save(file));
    EXPECT_TRUE(HVRandomLine::load(file)) << "it is as it was";
}

} // namespace

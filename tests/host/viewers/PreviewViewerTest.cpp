// The preview of a chosen input: what it shows of real objects, and what the mouse does in each mode.
#include "../data/TestFiles.h"
#include "host/data/HVProjectService.h"
#include "host/data/demo/DemoProject.h"
#include "host/display/ColorBar.h"
#include "host/formats/MapOutline.h"
#include "host/kinds/ObjectPicture.h"
#include "host/viewers/HVObjectInformation.h"
#include "host/viewers/HVPreviewViewer.h"
#include "host/volume/VolumeWriter.h"
#include "host/widgets/HVInputSelectionLineEdit.h"
#include "host/widgets/HVInputSelectionPreview.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <filesystem>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

TEST(MouseMode, eachModeHasItsAction)
{
    EXPECT_EQ(*hv::viewerAction(HVMouseMode::Selection), "TYPE_SELECT");
    EXPECT_EQ(*hv::viewerAction(HVMouseMode::SquareSelection), "SQUARE_SELECTION");
    EXPECT_EQ(*hv::viewerAction(HVMouseMode::CrossNavigation), "TYPE_GOTO");
    EXPECT_EQ(*hv::viewerAction(HVMouseMode::Translation), "TYPE_HAND");
    EXPECT_EQ(*hv::viewerAction(HVMouseMode::Zoom), "TYPE_ZOOM");
    for (const int number : {0, 6, -1})
        EXPECT_EQ(reason(hv::viewerAction(static_cast<HVMouseMode>(number))), "Unknown mouse mode requested");
}

TEST(MapOutline, readsTheGeometriesOfGeoJson)
{
    const auto outline = readMapOutline(
        R"({"type":"FeatureCollection","features":[
            {"type":"Feature","geometry":{"type":"Polygon","coordinates":[[[0,0],[10,0],[10,20],[0,0]]]}},
            {"type":"Feature","geometry":{"type":"MultiLineString","coordinates":[[[-5,1],[2,3]],[[4,4],[5,5]]]}},
            {"type":"Feature","geometry":{"type":"GeometryCollection",
             "geometries":[{"type":"Point","coordinates":[1,30,99]}]}},
            {"type":"Feature","geometry":null}]})");
    ASSERT_TRUE(outline) << outline.failure().sentence.toStdString();
    EXPECT_EQ(outline->bounds, QRectF(QPointF(-5, 0), QPointF(10, 30)));
    EXPECT_EQ(outline->areas.elementCount(), 4);
    EXPECT_EQ(outline->lines.elementCount(), 4);
    EXPECT_EQ(outline->points, QVector<QPointF>{QPointF(1, 30)});
    EXPECT_FALSE(readMapOutline("{\"type\":\"FeatureCollection\",\"features\":[]}"));
    EXPECT_FALSE(readMapOutline("[[["));
    EXPECT_FALSE(readMapOutline(R"({"coordinates":[["a","b"],[1]]})"));
}

class Preview : public ::testing::Test
{
protected:
    Preview()
    {
        EXPECT_TRUE(projects.create(folder.filePath("p"), QString()));
        EXPECT_EQ(reason(demo::makeObjects(*projects.project(), ObjectKind::ColorBar)), QString());
        EXPECT_EQ(reason(demo::makeObjects(*projects.project(), ObjectKind::Culture)), QString());
        preview.resize(400, 300);
        preview.show();
    }
    QString first(ObjectKind kind) { return projects.project()->objects(kind).value(0); }
    HVPreviewViewer& viewer() { return *preview.viewer(); }
    void drag(QPoint from, QPoint to)
    {
        QTest::mousePress(&viewer(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, viewer().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&viewer(), &move);
        QTest::mouseRelease(&viewer(), Qt::LeftButton, {}, to);
    }

    QTemporaryDir folder;
    HVProjectService projects;
    HVInputSelectionPreview preview;
};

TEST_F(Preview, showsWhatIsChosen)
{
    QSignalSpy changed(&preview, &HVInputSelectionPreview::viewerChanged);
    preview.selection()->setObject(first(ObjectKind::ColorBar));
    ASSERT_TRUE(viewer().picture());
    EXPECT_FALSE(viewer().picture()->isText());
    QSet<QRgb> colors;
    const QImage image = viewer().grab().toImage();
    for (int x = 0; x < image.width(); ++x)
        colors.insert(image.pixel(x, image.height() / 2));
    EXPECT_GT(colors.size(), 100) << "the bar's colours";
    preview.selection()->setObject(first(ObjectKind::Culture));
    EXPECT_FALSE(viewer().picture()->isText());
    EXPECT_TRUE(viewer().picture()->positionText({0, 0}).startsWith("X "));

    // What cannot be read is said, not hidden.
    const QString broken = *projects.project()->newFilename(ObjectKind::ColorBar, "Broken");
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("{ no") > 0);
    file.close();
    preview.selection()->setObject(broken);
    EXPECT_TRUE(viewer().picture()->isText());
    viewer().grab();
    preview.selection()->clear();
    EXPECT_FALSE(viewer().picture());
    EXPECT_EQ(changed.size(), 4);
}

TEST_F(Preview, aVolumeTooLargeToBeReadIsStillShownAsASection)
{
    hv::VolumeHeader header;
    header.space = georef::BlocSpace(1000, 5, 1000);
    ASSERT_TRUE(projects.project()->store().ensureFolder(ObjectKind::Volume));
    const hv::ObjectKey key{ObjectKind::Volume, "Large"};
    auto writer = hv::VolumeWriter::create(projects.project()->store().path(key), header, {false, false});
    ASSERT_TRUE(writer);
    std::vector<float> frame(1'000'000);
    for (std::size_t i = 0; i < frame.size(); ++i)
        frame[i] = static_cast<float>(i % 1000) - 500.0F;
    for (int line = 0; line < 5; ++line)
        ASSERT_TRUE((*writer)->writeInline(line, frame.data()));
    ASSERT_TRUE((*writer)->finish(nullptr));
    ASSERT_TRUE(projects.project()->store().adopt(key));
    preview.selection()->setObject(projects.project()->store().path(key));
    ASSERT_TRUE(viewer().picture());
    EXPECT_FALSE(viewer().picture()->isText());

    HVObjectInformation information(*projects.project()->store().open(key));
    const auto text = [&information](const QString& label) {
        const auto found = information.rows()->findItems(label, Qt::MatchExactly);
        return found.isEmpty() ? QString() : information.rows()->item(found.first()->row(), 1)->text();
    };
    EXPECT_EQ(text("Range"), "-500 to 499");
    EXPECT_TRUE(text("Crosslines").startsWith("0 to 999, step 1")) << text("Crosslines").toStdString();
    EXPECT_FALSE(information.viewer()->picture()->isText());
    information.show();
    ASSERT_TRUE(projects.project()->store().rename(key, "Larger"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return information.windowTitle() == "Larger - Information"; }));
    EXPECT_TRUE(text("File").endsWith("Larger.svol"));
    ASSERT_TRUE(projects.project()->store().remove({ObjectKind::Volume, "Larger"}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !information.isVisible(); }));
}

TEST_F(Preview, followsTheFileOnTheDisk)
{
    const QString path = *projects.project()->newFilename(ObjectKind::Culture, "Lease");
    const auto write = [](const QString& to, double right) {
        const QByteArray text = R"({"type":"LineString","coordinates":[[0,0],[)" + QByteArray::number(right) + ",50]]}";
        QFile file(to);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    };
    // 5 % of the larger side are around the line.
    const auto shows = [this](double right, int milliseconds = 5000) {
        const double width = right + 0.1 * std::max(right, 50.0);
        return QTest::qWaitFor([&] { return std::abs(viewer().picture()->page().width() - width) < 1e-6; },
                               milliseconds);
    };
    write(path, 100);
    preview.selection()->setObject(path);
    ASSERT_TRUE(shows(100));
    QSignalSpy another(&preview, &HVInputSelectionPreview::viewerChanged);

    EXPECT_TRUE(preview.setPreviewMouseMode(HVMouseMode::SquareSelection));
    drag({40, 60}, {80, 50});
    QSignalSpy selected(&viewer(), &HVPreviewViewer::selectionChanged);
    write(path, 2000);
    EXPECT_TRUE(shows(2000)) << "written in place";
    EXPECT_EQ(selected.size(), 1) << "the rectangle was on another page";
    EXPECT_TRUE(viewer().selection().isEmpty());

    // Replaced twice, and written in place in between; the first file lives on under another name.
    std::filesystem::create_hard_link(path.toStdString(), folder.filePath("old").toStdString());
    for (const double right : {300.0, 40000.0}) {
        write(folder.filePath("new"), right);
        std::filesystem::rename(folder.filePath("new").toStdString(), path.toStdString());
        EXPECT_TRUE(shows(right)) << "replaced";
        write(path, right * 10);
        EXPECT_TRUE(shows(right * 10)) << "written after it was replaced";
    }
    viewer().zoom(3, {10, 10});
    const QTransform zoomed = viewer().pageToViewer();
    const ObjectPicture* before = viewer().picture();
    write(path, 400000.0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return viewer().picture() != before; }));
    EXPECT_EQ(viewer().pageToViewer(), zoomed);

    preview.hide();
    write(path, 70);
    EXPECT_FALSE(shows(70, 500)) << "a hidden viewer reads nothing";
    preview.show();
    EXPECT_TRUE(shows(70));
    EXPECT_EQ(another.size(), 0) << "it is the same object";
}

TEST_F(Preview, aColourBarChangedThroughTheStoreIsRedrawnWithoutTheDisk)
{
    HVInputSelectionPreview other;
    other.resize(400, 300);
    other.show();
    const QString path = first(ObjectKind::ColorBar);
    preview.selection()->setObject(path);
    other.selection()->setObject(path);
    hv::ObjectStore& store = projects.project()->store();
    store.tellChanges();
    const auto color = [](HVPreviewViewer& viewer) {
        const QPointF middle = viewer.pageToViewer().map(QPointF(128, 20));
        return QColor(viewer.grab().toImage().pixel(middle.toPoint())).name();
    };
    EXPECT_NE(color(viewer()), "#ff0000");

    display::ColorBar red;
    red.setBands({qRgb(255, 0, 0)});
    ASSERT_TRUE(store.save(*projects.project()->keyOf(path), hv::ObjectValue::of(red)));
    // From here on nobody opens the file or reads the folder.
    const int log = inotify_init1(IN_NONBLOCK);
    inotify_add_watch(log, QFile::encodeName(path).constData(), IN_OPEN | IN_ACCESS);
    inotify_add_watch(log, QFile::encodeName(QFileInfo(path).path()).constData(), IN_OPEN | IN_ACCESS);
    const int readings = store.readings();
    const ObjectPicture* before = viewer().picture();
    EXPECT_TRUE(QTest::qWaitFor([&] { return viewer().picture() != before; }));
    EXPECT_EQ(color(viewer()), "#ff0000");
    EXPECT_EQ(color(*other.viewer()), "#ff0000");
    char events[4096];
    EXPECT_LT(read(log, events, sizeof events), 0) << "a file was read";
    EXPECT_EQ(store.readings(), readings);
    ::close(log);
}

TEST_F(Preview, mouseDoesWhatTheModeSays)
{
    preview.selection()->setObject(first(ObjectKind::Culture));
    const QTransform fitted = viewer().pageToViewer();
    const QPoint middle = viewer().rect().center();

    EXPECT_EQ(reason(preview.setPreviewMouseMode(HVMouseMode::Unknown)), "Unknown mouse mode requested");
    EXPECT_EQ(preview.previewMouseMode(), HVMouseMode::Selection);
    drag(middle, middle + QPoint(30, 10));
    EXPECT_EQ(viewer().pageToViewer(), fitted);

    EXPECT_TRUE(preview.setPreviewMouseMode(HVMouseMode::Translation));
    drag(middle, middle + QPoint(30, 10));
    EXPECT_EQ(viewer().pageToViewer().map(QPointF()), fitted.map(QPointF()) + QPointF(30, 10));
    QTest::mouseDClick(&viewer(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(viewer().pageToViewer(), fitted);

    EXPECT_TRUE(preview.setPreviewMouseMode(HVMouseMode::SquareSelection));
    QSignalSpy selected(&viewer(), &HVPreviewViewer::selectionChanged);
    drag({40, 60}, {80, 50});
    ASSERT_EQ(selected.size(), 1);
    const QRectF square = fitted.mapRect(viewer().selection());
    EXPECT_NEAR(square.left(), 40, 1e-6);
    EXPECT_NEAR(square.bottom(), 60, 1e-6);
    EXPECT_EQ(viewer().pageToViewer(), fitted);
    QTest::keyClick(&viewer(), Qt::Key_Escape);
    EXPECT_TRUE(viewer().selection().isEmpty());

    EXPECT_TRUE(preview.setPreviewMouseMode(HVMouseMode::Zoom));
    const QPointF target = fitted.inverted().map(QPointF(60, 70));
    drag({50, 60}, {70, 80});
    EXPECT_GT(viewer().scale(), fitted.m11() * 5);
    EXPECT_LT((viewer().pageToViewer().map(target) - viewer().rect().center()).manhattanLength(), 2);

    EXPECT_TRUE(preview.setPreviewMouseMode(HVMouseMode::CrossNavigation));
    QTest::mouseClick(&viewer(), Qt::LeftButton, {}, {33, 44});
    ASSERT_TRUE(viewer().cross());
    EXPECT_LT((viewer().pageToViewer().map(*viewer().cross()) - QPointF(33, 44)).manhattanLength(), 1e-6);

    const QPointF kept = viewer().pageToViewer().inverted().map(QPointF(100, 90));
    const double before = viewer().scale();
    QWheelEvent wheel(QPointF(100, 90), viewer().mapToGlobal(QPoint(100, 90)), {}, QPoint(0, -120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&viewer(), &wheel);
    EXPECT_LT(viewer().scale(), before);
    EXPECT_LT((viewer().pageToViewer().map(kept) - QPointF(100, 90)).manhattanLength(), 1e-6);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

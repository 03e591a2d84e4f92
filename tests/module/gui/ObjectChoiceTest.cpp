// The widgets that choose an object of the project, while projects come and go.
#include "host/data/HVProjectService.h"
#include "tests/module/gui/ToolkitFixture.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

using fixture::ToolkitTest;

constexpr const char* g_setUp = R"(
choosers = {sp.ObjectComboBox: "objectChanged", sp.InputSelectionLineEdit: "selectionChanged"}
def refused(exception, message, work, *arguments):
    try:
        work(*arguments)
    except exception as error:
        assert str(error) == message, error
    else:
        raise AssertionError(message)
)";

TEST_F(ToolkitTest, withoutAProjectThereIsNothingToChoose)
{
    check(g_setUp);
    check(R"(
for cls in (*choosers, sp.InputSelectionPreview):
    widget = cls(sp.ObjectId.Well)
    assert widget.objectFilename is None and widget.objectId is None
    widget.objectFilename = None
    refused(RuntimeError, cls.__name__ + ", no project loaded", setattr, widget, "objectFilename", "/a/w.well")
box = sp.ObjectComboBox()
assert box.count == 0 and box.currentData is None
refused(RuntimeError, "ObjectComboBox, no project loaded", box.updateObjects)
)");
}

TEST_F(ToolkitTest, choicesFollowTheProjectAndTellNoneWhenItGoes)
{
    const QTemporaryDir folder;
    HVProjectService projects;
    check(g_setUp);
    check(R"(
told = {}
widgets = [cls(sp.ObjectId.Well) for cls in choosers]
for widget in widgets:
    told[type(widget)] = []
    getattr(widget, choosers[type(widget)])(told[type(widget)].append)
)");
    const auto make = [&](const char* name) {
        projects.create(folder.filePath(name), QString());
        const QString file = projects.project()->newFilename(ObjectKind::Well, QStringLiteral("W\u00f8ll"));
        EXPECT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    };
    make("first");
    check(R"(
widgets[0].updateObjects()
chosen = widgets[0].objectFilename
assert chosen.endswith("/W\u00f8ll.las"), chosen
widgets[1].objectFilename = chosen
)");
    projects.project()->renameObject(ObjectKind::Well, QStringLiteral("W\u00f8ll"), QStringLiteral("New"));
    check("widgets[0].updateObjects()");
    projects.close();
    check(R"(
renamed = chosen.replace("W\u00f8ll", "New")
for widget in widgets:
    assert told[type(widget)] == [chosen, renamed, None], (widget, told)
    assert widget.objectFilename is None and widget.objectId is None
)");
}

TEST_F(ToolkitTest, whatIsToldMayLetTheWindowGo)
{
    const QTemporaryDir folder;
    HVProjectService projects;
    projects.create(folder.filePath("p"), QString());
    const QString file = projects.project()->newFilename(ObjectKind::Well, QStringLiteral("W"));
    ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    check(g_setUp);
    {
        const python::GilLock lock;
        boost::python::import("__main__").attr("well") = boost::python::str(file.toStdString());
    }
    check(R"(
windows = {}
def build(cls):
    windows[cls] = sp.Widget()
    widget = cls(sp.ObjectId.Well, windows[cls], objectFilename=well)
    getattr(widget, choosers[cls])(lambda path: windows.pop(cls))
    return weakref.ref(widget)
gone = [build(cls) for cls in choosers]
)");
    projects.close();
    check("flush(); gc.collect()\nassert not windows and not any(reference() for reference in gone), gone");
}

} // namespace

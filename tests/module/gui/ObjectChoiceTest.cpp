// The widgets that choose an object of the project, while projects come and go.
#include "host/data/HVProjectService.h"
#include "host/widgets/HVObjectComboBox.h"
#include "tests/module/gui/ToolkitFixture.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/inotify.h>
#include <unistd.h>

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

/// How often a folder is opened while something is done.
template <typename Work>
int openings(const QString& folder, Work&& work)
{
    const int events = inotify_init1(IN_NONBLOCK);
    EXPECT_GE(inotify_add_watch(events, folder.toUtf8().constData(), IN_OPEN | IN_ONLYDIR), 0);
    work();
    alignas(inotify_event) char buffer[1 << 16];
    const ssize_t size = read(events, buffer, sizeof buffer);
    close(events);
    int count = 0;
    for (ssize_t at = 0; at < size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
        count += event->len == 0; // the folder itself, no file in it
        at += static_cast<ssize_t>(sizeof *event) + event->len;
    }
    return count;
}

TEST_F(ToolkitTest, aBoxListsTheProjectOnceWhenItIsMade)
{
    const QTemporaryDir folder;
    HVProjectService projects;
    EXPECT_TRUE(projects.create(folder.filePath("p"), QString()));
    EXPECT_TRUE(QFile(*projects.project()->newFilename(ObjectKind::Well, "W")).open(QIODevice::WriteOnly));
    const QString wells = projects.project()->folder(ObjectKind::Well);
    HVObjectComboBox box(ObjectKind::Well);
    const int once = openings(wells, [&] { box.updateObjects(); });
    ASSERT_EQ(once, 0) << "the project knows its objects";
    EXPECT_EQ(openings(wells, [] { HVObjectComboBox another(ObjectKind::Well); }), once);
    for (const char* code : {"box = sp.ObjectComboBox(sp.ObjectId.Well)", "box = sp.ObjectComboBox()",
                             "box = sp.ObjectComboBox(currentIndex=0, kinds=iter([sp.ObjectId.Well]))"}) {
        EXPECT_EQ(openings(wells, [&] { check(code); }), once) << code;
        check("assert box.objectFilename.endswith('/W.las') and sp.ObjectId.Well in box.kinds");
    }
    EXPECT_EQ(openings(wells, [&] { check("box = sp.ObjectComboBox(sp.ObjectId.Fault3d)"); }), 0);
    check(R"(
class Kinds:
    def __iter__(self):
        self.inner = sp.ObjectComboBox(sp.ObjectId.Well, optional=True)
        return iter((sp.ObjectId.Fault3d,))
kinds = Kinds()
assert sp.ObjectComboBox(kinds).kinds == [sp.ObjectId.Fault3d] and kinds.inner.kinds == [sp.ObjectId.Well]
for wrong in (dict(kinds=5), dict(kinds=[]), dict(kind=None)):
    try:
        sp.ObjectComboBox(**wrong)
    except (TypeError, ValueError):
        continue
    raise AssertionError(wrong)
try:
    sp.ObjectComboBox(None, kinds=None)
except TypeError as error:
    assert str(error) == "ObjectComboBox() got multiple values for argument 'kinds'", error
else:
    raise AssertionError("kinds twice")
)");
}

TEST_F(ToolkitTest, choicesFollowTheProjectAndTellNoneWhenItGoes)
{
    python::setTextsWhole(true);
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
        EXPECT_TRUE(projects.create(folder.filePath(name), QString()));
        const QString file = *projects.project()->newFilename(ObjectKind::Well, QStringLiteral("W\u00f8ll"));
        EXPECT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    };
    make("first");
    check(R"(
widgets[0].updateObjects()
chosen = widgets[0].objectFilename
assert chosen.endswith("/W\u00f8ll.las"), chosen
widgets[1].objectFilename = chosen
)");
    EXPECT_TRUE(projects.project()->renameObject(ObjectKind::Well, QStringLiteral("W\u00f8ll"), QStringLiteral("New")));
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
    EXPECT_TRUE(projects.create(folder.filePath("p"), QString()));
    const QString file = *projects.project()->newFilename(ObjectKind::Well, QStringLiteral("W"));
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

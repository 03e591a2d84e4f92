// `Project` and `ObjectId` as scripts meet them, over a real folder.
#include "host/display/ColorBar.h"
#include "host/widgets/HVUndoStack.h"
#include "module/data/ProjectHandle.h"
#include "runtime/GilLock.h"
#include "tests/runtime/RuntimeFixture.h"

#include <boost/python.hpp>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace bp = boost::python;

namespace {

class ProjectBinding : public fixture::RuntimeTest
{
protected:
    void SetUp() override
    {
        python::setTextsWhole(true);
        project = *HVProject::create(temporary.filePath(QStringLiteral("Pr\u00f6ject")), QString());
        {
            const python::GilLock lock;
            bp::import("strativo_python");
            bp::import("__main__").attr("project") = python::projectObject(project.get());
        }
        script(R"py(
import os, strativo_python
from strativo_python import ObjectId, Project, Crs
def expect(got, wanted):
    if got != wanted:
        raise ValueError("got %r, wanted %r" % (got, wanted))
def failure(function, *arguments):
    try:
        function(*arguments)
    except Exception as error:
        return type(error).__name__ + ": " + str(error)
    return "done"
def make(kind, *names):
    paths = [project.getFilename(kind, name) for name in names]
    for path in paths:
        os.makedirs(os.path.dirname(path), exist_ok=True)
        open(path, "w").close()
    return paths
H = ObjectId.Horizon3d
)py");
    }
    void script(const char* code) { EXPECT_TRUE(run(code)) << recorder.textOf(6); }

    QTemporaryDir temporary;
    std::unique_ptr<HVProject> project;
};

TEST_F(ProjectBinding, KindsHaveTheirNumbersInOrder)
{
    script(R"py(
expect(sorted((int(v), n) for n, v in ObjectId.names.items()), [
    (1, "Volume"), (6, "Layer"), (7, "RandomLine"), (18, "ColorBar"), (27, "Geobody"), (28, "Fault3d"),
    (29, "Horizon3d"), (32, "Survey"), (33, "Well"), (35, "ExtractionArea"), (36, "Model"), (45, "Culture"),
    (49, "Wavelet"), (50, "MultiZ"), (86, "CRS"), (88, "Horizon2d"), (89, "Fault2d"), (91, "RandomLineSet"),
    (94, "Polyline3d")])
expect(list(ObjectId.names)[:6], ["Volume", "Survey", "Model", "ExtractionArea", "Horizon3d", "Fault3d"])
expect(failure(Project)[:13], "RuntimeError:")
)py");
}

TEST_F(ProjectBinding, ObjectsAndFileNames)
{
    script(R"py(
expect((project.objects(), project.objects(H), project.hasCrs(), project.crs), ([], [], False, None))
expect(os.path.basename(project.path), "Pr\u00f6ject")
made = make(H, "\u00c9tage", ".dot", "a 'q' \"q\"", "H 10", "H 9")
expect([os.path.basename(p) for p in project.objects(H)],
       [".dot.horizon", "a 'q' \"q\".horizon", "H 9.horizon", "H 10.horizon", "\u00c9tage.horizon"])
expect(sorted(project.objects()), sorted(made))
new = project.getNewFilename(H, "H 9")
expect((os.path.basename(new), os.path.exists(new)), ("H 9 2.horizon", False))
expect(os.path.basename(project.getNewFilename(ObjectId.Well)), "Well.las")
expect(os.path.isdir(os.path.join(project.path, "wells")), True)
expect(failure(project.getFilename, H, "a/b"), "ValueError: Project, 'a/b' cannot be the name of an object")
expect(failure(project.objects, 29), "TypeError: Project, expected 'ObjectId' but got 'int'")
for number in (2, 97, -1):
    expect(failure(ObjectId, number), f"ValueError: ObjectId, {number} is no kind of object")
expect(ObjectId("29") is H, True)
expect(failure(project.getFilename, H, 5), "TypeError: Project, expected 'str' but got 'int'")
expect(failure(project.getFilename, H, "\ud800")[:18], "UnicodeEncodeError")
expect(type(project.icon(ObjectId.Well)).__name__, "Icon")
)py");
    const auto utm = *georef::Crs::fromAuthority(QStringLiteral("EPSG"), QStringLiteral("32631"));
    {
        const python::GilLock lock;
        bp::import("__main__").attr("utm") = bp::object(utm);
    }
    script(R"py(
project.crs = utm
expect((project.hasCrs(), project.crs.authorityCode), (True, "32631"))
expect(failure(setattr, project, "crs", "x"), "TypeError: Project.crs, expected 'Crs' or 'NoneType' but got 'str'")
project.crs = None
expect(project.hasCrs(), False)
)py");
}

TEST_F(ProjectBinding, VirtualDirectories)
{
    script(R"py(
a, b = make(H, "a", "b")
project.addVirtualDirectory(H, "North", "")
project.addVirtualDirectory(H, "Deep \u00e9", "North")
project.addVirtualDirectory(ObjectId.Well, "North", None)
expect(project.getVirtualDirectories(), ["North", "Deep \u00e9"])
expect(failure(project.addVirtualDirectory, H, "North", ""), "RuntimeError: Project, unable to create folder 'North'")
expect(failure(project.addVirtualDirectory, H, "x", "none"), "RuntimeError: Project, unable to create folder 'x'")
expect(failure(project.addVirtualDirectory, H, "x", 5), "TypeError: Project, expected 'str' but got 'int'")
expect(failure(project.removeVirtualDirectory, H, "\u00fc"), "RuntimeError: Project, unable to remove directory '\u00fc'")
project.setObjectsInVirtualDirectory([a, "/elsewhere/b.other", "c.horizon"], H, "North")
c = project.getFilename(H, "c")
expect(project.getObjectsInVirtualDirectory(H, "North"), [a, b, c])
project.setObjectInVirtualDirectory(b, H, "Deep \u00e9")
expect((project.getObjectsInVirtualDirectory(H, "North"), project.getObjectsInVirtualDirectory(H, "Deep \u00e9")), ([a, c], [b]))
expect(project.getObjectsInVirtualDirectory(ObjectId.Well, "North"), [])

expect(failure(project.setObjectsInVirtualDirectory, [], H, "North"), "RuntimeError: Project, empty list supplied")
expect(failure(project.setObjectsInVirtualDirectory, 5, H, "North"), "TypeError: object of type 'int' has no len()")
expect(failure(project.setObjectsInVirtualDirectory, [a, b, 3], H, "North"), "TypeError: expected 'str' but got 'int' at index 2")
expect(failure(project.removeObjectsFromVirtualDirectory, [a, b, 3], H),
       "TypeError: Project, expected 'str' but got 'int' at index 2")
expect(failure(project.setObjectInVirtualDirectory, None, H, "North"), "TypeError: expected 'str' but got 'NoneType' at index 0")
expect(failure(project.setObjectInVirtualDirectory, a, H, "none"), "RuntimeError: Project, unable to add files to folder 'none'")
missing = a.replace("a.horizon", "gone.horizon")
expect(failure(project.removeObjectFromVirtualDirectory, missing, H), "RuntimeError: Project, object '%s' does not exist" % missing)
expect(failure(project.removeObjectsFromVirtualDirectory, [a, missing], H), "RuntimeError: Project, object '%s' does not exist" % missing)
expect(project.getObjectsInVirtualDirectory(H, "North"), [a, c])
project.removeObjectFromVirtualDirectory(a, H)
expect(project.getObjectsInVirtualDirectory(H, "North"), [c])
project.removeVirtualDirectory(H, "North")
expect(project.getVirtualDirectories(), ["Deep \u00e9", "North"])

try:
    project.addVirtualDirectory(H, "a/b", "")
except RuntimeError as error:
    expect(str(error.__cause__), "'a/b' cannot be the name of a folder.")
)py");
}

TEST_F(ProjectBinding, AHandleOutlivesTheProjectAndSaysSo)
{
    QDir(project->path()).removeRecursively();
    script(R"py(
expect(project.objects(), [])
expect(failure(setattr, project, "crs", None), "RuntimeError: Project.crs, Unable to write '%s/project.strativo': "
       "No such file or directory." % project.path)
import threading
results = []
thread = threading.Thread(target=lambda: results.append(failure(project.objects)))
thread.start(); thread.join()
expect(results, ["RuntimeError: Project, can only be used on the main thread"])
)py");
    project.reset();
    script(R"py(
for use in (lambda: project.path, lambda: project.crs, project.hasCrs, project.objects, lambda: project.objects(H),
            project.getVirtualDirectories, lambda: project.icon(H), lambda: project.getNewFilename(H, "x"),
            lambda: project.addVirtualDirectory(H, "x", ""), lambda: project.setObjectInVirtualDirectory("x", H, "y")):
    expect(failure(use), "RuntimeError: Project, the project has been closed")
)py");
}

/// The open project of the application, with the undo of its window.
class ProjectUndo : public ProjectBinding
{
protected:
    void SetUp() override
    {
        ProjectBinding::SetUp();
        app().project = project.get();
        app().changes = &project->changes();
        undo.setProject(project.get());
        script("from strativo_python import ColorBar\n"
               "def bar(name):\n    return project.getNewFilename(ObjectId.ColorBar, name)\n"
               "def names():\n"
               "    return [os.path.basename(path)[:-5] for path in project.objects(ObjectId.ColorBar)]\n"
               "def save(*names):\n    for name in names:\n"
               "        one = ColorBar()\n        one.name = name\n        one.save(bar(name))\n");
    }
    ~ProjectUndo() override
    {
        app().project = nullptr;
        app().changes = nullptr;
    }
    QStringList names() { return project->objectNames(ObjectKind::ColorBar); }

    HVUndoStack undo;
};

TEST_F(ProjectUndo, aScriptThatChangesTenObjectsIsTakenBackByOneUndo)
{
    EXPECT_TRUE(context().executePythonCode(
        "save(*'abcdefgh')\n"
        "expect(names(), list('abcdefgh'))\n"
        "project.addVirtualDirectory(ObjectId.ColorBar, 'North')\n"
        "project.setObjectInVirtualDirectory(project.objects()[0], ObjectId.ColorBar, 'North')\n",
        nullptr, "/tmp/ten.py"))
        << recorder.textOf(6);
    EXPECT_EQ(undo.texts(), QStringList{"ten.py"});
    EXPECT_EQ(names().size(), 8);
    undo.undo();
    EXPECT_TRUE(names().isEmpty());
    EXPECT_TRUE(project->directoryNames().isEmpty());
    undo.redo();
    EXPECT_EQ(names().size(), 8);
    EXPECT_EQ(project->directoryNames(), QStringList{"North"});

    // One that fails in the middle leaves what it did as a step.
    EXPECT_FALSE(context().executePythonCode("save('x', 'y')\nraise ValueError\n", nullptr, "half.py"));
    EXPECT_EQ(undo.texts().last(), "half.py");
    undo.undo();
    EXPECT_EQ(names().size(), 8);
}

TEST_F(ProjectUndo, aChangeBlockIsAStepOfItsOwn)
{
    script(R"py(
save("a")
with project.change("Two bars"):
    save("b")
    with project.change("inner"):
        save("c")
try:
    with project.change("Broken"):
        save("d")
        raise KeyError("out")
except KeyError as error:
    expect(error.args, ("out",))
save("e")
expect(failure(project.change, 3), "TypeError: Project.change(), expected 'str' but got 'int'")
expect(failure(project.change, " "), "ValueError: Project.change(), the name must not be empty")
block = project.change("once")
with block:
    expect(failure(block.__enter__), "RuntimeError: Project.change(), the block has begun already")
)py");
    const QStringList texts = undo.texts();
    ASSERT_EQ(texts.size(), 4);
    EXPECT_EQ(texts.mid(1, 2).join('|'), "Two bars|Broken");
    undo.goTo(1);
    EXPECT_EQ(names(), QStringList{"a"});
    undo.goTo(4);
    EXPECT_EQ(names().join(""), "abcde");
}

TEST_F(ProjectUndo, scriptsHearOfChangesOnceTheyHaveReturned)
{
    script(R"py(
save("a", "b")
heard = []
stop = project.onChanged(project.getFilename(ObjectId.ColorBar, "a"), heard.append)
project.onChanged(project.getFilename(ObjectId.ColorBar, "b"), lambda filename: 1 / 0)
expect(failure(project.onChanged, "/tmp/none", print), "RuntimeError: Project, object '/tmp/none' does not exist")
expect(failure(project.onChanged, project.objects()[0], 5),
       "TypeError: Project.onChanged(), expected callable object, but got 'int' instead")
)py");
    project->store().tellChanges();
    script("heard.clear()\n");
    display::ColorBar red;
    EXPECT_TRUE(project->store().save({ObjectKind::ColorBar, "a"}, hv::ObjectValue::of(red)));
    EXPECT_TRUE(project->renameObject(ObjectKind::ColorBar, "a", "c"));
    script("expect(heard, [])\n");
    recorder.posts.clear();
    EXPECT_TRUE(project->store().save({ObjectKind::ColorBar, "b"}, hv::ObjectValue::of(red)));
    project->store().tellChanges();
    EXPECT_NE(recorder.textOf(6).find("ZeroDivisionError"), std::string::npos);
    script("expect([os.path.basename(path) for path in heard], ['c.json'])\nheard.clear()\nstop()\nstop()\n");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(project->store().remove({ObjectKind::ColorBar, "c"}));
    project->store().tellChanges();
    script("expect(heard, [])\n");
}

TEST_F(ProjectUndo, writingIntoAVolumeIsOneStepAndIsTold)
{
    script(R"py(
import numpy
from strativo_python import BlockSpace, SeismicVolume
cube = SeismicVolume()
cube.blockSpace = BlockSpace(5, 40, 6)
cube.createFile(project.getNewFilename(ObjectId.Volume, "Cube"))
cube[:] = 1
cube.flush()
heard = []
project.onChanged(cube.filename, heard.append)
)py");
    project->store().tellChanges();
    undo.setProject(nullptr);
    undo.setProject(project.get());
    script("heard.clear()\n");
    EXPECT_TRUE(context().executePythonCode("cube[3:30:2] = 5\n"
                                            "for piece in cube.pieces(inlines=7):\n"
                                            "    piece.array[:, 1] = 7\n"
                                            "    piece.write()\n"
                                            "after = cube[:]\n",
                                            nullptr, "/tmp/write.py"))
        << recorder.textOf(6);
    script("cube.flush()\n");
    project->store().tellChanges();
    script("expect(heard, [cube.filename])\nheard.clear()\n");
    EXPECT_EQ(undo.texts(), QStringList{"write.py"});
    undo.undo();
    script("expect(set(cube[:].ravel()), {1.0})\n");
    undo.redo();
    script("expect(bool((cube[:] == after).all()), True)\n");
    project->store().tellChanges();
    script("expect(heard, [cube.filename])\n");

    // More than is kept: said, written, and a step that nobody takes back.
    project->changes().setMostBytes(100);
    EXPECT_TRUE(context().executePythonCode("cube[:] = 9\n", nullptr, "large.py")) << recorder.textOf(6);
    EXPECT_NE(recorder.textOf(2).find("Cube"), std::string::npos);
    undo.undo();
    script("expect(set(cube[:].ravel()), {9.0})\n");
}

} // namespace

// Values of windows as the bindings of widgets use them: drags of the project browser, alignments, pairs of numbers.
#include "host/data/HVProject.h"
#include "host/services/HVProjectItemDrag.h"
#include "host/widgets/HVProjectModel.h"
#include "module/gui/FlagArgument.h"
#include "module/gui/MimeContent.h"
#include "runtime/Errors.h"
#include "runtime/GilLock.h"
#include "runtime/TextConversion.h"
#include "tests/runtime/RuntimeFixture.h"

#include <boost/python.hpp>

#include <QFile>
#include <QMimeData>
#include <QStandardItemModel>
#include <QTemporaryDir>

#include <functional>

namespace bp = boost::python;

namespace {

using GuiValues = fixture::RuntimeTest;

bp::object pythonValue(const char* expression)
{
    return bp::eval(expression, bp::import("strativo_python").attr("__dict__"));
}

TEST_F(GuiValues, DraggedObjectsOutliveTheDrag)
{
    python::setTextsWhole(true);
    const QTemporaryDir folder;
    const auto project = *HVProject::create(folder.filePath("p"), QString());
    ASSERT_TRUE(project);
    const auto make = [&](ObjectKind kind, const QString& name) {
        QFile file(*project->newFilename(kind, name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.fileName();
    };
    const QString horizon = make(ObjectKind::Horizon3d, QStringLiteral("H\u00f6he \u6f22"));
    const QString well = make(ObjectKind::Well, QStringLiteral("W"));
    make(ObjectKind::PythonScript, QStringLiteral("script"));
    HVProjectModel model;
    model.setProject(project.get());
    QModelIndexList all;
    const std::function<void(const QModelIndex&)> collect = [&](const QModelIndex& parent) {
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            if (index.data(hv::g_objectPathRole).isValid())
                all << index;
            collect(index);
        }
    };
    collect({});
    ASSERT_EQ(all.size(), 3);
    std::unique_ptr<QMimeData> drag(model.mimeData(all));

    const python::GilLock lock;
    bp::import("strativo_python");
    const bp::object data(python::MimeContent::of(*drag));
    drag.reset();
    EXPECT_TRUE(bp::extract<bool>(data.attr("hasObjects")));
    bp::dict expected;
    expected[python::unicodeText(horizon)] = pythonValue("ObjectId.Horizon3d");
    expected[python::unicodeText(well)] = pythonValue("ObjectId.Well");
    const bp::object names = data.attr("objectFilenames");
    const bp::object kinds = data.attr("objectIds");
    const bp::object builtins = bp::import("builtins");
    const bp::object pairs = builtins.attr("zip")(names, kinds);
    const bp::object found = builtins.attr("dict")(pairs);
    EXPECT_TRUE(bp::extract<bool>(found == expected)) << bp::extract<std::string>(bp::str(found))();
}

TEST_F(GuiValues, ForeignAndBrokenDragsHoldNoObjects)
{
    QStandardItemModel rows(1, 1);
    rows.setData(rows.index(0, 0), 4711, hv::g_objectTypeRole);
    const std::unique_ptr<QMimeData> foreign(rows.mimeData({rows.index(0, 0)}));
    EXPECT_TRUE(python::MimeContent::of(*foreign).objects.empty());
    QMimeData broken;
    broken.setData(QStringLiteral("application/x-qabstractitemmodeldatalist"), QByteArray("\0\0\0\1\xff\xff\xff", 7));
    broken.setHtml(QStringLiteral("<i>x</i>"));
    const python::MimeContent content = python::MimeContent::of(broken);
    EXPECT_TRUE(content.objects.empty());
    EXPECT_FALSE(content.text);
    EXPECT_EQ(content.html, QStringLiteral("<i>x</i>"));
}

TEST_F(GuiValues, Alignments)
{
    const python::GilLock lock;
    const auto alignment = [](const char* expression) -> std::string {
        try {
            return std::to_string(python::alignmentArgument(pythonValue(expression), "align, not '%s'"));
        } catch (const bp::error_already_set&) {
            PyObject *type, *value, *trace;
            PyErr_Fetch(&type, &value, &trace);
            const bp::handle<> error(type), text(bp::allow_null(value)), rest(bp::allow_null(trace));
            return bp::extract<std::string>(bp::str(bp::object(text)));
        }
    };
    EXPECT_EQ(alignment("Align.Left | Align.Top"), "33");
    EXPECT_EQ(alignment("Align.Center"), "132");
    EXPECT_EQ(alignment("0"), "0");
    EXPECT_EQ(alignment("True"), "align, not 'bool'");
    EXPECT_EQ(alignment("MouseButton.Left"), "align, not 'MouseButton'");
    EXPECT_EQ(alignment("1.0"), "align, not 'float'");
    EXPECT_EQ(alignment("1 << 9"), "512 is no combination of Align");
    EXPECT_EQ(alignment("-1"), "-1 is no combination of Align");
}

TEST_F(GuiValues, PairsStandForPointsAndSizes)
{
    const python::GilLock lock;
    EXPECT_EQ(bp::extract<QPoint>(pythonValue("(3, -4)"))(), QPoint(3, -4));
    EXPECT_EQ(bp::extract<QSize>(pythonValue("[3, 4]"))(), QSize(3, 4));
    EXPECT_EQ(bp::extract<QPointF>(pythonValue("(1, 0.5)"))(), QPointF(1, 0.5));
    EXPECT_EQ(bp::extract<QPointF>(pythonValue("Point(1, 2)"))(), QPointF(1, 2));
    for (const char* wrong : {"(1, 2, 3)", "(1.5, 2)", "'12'", "None", "{1, 2}", "Size(1, 2)"})
        EXPECT_FALSE(bp::extract<QPoint>(pythonValue(wrong)).check()) << wrong;
    EXPECT_THROW(bp::extract<QPoint>(pythonValue("(2**31, 0)"))(), bp::error_already_set);
    EXPECT_TRUE(PyErr_ExceptionMatches(PyExc_OverflowError));
    PyErr_Clear();
}

} // namespace

// The switch and the widgets that choose files and objects of the project, in real windows.
#include "host/data/HVProjectService.h"
#include "host/services/HVProjectItemDrag.h"
#include "host/widgets/HVFilePathLineEdit.h"
#include "host/widgets/HVInputSelectionLineEdit.h"
#include "host/widgets/HVObjectComboBox.h"
#include "host/widgets/HVObjectPopup.h"
#include "host/widgets/HVProjectModel.h"
#include "host/widgets/HVSwitch.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QUrl>

namespace {

TEST(Switch, togglesByMouseAndKeyAndTheKnobFollows)
{
    HVSwitch widget;
    widget.setAnimationDuration(-5);
    EXPECT_EQ(widget.animationDuration(), 0);
    widget.setAnimationDuration(30);
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    QSignalSpy toggled(&widget, &HVSwitch::toggled);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(widget.width() - 4, widget.height() / 2));
    EXPECT_TRUE(widget.isSwitched());
    EXPECT_LT(widget.knobPosition(), 1.0) << "on its way";
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget.knobPosition() == 1.0; }, 1000));
    QTest::keyClick(&widget, Qt::Key_Space);
    EXPECT_FALSE(widget.isSwitched());
    widget.setEnabled(false);
    QTest::mouseClick(&widget, Qt::LeftButton);
    EXPECT_EQ(toggled.size(), 2);
    const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::CheckBox);
}

TEST(Switch, paintsItsStateInItsColoursAndMirrored)
{
    HVSwitch widget;
    widget.setAnimationDuration(0);
    widget.setOnColor(QColor(0, 200, 0));
    widget.setOffColor(QColor(200, 0, 0));
    widget.setFixedWidth(150);
    widget.show();
    // The middle is free of knob and text.
    const auto colorAt = [&](double place) {
        return widget.grab().toImage().pixelColor(int(widget.width() * place), widget.height() / 2);
    };
    EXPECT_EQ(colorAt(0.5), QColor(200, 0, 0));
    EXPECT_EQ(colorAt(0.06), QColor(Qt::white));
    widget.setSwitched(true);
    EXPECT_EQ(colorAt(0.5), QColor(0, 200, 0));
    EXPECT_EQ(colorAt(0.94), QColor(Qt::white));
    widget.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(colorAt(0.06), QColor(Qt::white));
    const int before = widget.sizeHint().width();
    widget.setText("Unloaded and more");
    EXPECT_GT(widget.sizeHint().width(), before);
}

/// What a drag from outside does on the widget at its middle; the answer to it.
bool drop(QWidget& widget, const QMimeData& data)
{
    const QPoint at = widget.rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent event(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted() && event.dropAction() == Qt::CopyAction;
}

QMimeData* files(QMimeData* data, const QStringList& paths)
{
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls << QUrl::fromLocalFile(path);
    data->setUrls(urls);
    return data;
}

TEST(FilePathLineEdit, tellsSettledPathsOnly)
{
    HVFilePathLineEdit widget;
    widget.show();
    QSignalSpy changed(&widget, &HVFilePathLineEdit::pathChanged);
    QTest::keyClicks(widget.line(), " \"/tmp/a b.sgy\" ");
    EXPECT_EQ(changed.size(), 0) << "not each key";
    QTest::keyClick(widget.line(), Qt::Key_Return);
    QTest::keyClick(widget.line(), Qt::Key_Return);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toString(), "/tmp/a b.sgy");
    EXPECT_EQ(widget.line()->text(), QDir::toNativeSeparators("/tmp/a b.sgy"));
    widget.setPath("file:///tmp/x%20y");
    EXPECT_EQ(widget.path(), "/tmp/x y");
    widget.setPath("~/data");
    EXPECT_EQ(widget.path(), QDir::homePath() + "/data");

    QMimeData data;
    EXPECT_TRUE(drop(widget, *files(&data, {"/tmp/dropped.sgy"})));
    EXPECT_EQ(widget.path(), "/tmp/dropped.sgy");
    EXPECT_FALSE(drop(widget, *files(&data, {"/tmp/a", "/tmp/b"}))) << "which one?";
    EXPECT_FALSE(drop(widget, *files(&data, {QDir::tempPath()}))) << "a folder";
    EXPECT_EQ(changed.size(), 4);
}

TEST(FilePathLineEdit, asksInTheFolderOfThePathAndCompletesTheSuffix)
{
    const QTemporaryDir folder;
    QFile(folder.filePath("old.sgy")).open(QIODevice::WriteOnly);
    HVFilePathLineEdit widget;
    widget.setFileFilter("SEG-Y files (*.sgy *.segy);;All files (*)");
    widget.setDialogTitle("Which one?");
    widget.setPath(folder.filePath("old.sgy"));
    widget.show();
    const auto answer = [&](const QString& name) {
        QTest::mouseClick(widget.button(), Qt::LeftButton);
        auto* dialog = widget.findChild<QFileDialog*>();
        EXPECT_TRUE(dialog && dialog->isVisible());
        EXPECT_EQ(dialog->windowTitle(), "Which one?");
        EXPECT_EQ(dialog->directory(), QDir(folder.path()));
        if (name.isEmpty()) {
            dialog->reject();
        } else {
            auto* line = dialog->findChild<QLineEdit*>("fileNameEdit");
            QApplication::setActiveWindow(dialog);
            line->setFocus(); // or the file that is selected in the list stays so
            line->selectAll();
            QTest::keyClicks(line, name);
            QTimer::singleShot(1000, dialog, [] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                ADD_FAILURE() << (box ? box->text().toStdString() : "the chooser asks something");
                if (box)
                    box->reject();
            });
            QMetaObject::invokeMethod(dialog, "accept");
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return !widget.findChild<QFileDialog*>(); }, 1000));
    };
    answer({});
    EXPECT_EQ(widget.path(), folder.filePath("old.sgy"));
    widget.setDialogType(HVFileDialogType::Save);
    answer("new");
    EXPECT_EQ(widget.path(), folder.filePath("new.sgy"));
    widget.setPath({});
    answer("next");
    EXPECT_EQ(widget.path(), folder.filePath("next.sgy")) << "the folder chosen from last";
}

class ProjectChoice : public ::testing::Test
{
protected:
    ProjectChoice()
    {
        EXPECT_TRUE(projects.create(folder.filePath("p"), QString()));
        make(ObjectKind::Horizon3d, {"Top 10", "Top 2", "Base"});
        make(ObjectKind::Well, {"W 1"});
        EXPECT_TRUE(directories().addDirectory("North", QString()));
        EXPECT_TRUE(directories().addDirectory("Deep", "North"));
        EXPECT_TRUE(directories().fileObjects({"Top 2"}, "Deep"));
    }
    void make(ObjectKind kind, const QStringList& names)
    {
        for (const QString& name : names)
            ASSERT_TRUE(QFile(*projects.project()->newFilename(kind, name)).open(QIODevice::WriteOnly));
    }
    QString path(const QString& name, ObjectKind kind = ObjectKind::Horizon3d)
    {
        return projects.project()->filename(kind, name);
    }
    HVVirtualDirectories& directories() { return projects.project()->directories(ObjectKind::Horizon3d); }
    static QStringList texts(const QComboBox& box)
    {
        QStringList texts;
        for (int row = 0; row < box.count(); ++row)
            texts << box.itemText(row);
        return texts;
    }
    /// The drag that the project browser makes of an object.
    std::unique_ptr<QMimeData> drag(const QString& objectPath)
    {
        HVProjectModel model;
        model.setProject(projects.project());
        const QModelIndexList found =
            model.match(model.index(0, 0), hv::g_objectPathRole, objectPath, 1, Qt::MatchExactly | Qt::MatchRecursive);
        return std::unique_ptr<QMimeData>(model.mimeData(found));
    }

    QTemporaryDir folder;
    HVProjectService projects;
};

TEST_F(ProjectChoice, comboBoxFollowsTheProjectAndKeepsTheObject)
{
    HVObjectComboBox box(ObjectKind::Horizon3d);
    EXPECT_EQ(texts(box), (QStringList{"North/Deep/Top 2", "Base", "Top 10"}));
    EXPECT_EQ(box.object(), path("Top 2"));
    EXPECT_TRUE(box.setObject(path("Top 10")));
    EXPECT_FALSE(box.setObject(path("W 1", ObjectKind::Well)));
    QSignalSpy changed(&box, &HVObjectComboBox::objectChanged);
    QSignalSpy index(&box, QOverload<int>::of(&QComboBox::currentIndexChanged));
    make(ObjectKind::Horizon3d, {"Middle"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.count() == 4; }, 2000)) << "a file made by somebody else";
    EXPECT_EQ(box.object(), path("Top 10"));
    EXPECT_EQ(index.size(), 1);
    EXPECT_EQ(changed.size(), 0);

    EXPECT_TRUE(projects.project()->renameObject(ObjectKind::Horizon3d, "Top 10", "A"));
    box.updateObjects();
    EXPECT_EQ(box.currentText(), "A");
    EXPECT_EQ(changed.size(), 1);
    QFile::rename(path("A"), folder.filePath("away"));
    box.updateObjects();
    EXPECT_EQ(box.object(), QString()) << "no other object in its place";
    QFile::rename(folder.filePath("away"), path("A"));
    box.updateObjects();
    EXPECT_EQ(box.object(), path("A"));

    box.setKinds({ObjectKind::Horizon3d, ObjectKind::Well});
    box.setOptional(true);
    EXPECT_EQ(texts(box), (QStringList{"None", "North/Deep/Top 2", "A", "Base", "Middle", "W 1"}));
    EXPECT_EQ(box.object(), path("A"));
    projects.close();
    EXPECT_EQ(box.count(), 0);
    EXPECT_EQ(box.placeholderText(), "No project is open");
    EXPECT_TRUE(projects.create(folder.filePath("other"), QString()));
    EXPECT_EQ(box.object(), QString());
}

TEST_F(ProjectChoice, comboBoxTakesDropsOfItsKindsAndThousandsOfObjects)
{
    HVObjectComboBox box(ObjectKind::Horizon3d);
    box.setOptional(true);
    EXPECT_EQ(box.currentText(), "None") << "nothing was chosen before";
    EXPECT_TRUE(drop(box, *drag(path("Base"))));
    EXPECT_EQ(box.object(), path("Base"));
    EXPECT_FALSE(drop(box, *drag(path("W 1", ObjectKind::Well))));
    QMimeData strange;
    EXPECT_FALSE(drop(box, *files(&strange, {"/etc/passwd"})));
    QTest::keyClick(&box, Qt::Key_Home);
    EXPECT_EQ(box.object(), QString());

    const QString start = projects.project()->folder(ObjectKind::Horizon3d) + "/H ";
    for (int i = 0; i < 5000; ++i)
        QFile(start + QString::number(i) + ".horizon").open(QIODevice::WriteOnly);
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.count() == 5004; }, 5000));
    box.show();
    box.showPopup();
    EXPECT_TRUE(box.view()->isVisible());
    box.hidePopup();
}

TEST_F(ProjectChoice, inputLineChoosesByKeysMouseAndDrop)
{
    QWidget window;
    auto* input = new HVInputSelectionLineEdit(&window);
    input->setKinds({ObjectKind::Horizon3d});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QSignalSpy changed(input, &HVInputSelectionLineEdit::selectionChanged);
    QTest::keyClicks(input->line(), "t");
    ASSERT_TRUE(input->popup() && input->popup()->isVisible());
    QLineEdit* search = input->popup()->searchField();
    QTest::keyClicks(search, "op");
    QTest::keyClick(search, Qt::Key_Down);
    QTest::keyClick(search, Qt::Key_Up);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_FALSE(input->popup()->isVisible());
    EXPECT_EQ(input->object(), path("Top 2"));
    EXPECT_EQ(input->line()->text(), "Top 2");

    QTest::mouseClick(input->button(), Qt::LeftButton);
    const QTreeView& view = *input->popup()->view();
    EXPECT_EQ(view.currentIndex().data().toString(), "Top 2");
    const QModelIndexList found = view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, "Base", 1,
                                                      Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1);
    EXPECT_TRUE(
        view.model()->match(view.model()->index(0, 0), Qt::DisplayRole, "W 1", 1, Qt::MatchRecursive).isEmpty());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(found[0]).center());
    EXPECT_EQ(input->object(), path("Base"));
    EXPECT_TRUE(drop(*input, *drag(path("Top 10"))));
    EXPECT_FALSE(drop(*input, *drag(path("W 1", ObjectKind::Well))));
    EXPECT_EQ(changed.size(), 3);

    EXPECT_TRUE(projects.project()->renameObject(ObjectKind::Horizon3d, "Top 10", "New"));
    projects.project()->store().tellChanges();
    EXPECT_EQ(input->object(), path("New"));
    QTest::keyClick(input->line(), Qt::Key_Delete);
    EXPECT_EQ(input->object(), QString());
    EXPECT_TRUE(input->setObject(path("Base")));
    QFile::remove(path("Base"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return input->object().isEmpty(); }, 2000)) << "removed by somebody else";
    EXPECT_FALSE(input->setObject(path("Base")));
    projects.close();
    EXPECT_EQ(input->line()->placeholderText(), "No project is open");
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

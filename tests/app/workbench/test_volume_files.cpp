// Files of volumes in the main window: the command, and what is dropped on it.
#include "app/workbench/Commands.h"
#include "app/workbench/MainWindow.h"
#include "editor/HVPythonTextEdit.h"
#include "host/data/HVProjectService.h"
#include "host/exchange/HVSegyImportDialog.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

namespace {

using namespace workbench;

TEST(VolumeFiles, aSegyFileDroppedOnAnEditorOpensTheDialogAndLeavesTheTextAlone)
{
    const QTemporaryDir folder;
    MainWindow window;
    QAction* import = window.commands().action("import.segy");
    EXPECT_FALSE(import->isEnabled()) << "there is no project to import into";
    ASSERT_TRUE(window.projects()->create(folder.filePath("p"), "p"));
    EXPECT_TRUE(import->isEnabled());
    HVPythonTextEdit* editor = window.newScript();
    const QString text = editor->toPlainText();
    const auto drop = [editor](const QString& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(editor->viewport(), &enter);
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(editor->viewport(), &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(drop(folder.filePath("Cube.SGY")));
    EXPECT_TRUE(QTest::qWaitFor([&window] { return window.findChild<HVSegyImportDialog*>(); }, 5000));
    EXPECT_EQ(editor->toPlainText(), text);
    auto* dialog = window.findChild<HVSegyImportDialog*>();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->name(), "Cube");
    window.projects()->close();
    EXPECT_TRUE(QTest::qWaitFor([&window] { return !window.findChild<HVSegyImportDialog*>(); }, 5000));
}

} // namespace

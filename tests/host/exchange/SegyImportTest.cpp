// SEG-Y into the project by the dialog, and volumes out of it by the context menu: real files, jobs and widgets.
#include "host/data/HVProject.h"
#include "host/exchange/HVSegyImportDialog.h"
#include "host/exchange/SegyHeaderPages.h"
#include "host/exchange/SegyPositionsPage.h"
#include "host/exchange/SegyVolumePage.h"
#include "host/exchange/VolumeExchange.h"
#include "host/services/HVEventBus.h"
#include "host/widgets/HVProjectBrowser.h"
#include "host/widgets/HVUndoStack.h"
#include "tests/host/segy/SegyMaker.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTreeView>

namespace {

using namespace hv;

constexpr int g_patience = 20000; // milliseconds

class SegyImport : public ::testing::Test
{
protected:
    SegyImport() : project(*HVProject::create(folder.filePath("p"), QString()))
    {
        maker.addSurvey(6, 5);
        exchange.setProject(project.get());
    }
    QString write(const QString& name = "cube.sgy") { return maker.write(folder.filePath(name)); }
    HVSegyImportDialog* dialog() { return parent.findChild<HVSegyImportDialog*>(); }
    QPushButton* ok() { return dialog()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok); }
    QString remarks() { return dialog()->findChild<QTextBrowser*>()->toPlainText(); }
    bool isLookedThrough()
    {
        return QTest::qWaitFor([this] { return jobs.isIdle() && (dialog()->scan() || !dialog()->problem().isEmpty()); },
                               g_patience);
    }
    QString page(QWidget* widget)
    {
        QStringList texts;
        for (const QLabel* label : widget->findChildren<QLabel*>())
            texts << label->text();
        return texts.join('|');
    }
    QStringList volumes() { return project->objectNames(ObjectKind::Volume); }
    /// Everything that lies where volumes do.
    QStringList files()
    {
        return QDir(project->folder(ObjectKind::Volume)).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
    std::unique_ptr<HVProject> project;
    SegyMaker maker;
    JobManager jobs;
    QWidget parent;
    VolumeExchange exchange{jobs, &parent};
};

TEST_F(SegyImport, theGuessIsShownWithItsReasonAndCanBeChanged)
{
    // Another pair of numbers that could be meant: the lines count twice as fast there.
    maker.change = [this](QByteArray& header, int number) {
        maker.put32(header, 9, 2 * (number / 5) + 100);
        maker.put32(header, 21, number % 5 + 7);
    };
    exchange.importSegy({write()});
    ASSERT_TRUE(isLookedThrough());
    EXPECT_TRUE(ok()->isEnabled()) << dialog()->problem().toStdString();
    SegyPositionsPage* positions = dialog()->positionsPage();
    EXPECT_EQ(positions->field(0)->placeholderText(), "189 (found)");
    EXPECT_TRUE(page(positions).contains("Inline number, 1 in the first trace")) << page(positions).toStdString();
    EXPECT_TRUE(page(positions).contains("every trace has its own, the bytes of the standard"));
    EXPECT_TRUE(page(positions).contains("The coordinates lie on a regular grid. Inlines are 202 m apart"))
        << page(positions).toStdString();
    EXPECT_TRUE(remarks().contains("Assumed")) << remarks().toStdString();

    // The table's columns begin with what is read; choosing one changes the field, and that the scan.
    QAbstractItemModel* table = dialog()->tracesPage()->table()->model();
    EXPECT_EQ(table->headerData(0, Qt::Horizontal).toString(), "Inline number\n189");
    EXPECT_EQ(table->index(6, 1).data().toInt(), 21);
    Q_EMIT dialog()->tracesPage()->positionChosen(0, {9});
    EXPECT_FALSE(ok()->isEnabled()) << "what is on the screen was not looked at yet";
    QTest::keyClicks(positions->field(1), "21");
    ASSERT_TRUE(isLookedThrough());
    EXPECT_EQ(dialog()->scan()->inlines, (segy::LineRange{100, 110, 2}));
    EXPECT_EQ(dialog()->scan()->crosslines.first, 7);
    EXPECT_EQ(table->headerData(0, Qt::Horizontal).toString(), "Inline number\n9");
    EXPECT_TRUE(remarks().contains("as was asked for")) << remarks().toStdString();

    // What cannot be read is said, and nothing can be imported until it can.
    positions->field(1)->setText("999");
    Q_EMIT positions->field(1)->textEdited("999");
    ASSERT_TRUE(isLookedThrough());
    EXPECT_EQ(dialog()->problem(),
              "Crossline number: \"999\" is no position in a trace header, which has the bytes 1 to 240.");
    EXPECT_FALSE(ok()->isEnabled());
}

TEST_F(SegyImport, thePartThatIsChosenBecomesAVolumeWithOneStepToUndo)
{
    HVUndoStack undo;
    undo.setProject(project.get());
    HVProjectBrowser browser;
    browser.setProject(project.get());
    browser.show();
    QObject::connect(&exchange, &VolumeExchange::imported, &browser, &HVProjectBrowser::select);
    browser.searchField()->setText("nothing like it");
    exchange.importSegy({write()});
    EXPECT_EQ(dialog()->name(), "cube");
    ASSERT_TRUE(isLookedThrough());
    SegyVolumePage* volume = dialog()->volumePage();
    EXPECT_EQ(volume->last(SegyVolumePage::Crosslines)->placeholderText(), "24");
    QTest::keyClicks(volume->first(SegyVolumePage::Inlines), "3");
    QTest::keyClicks(volume->every(SegyVolumePage::Crosslines), "2");
    volume->domain()->setCurrentIndex(1);
    Q_EMIT volume->domain()->activated(1);
    ASSERT_TRUE(isLookedThrough());
    EXPECT_TRUE(page(dialog()).contains("4 inlines, 3 crosslines, 4 samples")) << page(dialog()).toStdString();
    QTest::mouseClick(ok(), Qt::LeftButton);
    QSignalSpy imported(&exchange, &VolumeExchange::imported);
    ASSERT_TRUE(imported.wait(g_patience));
    EXPECT_EQ(volumes(), QStringList("cube"));
    EXPECT_EQ(browser.view()->currentIndex().data().toString(), "cube");
    {
        const auto file = VolumeFile::open(project->filename(ObjectKind::Volume, "cube"));
        ASSERT_TRUE(file);
        EXPECT_EQ((*file)->header().domain, georef::Domain::Depth);
        EXPECT_EQ(*(*file)->sample(1, 2, 3), SegyMaker::sample({4, 24}, 3));
    }
    EXPECT_EQ(undo.undoText(), "Import 'cube'");
    undo.undo();
    EXPECT_EQ(volumes(), QStringList());
    undo.redo();
    EXPECT_EQ(volumes(), QStringList("cube"));
}

TEST_F(SegyImport, aNameThatIsTakenIsNotOffered)
{
    const QString path = write();
    exchange.importSegy({path, path});
    ASSERT_TRUE(isLookedThrough());
    QTest::mouseClick(ok(), Qt::LeftButton);
    // While the first one is under way.
    ASSERT_TRUE(QTest::qWaitFor([this] { return dialog() && dialog()->name() == "cube 2"; }, g_patience));
    dialog()->nameField()->setText("cube");
    ASSERT_TRUE(isLookedThrough());
    EXPECT_EQ(dialog()->problem(), "There is a volume of this name already.");
    dialog()->nameField()->setText("a/b");
    EXPECT_EQ(dialog()->problem(), "\"a/b\" cannot be the name of a volume.");
    EXPECT_FALSE(ok()->isEnabled());
}

TEST_F(SegyImport, aCancelledImportLeavesNothing)
{
    maker.traces.clear();
    maker.addSurvey(120, 100);
    maker.samples = 200;
    exchange.importSegy({write()});
    ASSERT_TRUE(isLookedThrough());
    QTest::mouseClick(ok(), Qt::LeftButton);
    ASSERT_FALSE(jobs.isIdle());
    EXPECT_EQ(jobs.jobs().front().name, "Import 'cube'");
    // Once it is at work: a part of the file is there.
    ASSERT_TRUE(QTest::qWaitFor([this] { return !files().isEmpty() || jobs.isIdle(); }, g_patience));
    ASSERT_FALSE(jobs.isIdle());
    jobs.cancelAll();
    ASSERT_TRUE(QTest::qWaitFor([this] { return jobs.isIdle(); }, g_patience));
    EXPECT_EQ(files(), QStringList());
    EXPECT_EQ(volumes(), QStringList());
}

TEST_F(SegyImport, aBadFileSaysItsSentenceInTheDialogAlone)
{
    struct Messages final : HVEventBus::Sink
    {
        Messages() { HVEventBus::instance().addSink(this); }
        ~Messages() { HVEventBus::instance().removeSink(this); }
        void receive(const HVEventBus::Message& message) override
        {
            all << QString::fromUtf8(message.text.data(), static_cast<int>(message.text.size()));
        }
        QStringList all;
    } messages;
    QFile text(folder.filePath("notes.sgy"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("no seismic") > 0);
    text.close();
    exchange.importSegy({text.fileName(), folder.filePath("gone.sgy")});
    ASSERT_TRUE(isLookedThrough());
    EXPECT_TRUE(dialog()->problem().contains("notes.sgy")) << dialog()->problem().toStdString();
    EXPECT_FALSE(ok()->isEnabled());
    dialog()->reject();
    ASSERT_TRUE(QTest::qWaitFor([this] { return dialog() && dialog()->problem().contains("gone.sgy"); }, g_patience))
        << dialog()->problem().toStdString();
    EXPECT_EQ(messages.all, QStringList());

    // Without a project there is nothing to import into, and a dialog ends with its project.
    exchange.setProject(nullptr);
    project.reset();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !dialog(); }, g_patience));
    exchange.importSegy({text.fileName()});
    EXPECT_FALSE(dialog());
    EXPECT_TRUE(messages.all.join(' ').contains("Open a project first"));
}

TEST_F(SegyImport, aVolumeIsExportedInEveryFormat)
{
    exchange.importSegy({write()});
    ASSERT_TRUE(isLookedThrough());
    QSignalSpy imported(&exchange, &VolumeExchange::imported);
    QTest::mouseClick(ok(), Qt::LeftButton);
    ASSERT_TRUE(imported.wait(g_patience));
    const ObjectKey cube{ObjectKind::Volume, "cube"};
    QMenu menu;
    exchange.fillMenu(menu, {cube});
    ASSERT_EQ(menu.actions().size(), 1);
    EXPECT_EQ(menu.actions().first()->menu()->actions().size(), 4);
    QMenu none;
    exchange.fillMenu(none, {{ObjectKind::Well, "A"}});
    exchange.fillMenu(none, {cube, cube});
    EXPECT_TRUE(none.isEmpty());

    for (const ExportFormat format :
         {ExportFormat::SegyIbm, ExportFormat::SegyIeee, ExportFormat::Numpy, ExportFormat::Zarr})
        exchange.exportTo(cube, format, folder.filePath(QString::number(int(format)) + '.' + suffixOf(format)));
    ASSERT_TRUE(QTest::qWaitFor([this] { return jobs.isIdle(); }, g_patience));
    const auto ieee = segy::SegyFile::open(folder.filePath("1.sgy"));
    const auto ibm = segy::SegyFile::open(folder.filePath("0.sgy"));
    ASSERT_TRUE(ieee && ibm);
    EXPECT_EQ((*ibm)->layout().format, segy::SampleFormat::Ibm);
    EXPECT_EQ((*ieee)->layout().format, segy::SampleFormat::Ieee);
    EXPECT_EQ((*ieee)->layout().traces, 30);
    EXPECT_GT(QFileInfo(folder.filePath("2.npy")).size(), qint64(30) * 4 * 4);
    EXPECT_TRUE(QFileInfo::exists(folder.filePath("3.zarr/.zgroup")));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QTemporaryDir settings;
    QCoreApplication::setOrganizationName("Strativo");
    QCoreApplication::setApplicationName("Strativo");
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

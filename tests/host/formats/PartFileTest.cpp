// Files that take their place when they are whole, and what is left of those that never were.
#include "host/formats/PartFile.h"

#include "../data/TestFiles.h"
#include "host/formats/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class PartFile : public ::testing::Test
{
protected:
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System); }
    QByteArray contents() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("gr\u00fcn.json"));
    QString error;
};

TEST_F(PartFile, keepsLinksAndPermissionsOfWhatItReplaces)
{
    ASSERT_EQ(reason(hv::writeWholeFile(path, "first")), QString());
    const mode_t mask = umask(0);
    umask(mask);
    struct stat made
    {};
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &made), 0);
    EXPECT_EQ(made.st_mode & 0777, 0666 & ~mask);
    const QString link = folder.filePath(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(QStringLiteral("gr\u00fcn.json"), link));
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0750), 0);
    ASSERT_EQ(reason(hv::writeWholeFile(link, "second")), QString());
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(contents(), "second");
    ASSERT_EQ(stat(QFile::encodeName(path).constData(), &made), 0);
    EXPECT_EQ(made.st_mode & 0777, 0750u);
    EXPECT_EQ(files().size(), 2);
    EXPECT_FALSE((error = reason(hv::writeWholeFile(folder.filePath("none/x"), "x"))).isEmpty());
    EXPECT_EQ(error, "No such file or directory");
}

TEST_F(PartFile, roomThatIsTakenHoldsAndRoomThatIsNotThereIsRefused)
{
    ASSERT_EQ(reason(hv::writeWholeFile(path, "old")), QString());
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit tight{10'000, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    {
        hv::PartFile part;
        EXPECT_EQ(reason(part.open(path)), QString());
        EXPECT_EQ(reason(part.reserve(8'000)), QString());
        EXPECT_FALSE((error = reason(part.reserve(12'000))).isEmpty());
        EXPECT_EQ(error, "File too large");
        EXPECT_EQ(contents(), "old");
        EXPECT_EQ(reason(part.commit("new")), QString());
        EXPECT_EQ(contents(), "new") << "and not what was taken beyond it";
        EXPECT_FALSE(hv::writeWholeFile(path, QByteArray(20'000, 'x')));
    }
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(contents(), "new");
    EXPECT_EQ(files().size(), 1);
}

TEST_F(PartFile, onlyPartsOfKilledWritersAreRemoved)
{
    const pid_t writer = fork();
    if (writer == 0) {
        hv::PartFile part;
        const bool isTaken = part.open(path) && part.reserve(100);
        std::raise(isTaken ? SIGKILL : SIGTERM);
    }
    int status = 0;
    waitpid(writer, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    ASSERT_EQ(files().size(), 1);
    const QString left = files().first();

    const QStringList others{"." + left, left + "0", left.chopped(1) + "X", ".strativo-part-mine",
                             "gr\u00fcn.json.abcdef"};
    for (const QString& name : others)
        ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    hv::PartFile part;
    ASSERT_EQ(reason(part.open(path)), QString());
    ASSERT_EQ(files().size(), others.size() + 2);
    hv::removeAbandonedParts(folder.path());
    EXPECT_FALSE(files().contains(left));
    EXPECT_EQ(files().size(), others.size() + 1) << "what lives and what others made stays";
    EXPECT_EQ(reason(part.commit("whole")), QString());
    EXPECT_EQ(contents(), "whole");
}

} // namespace

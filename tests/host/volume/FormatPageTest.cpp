// What the page about the file says is how another program reads it.
#include "VolumeTestData.h"

#include <QProcess>
#include <QRegularExpression>

namespace {

TEST(FormatPage, ItsLinesOfNumPyReadAVolume)
{
    QFile page(QStringLiteral(STRATIVO_FORMAT_PAGE));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QRegularExpression block(QStringLiteral("\\.\\. code-block:: python\n\n((?:   .*\n|\n)+)"));
    QString code = block.match(QString::fromUtf8(page.readAll())).captured(1);
    ASSERT_TRUE(code.contains(QStringLiteral("numpy.memmap")));
    code.replace(QRegularExpression(QStringLiteral("^   "), QRegularExpression::MultilineOption), QString());
    code +=
        QStringLiteral("print([int(volume[i, x, k]) for i, x, k in ((0, 0, 0), (4, 2, 5), (1, 6, 3))], len(trace))\n");

    const QTemporaryDir folder;
    volumes::make(folder.filePath(QStringLiteral("Amplitude.svol")), volumes::header(5, 7, 6));
    QProcess python;
    python.setWorkingDirectory(folder.path());
    python.start(QStringLiteral(STRATIVO_TEST_PYTHON), {QStringLiteral("-I"), QStringLiteral("-c"), code});
    ASSERT_TRUE(python.waitForFinished());
    const QByteArray errors = python.readAllStandardError();
    if (errors.contains("No module named 'numpy'"))
        GTEST_SKIP() << "this machine has no NumPy";
    ASSERT_EQ(python.exitCode(), 0) << errors.constData();
    const QString expected = QStringLiteral("(5, 7, 6)\n[%1, %2, %3] 6\n")
                                 .arg(int(volumes::sampleAt(0, 0, 0)))
                                 .arg(int(volumes::sampleAt(4, 2, 5)))
                                 .arg(int(volumes::sampleAt(1, 6, 3)));
    EXPECT_EQ(QString::fromUtf8(python.readAllStandardOutput()), expected);
}

} // namespace

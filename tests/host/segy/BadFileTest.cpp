// Files that are damaged, or no SEG-Y at all: each gives a sentence or a remark, none ends the program.
#include "SegyMaker.h"
#include "host/segy/Scan.h"

#include <QTemporaryDir>

#include <random>

namespace {

class BadSegy : public ::testing::Test
{
protected:
    hv::Result<std::shared_ptr<const hv::segy::Scan>> scan(const QByteArray& bytes,
                                                           const hv::segy::ScanChoice& choice = {})
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        file.close();
        hv::JobProgress progress;
        hv::JobContext context(progress);
        return hv::segy::scan(path, choice, context);
    }

    /// Why nothing can be imported; empty when it can.
    QString refusal(const QByteArray& bytes)
    {
        const auto result = scan(bytes);
        return result ? (*result)->remarks.obstacle() : result.failure().sentence;
    }

    static SegyMaker survey()
    {
        SegyMaker made;
        made.addSurvey(4, 5);
        return made;
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("bad.sgy"));
};

TEST_F(BadSegy, whatIsNoSegyIsRefusedWithTheReason)
{
    SegyMaker unknownFormat = survey();
    unknownFormat.format = 4;
    SegyMaker nonsense = survey();
    nonsense.format = 77;
    SegyMaker empty = survey();
    empty.traces.clear();
    SegyMaker noSamples = survey();
    noSamples.samples = 0;
    const struct
    {
        QByteArray bytes;
        const char* reason;
    } cases[] = {
        {{}, "is empty"},
        {"C 1 a text", "the headers alone take 3600"},
        {QByteArray("All work and no play makes a dull boy. ").repeated(200), "names the sample format"},
        {QByteArray(20'000, '\0'), "names the sample format 0"},
        {QByteArray(20'000, '\xff'), "names the sample format -1"},
        {unknownFormat.bytes(), "of format 4"},
        {nonsense.bytes(), "names the sample format 77"},
        {empty.bytes(), "before its first trace"},
        {noSamples.bytes(), "how many samples"},
    };
    for (const auto& each : cases)
        EXPECT_TRUE(refusal(each.bytes).contains(QString::fromLatin1(each.reason)))
            << each.reason << ": " << refusal(each.bytes).toStdString();
    hv::JobProgress progress;
    hv::JobContext context(progress);
    EXPECT_TRUE(hv::segy::scan(folder.filePath("none"), {}, context).failure().sentence.contains("No such file"));
    EXPECT_TRUE(hv::segy::scan(folder.path(), {}, context).failure().sentence.contains("not an ordinary file"));
}

TEST_F(BadSegy, aFileThatIsCutOffAnywhereIsRefusedOrSaysWhatIsLost)
{
    const QByteArray whole = survey().bytes();
    ASSERT_TRUE(refusal(whole).isEmpty()) << refusal(whole).toStdString();
    constexpr int trace = 240 + 4 * 4;
    for (int length = 0; length < whole.size(); length += length < 3600 ? 397 : 13) {
        const auto result = scan(whole.left(length));
        if (length < 3600 + trace) {
            EXPECT_FALSE(result) << length;
            continue;
        }
        ASSERT_TRUE(result) << length;
        EXPECT_EQ((*result)->file->layout().traces, (length - 3600) / trace);
        const bool isCut = (length - 3600) % trace != 0;
        const auto& remarks = (*result)->remarks.all();
        EXPECT_EQ(isCut, std::any_of(remarks.begin(), remarks.end(),
                                     [](const auto& remark) {
                                         return remark.text.contains(QStringLiteral("ends within a trace"));
                                     }))
            << length;
    }
}

TEST_F(BadSegy, theNumberOfSamplesThatGoesWithTheSizeIsTaken)
{
    SegyMaker made = survey();
    QByteArray bytes = made.bytes();
    QByteArray wrong = made.binaryHeader();
    made.put16(wrong, 3221 - 3200, 9);
    bytes.replace(3200, 400, wrong);
    const auto result = scan(bytes);
    ASSERT_TRUE(result);
    EXPECT_EQ((*result)->samples(), 4);
    EXPECT_EQ((*result)->counts.cells, 20);
}

TEST_F(BadSegy, tracesOfDifferentLengthsAreRefused)
{
    SegyMaker made = survey();
    made.change = [&made](QByteArray& header, int trace) { made.put16(header, 115, 4 + trace % 3); };
    QByteArray bytes = made.bytes();
    EXPECT_TRUE(refusal(bytes + QByteArray(11, 'x')).contains(QStringLiteral("differ in length")));
    EXPECT_TRUE(refusal(bytes).isEmpty()) << "the size of the file shows that they do not";
}

TEST_F(BadSegy, theOtherByteOrderIsNotReadAsNonsenseWhenItIsAskedFor)
{
    hv::segy::ScanChoice choice;
    choice.format.order = hv::segy::ByteOrder::Little;
    const auto result = scan(survey().bytes(), choice);
    EXPECT_FALSE(result);
}

TEST_F(BadSegy, aFileThatChangesWhileItIsReadIsNoticed)
{
    const QByteArray whole = survey().bytes();
    const auto result = scan(whole);
    ASSERT_TRUE(result);
    const auto file = (*result)->file;
    std::vector<std::byte> traces(static_cast<std::size_t>(file->layout().traceBytes) * 20);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(file->readTraces(0, 20, traces.data())) << "a deleted file is read on";
    EXPECT_TRUE(file->checkUnchanged());

    const auto other = (*scan(whole))->file;
    QFile append(path);
    ASSERT_TRUE(append.open(QIODevice::Append));
    append.write("more");
    append.close();
    EXPECT_TRUE(other->checkUnchanged().failure().sentence.contains(QStringLiteral("somebody wrote to it")));
    ASSERT_TRUE(QFile::resize(path, 4000));
    EXPECT_TRUE(
        other->readTraces(0, 20, traces.data()).failure().sentence.contains(QStringLiteral("it ends at byte 4000")));
}

TEST_F(BadSegy, randomlyDamagedFilesNeverEndTheProgram)
{
    std::mt19937 random(5);
    SegyMaker made = survey();
    made.extendedTexts = 1;
    const QByteArray whole = made.bytes();
    for (int round = 0; round < 400; ++round) {
        QByteArray bytes = whole.left(3300 + static_cast<int>(random() % static_cast<unsigned>(whole.size() - 3300)));
        const int begin = round % 2 == 0 ? 3200 : 6800;
        for (int i = 0; i < 8; ++i)
            bytes[std::min(bytes.size() - 1,
                           begin + static_cast<int>(random() % static_cast<unsigned>(std::max(
                                                                   1, std::min(400, bytes.size() - begin)))))] =
                static_cast<char>(random());
        const QString reason = refusal(bytes);
        EXPECT_FALSE(reason.contains(QLatin1Char('%'))) << reason.toStdString();
    }
}

} // namespace

// What is found out about files that were written in many ways.
#include "host/segy/Scan.h"

#include "SegyMaker.h"

#include <QTemporaryDir>

#include <cmath>

namespace {

using hv::segy::Remark;

class SegyScan : public ::testing::Test
{
protected:
    QString write(const SegyMaker& made) { return made.write(folder.filePath(QStringLiteral("made.sgy"))); }

    std::shared_ptr<const hv::segy::Scan> scanned(const SegyMaker& made, const hv::segy::ScanChoice& choice = {})
    {
        hv::JobProgress progress;
        hv::JobContext context(progress);
        auto result = hv::segy::scan(write(made), choice, context);
        EXPECT_TRUE(result) << (result ? "" : result.failure().sentence.toStdString());
        return result ? *result : nullptr;
    }

    static bool says(const hv::segy::Scan& scan, Remark::Weight weight, const QString& part)
    {
        const auto& all = scan.remarks.all();
        return std::any_of(all.begin(), all.end(),
                           [&](const Remark& remark) { return remark.weight == weight && remark.text.contains(part); });
    }

    QTemporaryDir folder;
};

TEST_F(SegyScan, linesAreFoundWhereverTheyStand)
{
    struct Place
    {
        int inlineByte, crosslineByte;
    };
    for (const Place place : {Place{189, 193}, {9, 21}, {189, 21}, {181, 185}, {17, 21}}) {
        SegyMaker made;
        made.inlineByte = place.inlineByte;
        made.crosslineByte = place.crosslineByte;
        made.xByte = 73;
        made.yByte = 77;
        made.addSurvey(30, 40, 100, 2000, 2);
        const auto scan = scanned(made);
        ASSERT_TRUE(scan);
        EXPECT_EQ(scan->positions.inlineNumber.byte, place.inlineByte);
        EXPECT_EQ(scan->positions.crosslineNumber.byte, place.crosslineByte);
        EXPECT_EQ(scan->inlines, (hv::segy::LineRange{100, 158, 2}));
        EXPECT_EQ(scan->crosslines, (hv::segy::LineRange{2000, 2078, 2}));
        EXPECT_EQ(scan->positions.x.byte, 73);
        EXPECT_EQ(scan->sorting, hv::segy::Sorting::Inlines);
        EXPECT_TRUE(scan->remarks.obstacle().isEmpty());
        EXPECT_TRUE(says(*scan, Remark::Weight::Assumed, QStringLiteral("every trace has its own")));
    }
}

TEST_F(SegyScan, bothByteOrdersAndTextsAreRecognised)
{
    SegyMaker made;
    made.order = hv::segy::ByteOrder::Little;
    made.format = 1;
    made.text = *hv::segy::encodeText(QStringLiteral("C 1 A TEXT IN ASCII"), hv::segy::TextEncoding::Ascii);
    made.extendedTexts = 2;
    made.addSurvey(5, 6);
    const auto little = scanned(made);
    ASSERT_TRUE(little);
    EXPECT_EQ(little->file->layout().order, hv::segy::ByteOrder::Little);
    EXPECT_EQ(little->file->encoding(), hv::segy::TextEncoding::Ascii);
    EXPECT_EQ(little->file->texts().size(), 3U);
    EXPECT_EQ(little->file->texts().front().front(), QStringLiteral("C 1 A TEXT IN ASCII"));
    EXPECT_EQ(little->inlines.count() * little->crosslines.count(), 30);

    made.order = hv::segy::ByteOrder::Big;
    made.text = *hv::segy::encodeText(QStringLiteral("C 1 A TEXT IN EBCDIC"), hv::segy::TextEncoding::Ebcdic);
    const auto big = scanned(made);
    ASSERT_TRUE(big);
    EXPECT_EQ(big->file->encoding(), hv::segy::TextEncoding::Ebcdic);
    EXPECT_EQ(big->file->texts().front().front(), QStringLiteral("C 1 A TEXT IN EBCDIC"));
    EXPECT_EQ(big->interval, 4.0);
}

TEST_F(SegyScan, missingDoubledAndIrregularLinesAreCounted)
{
    SegyMaker made;
    for (const int inlineNumber : {10, 12, 14, 20, 22})
        for (int j = 0; j < 8; ++j)
            if (inlineNumber != 12 || j < 5)
                made.traces.push_back({inlineNumber, 300 + 5 * j, 1000 + 10 * j, 20 * inlineNumber});
    made.traces.push_back(made.traces[3]);
    const auto scan = scanned(made);
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->inlines, (hv::segy::LineRange{10, 22, 2}));
    EXPECT_EQ(scan->crosslines, (hv::segy::LineRange{300, 335, 5}));
    EXPECT_EQ(scan->counts.cells, 37);
    EXPECT_EQ(scan->missing(), 56 - 37);
    EXPECT_EQ(scan->counts.doubled, 1);
    EXPECT_EQ(scan->counts.missingInlines, 2);
    EXPECT_TRUE(says(*scan, Remark::Weight::Assumed, QStringLiteral("irregular")));
}

TEST_F(SegyScan, crosslineSortingAndDescendingNumbersMakeTheSameSurvey)
{
    SegyMaker made;
    made.addSurvey(7, 9);
    std::sort(made.traces.begin(), made.traces.end(), [](const auto& a, const auto& b) {
        return std::pair(-a.crosslineNumber, -a.inlineNumber) < std::pair(-b.crosslineNumber, -b.inlineNumber);
    });
    const auto scan = scanned(made);
    ASSERT_TRUE(scan);
    EXPECT_EQ(scan->sorting, hv::segy::Sorting::Crosslines);
    EXPECT_EQ(scan->inlines, (hv::segy::LineRange{1, 7, 1}));
    EXPECT_EQ(scan->crosslines, (hv::segy::LineRange{20, 28, 1}));
}

TEST_F(SegyScan, coordinatesGiveThePlaneAndItsResidual)
{
    SegyMaker made;
    made.scalar = -10;
    made.addSurvey(20, 30);
    made.traces[100].x += 6; // 0.6 after the scalar
    made.change = [&made](QByteArray& header, int trace) {
        if (trace == 7)
            made.put32(header, 181, 0), made.put32(header, 185, 0);
    };
    const auto scan = scanned(made);
    ASSERT_TRUE(scan && scan->survey);
    EXPECT_NEAR(scan->survey->perCrossline.x, 10.0, 1e-3);
    EXPECT_NEAR(scan->survey->perCrossline.y, -6.0, 1e-3);
    EXPECT_NEAR(scan->survey->perInline.x, 3.0, 1e-3);
    EXPECT_NEAR(scan->survey->perInline.y, 20.0, 1e-3);
    const hv::segy::Point origin = scan->survey->at(1, 20);
    EXPECT_NEAR(origin.x, 100.0, 0.01);
    EXPECT_NEAR(origin.y, 500.0, 0.01);
    EXPECT_NEAR(scan->survey->largest, 0.6, 0.01);
    EXPECT_NEAR(scan->survey->rms, 0.6 / std::sqrt(599.0), 1e-3);
    EXPECT_EQ(scan->counts.withoutCoordinates, 1);
}

TEST_F(SegyScan, coordinatesThatGoWithNoLinesAreNotUsed)
{
    SegyMaker absurd;
    absurd.addSurvey(10, 10);
    for (std::size_t i = 0; i < absurd.traces.size(); ++i)
        absurd.traces[i].x = static_cast<int>(i * 7919 % 1000) * 2'000'000;
    auto scan = scanned(absurd);
    ASSERT_TRUE(scan);
    EXPECT_FALSE(scan->survey);
    EXPECT_TRUE(says(*scan, Remark::Weight::Doubtful, QStringLiteral("do not go with straight lines")));

    SegyMaker same;
    same.addSurvey(10, 10);
    for (auto& trace : same.traces)
        trace.x = trace.y = 500'000;
    scan = scanned(same);
    ASSERT_TRUE(scan);
    EXPECT_FALSE(scan->survey);

    SegyMaker none;
    none.addSurvey(10, 10);
    for (auto& trace : none.traces)
        trace.x = trace.y = 0;
    scan = scanned(none);
    ASSERT_TRUE(scan);
    EXPECT_FALSE(scan->survey);
    EXPECT_TRUE(scan->remarks.obstacle().isEmpty());
    EXPECT_TRUE(says(*scan, Remark::Weight::Assumed, QStringLiteral("stands in its line numbers")));
}

TEST_F(SegyScan, numbersThatMakeNoSurveyPreventTheImportUntilTheUserNamesOthers)
{
    SegyMaker zero;
    zero.addSurvey(5, 5);
    for (auto& trace : zero.traces)
        trace.inlineNumber = trace.crosslineNumber = 0;
    auto scan = scanned(zero);
    ASSERT_TRUE(scan);
    EXPECT_TRUE(scan->remarks.obstacle().contains(QStringLiteral("hold line numbers")));

    hv::segy::ScanChoice counted;
    counted.positions.inlineNumber = counted.positions.crosslineNumber = hv::segy::Position{0, 4};
    scan = scanned(zero, counted);
    ASSERT_TRUE(scan);
    EXPECT_TRUE(scan->remarks.obstacle().isEmpty()) << scan->remarks.obstacle().toStdString();
    EXPECT_EQ(scan->crosslines, (hv::segy::LineRange{1, 25, 1}));
    EXPECT_EQ(scan->sorting, hv::segy::Sorting::SingleLine);

    // One broken header would make a volume of the size of the Earth.
    SegyMaker junk;
    junk.addSurvey(50, 50);
    junk.traces[1000].inlineNumber = 2'000'000'000;
    scan = scanned(junk);
    ASSERT_TRUE(scan);
    EXPECT_TRUE(scan->remarks.obstacle().contains(QStringLiteral("would make a volume")));
    hv::segy::ScanChoice limited;
    limited.inlines = hv::segy::LineRange{1, 50, 1};
    scan = scanned(junk, limited);
    ASSERT_TRUE(scan);
    EXPECT_TRUE(scan->remarks.obstacle().isEmpty()) << scan->remarks.obstacle().toStdString();
    EXPECT_EQ(scan->inlines.count(), 50);
    EXPECT_EQ(scan->missing(), 1);
}

TEST_F(SegyScan, intervalsThatAreNoneAreAskedFor)
{
    for (const int interval : {0, -4000}) {
        SegyMaker made;
        made.interval = interval;
        made.addSurvey(3, 3);
        const auto scan = scanned(made);
        ASSERT_TRUE(scan);
        EXPECT_TRUE(scan->remarks.obstacle().contains(QStringLiteral("sample interval"))) << interval;
        hv::segy::ScanChoice choice;
        choice.interval = 2.0;
        EXPECT_TRUE(scanned(made, choice)->remarks.obstacle().isEmpty());
    }
}

TEST_F(SegyScan, aSingleLineHasALengthAndADirection)
{
    SegyMaker made;
    made.inlineByte = 9;
    made.crosslineByte = 21;
    made.addSurvey(1, 300, 7, 1);
    const auto scan = scanned(made);
    ASSERT_TRUE(scan && scan->survey);
    EXPECT_EQ(scan->crosslines.count(), 300);
    EXPECT_EQ(scan->inlines.count(), 1);
    EXPECT_TRUE(scan->survey->isOneLine);
    EXPECT_NEAR(scan->survey->rms, 0, 1e-6);
    EXPECT_TRUE(says(*scan, Remark::Weight::Assumed, QStringLiteral("right angle")));
}

TEST_F(SegyScan, aCancelledScanEnds)
{
    SegyMaker made;
    made.addSurvey(5, 5);
    hv::JobProgress progress;
    hv::JobContext context(progress);
    progress.cancel();
    EXPECT_FALSE(hv::segy::scan(write(made), {}, context));
}

} // namespace

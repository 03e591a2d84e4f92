// LAS well logs: what is read, and what is said of what cannot be.
#include "host/formats/Las.h"

#include <cmath>

namespace {

TEST(Las, readsWrappedFilesNullsAndOddHeaders)
{
    const auto log = las::read("# remark\n~Version\n VERS. 1.2:\n WRAP. YES:\n~Well\n NULL. -999.25 : null\n"
                               " WELL. A : B-1: WELL\n~Curve\nDEPT.M  : Depth\nGR.GAPI:\n RHOB .G/C3 45 : density\n"
                               "~Other\nanything at all\n~Ascii\n100.0\n 50 2.5\n\n100.5\n-999.25\n2.6\n");
    ASSERT_TRUE(log) << log.failure().sentence.toStdString();
    ASSERT_EQ(log->curves.size(), 3U);
    EXPECT_EQ(log->curves[2].mnemonic, "RHOB");
    EXPECT_EQ(log->curves[2].unit, "G/C3");
    EXPECT_EQ(log->curves[2].description, "density");
    EXPECT_EQ(log->wellValue("well"), "A : B-1");
    EXPECT_EQ(log->samples[0], (std::vector<double>{100.0, 100.5}));
    EXPECT_TRUE(std::isnan(log->samples[1][1]));
    EXPECT_EQ(log->samples[2][1], 2.6);
}

TEST(Las, saysWhatIsWrongAndWhere)
{
    const auto wrong = [](const char* text) {
        const auto log = las::read(text);
        return log ? std::string("read") : log.failure().sentence.toStdString();
    };
    EXPECT_EQ(wrong(""), "it names no curves");
    EXPECT_EQ(wrong("text"), "line 1: it does not begin with a section");
    EXPECT_EQ(wrong("~C\nA.M:\n"), "it has no samples");
    EXPECT_EQ(wrong("~C\nA.M:\n~A\n1\n2 x\n"), "line 5: 'x' is no number");
    EXPECT_EQ(wrong("~C\nA.M:\nB.M:\n~A\n1 2\n3\n"), "its last row of samples is not complete");
    EXPECT_EQ(wrong("~A\n1\n"), "it names no curves");
}

} // namespace

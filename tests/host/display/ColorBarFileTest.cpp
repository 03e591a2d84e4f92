#include "host/formats/ColorBarFile.h"

#include "host/display/PaletteCatalogue.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace display;

namespace {

QString g_error;

/// Keeps why something failed.
template <typename T>
bool done(const hv::Result<T>& result)
{
    g_error = result ? QString() : result.failure().sentence;
    return static_cast<bool>(result);
}

ColorBar table(const char* text)
{
    const auto bar = readPaletteTable(text);
    EXPECT_TRUE(done(bar)) << qPrintable(g_error);
    return bar ? *bar : ColorBar();
}

ColorBar map(const char* text, const char* name = "")
{
    const auto bar = readColorMap(text, QString::fromLatin1(name));
    EXPECT_TRUE(done(bar)) << qPrintable(g_error);
    return bar ? *bar : ColorBar();
}

void expectRange(const ColorBar& bar, double minimum, double maximum)
{
    EXPECT_DOUBLE_EQ(bar.minimum(), minimum);
    EXPECT_DOUBLE_EQ(bar.maximum(), maximum);
}

} // namespace

TEST(ColorBarFile, PaletteTablesInTheirPublishedStyles)
{
    // Separate components, annotation marks, labels, extents.
    ColorBar bar =
        table("# made by hand\n# COLOR_MODEL = RGB\n#\n-100 0 0 255 0 255 255 255 B\n0 255 255 255 300 255 0 0 ; top\n"
              "B 0 0 64\nF 64 0 0\nN 127.5 127.5 127.5\n");
    expectRange(bar, -100, 300);
    EXPECT_EQ(bar.colorOf(-101), qRgb(0, 0, 64));
    EXPECT_EQ(bar.colorOf(301), qRgb(64, 0, 0));
    EXPECT_EQ(bar.noValueColor(), qRgb(128, 128, 128));
    EXPECT_EQ(bar.points()[1], (ColorPoint{0.25, qRgb(255, 255, 255)}));
    // Words, steps, Windows line ends, transparency, a skipped slice.
    bar = table("0\tblack\t1\tblack\r\n1\t#ff8000@50\t2\t#ff8000@50\r\n2\t-\t3\t-\r\n3\tgray50\t4\t10/20/30\r\n");
    EXPECT_EQ(bar.colorOf(0.99), qRgb(0, 0, 0));
    EXPECT_EQ(bar.colorOf(1.5), qRgba(255, 128, 0, 128));
    EXPECT_EQ(qAlpha(bar.colorOf(2.5)), 0);
    EXPECT_EQ(bar.points()[6], (ColorPoint{0.75, qRgb(127, 127, 127)}));
    EXPECT_EQ(bar.colorOf(4), qRgb(10, 20, 30));
    // Descending values give the same bar.
    EXPECT_EQ(table("2 white 1 red\n1 blue 0 black\n"), table("0 black 1 blue\n1 red 2 white\n"));
    // HSV values joined in RGB, the same joined in HSV once around the circle; dashes in any model.
    EXPECT_EQ(table("#COLOR_MODEL = HSV\n0 0 1 1 1 120 1 1\n").colorOf(0.5), qRgb(127, 128, 0));
    bar = table("# COLOR_MODEL = +HSV\n0 0 1 1 3 360 1 1\n");
    EXPECT_EQ(bar.colors()[85], qRgb(0, 255, 0));
    EXPECT_EQ(bar.colors()[170], qRgb(0, 0, 255));
    EXPECT_EQ(table("0 240-1-1 1 0-0-0.5\n").colors().front(), qRgb(0, 0, 255));
    EXPECT_EQ(table("# COLOR_MODEL = CMYK\n0 0 100 100 0 1 0 0 0 100\n").colors().front(), qRgb(255, 0, 0));
    EXPECT_EQ(table("0 51 1 102\n").colors().back(), qRgb(102, 102, 102));
    // Normalised, scaled on each side of the hinge.
    bar = table("# RANGE = -8000/2000\n# HINGE = 0\n-1 0/0/0 0 0/0/255\n0 0/100/0 1 255/255/255\n");
    expectRange(bar, -8000, 2000);
    EXPECT_EQ(bar.points()[2], (ColorPoint{0.8, qRgb(0, 100, 0)}));
    expectRange(table("# RANGE = 10/30\n0 black 1 white\n"), 10, 30);
    expectRange(table("# RANGE of values unknown\n5 black 9 white\n"), 5, 9);
    // Categories: numbered ones lie in the middle of their band.
    bar = table("1 red ;sand\n2 0/255/0 ;shale\n3 blue ;salt\n");
    expectRange(bar, 0.5, 3.5);
    EXPECT_EQ(bar.colorOf(2), qRgb(0, 255, 0));
    expectRange(table("sand yellow\nshale gray\n"), 0, 2);
}

TEST(ColorBarFile, BadPaletteTables)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "it holds no colours"},
        {"# only a comment\nN red\n", "it holds no colours"},
        {"# c\n0 0 0 0 1 0 300 0\n", "line 2: \"300\" is not a colour component of 0 to 255"},
        {"0 black 1 white\n2 black 3 white\n", "line 2: the slice begins at 2, the one before ends at 1"},
        {"0 black 1 white\n1 black 0 white\n", "line 2: the values ascend in one slice and descend in another"},
        {"0 black 0 white\n", "line 1: the slice has no height"},
        {"0 black nan white\n", "line 1: \"nan\" is not a number"},
        {"0 nocolour 1 white\n", "line 1: unknown colour \"nocolour\""},
        {"0 peru 1 pink\n1 P200/5:FredB- 2 -\n",
         "line 2: \"P200/5:FredB-\" is a pattern, a colour bar has colours only"},
        {"0 red 1 blue\nB\tp7+r300\n", "line 2: \"p7+r300\" is a pattern, a colour bar has colours only"},
        {"0 black 1\n", "line 1: a slice of two values with a colour each was expected"},
        {"0 black 1 white\n2 red\n", "line 2: categories and slices are mixed"},
        {"# COLOR_MODEL = XYZ\n", "line 1: unknown COLOR_MODEL \"XYZ\""},
        {"\nB\n", "line 2: a colour was expected after B, F or N"},
        {"-1.7e308 black 1.7e308 white\n", "the range -1.7e+308 to 1.7e+308 can not be shown"},
    };
    for (const auto& [text, message] : cases) {
        EXPECT_FALSE(done(readPaletteTable(text))) << text;
        EXPECT_STREQ(qPrintable(g_error), message);
    }
}

TEST(ColorBarFile, ColorMaps)
{
    const char* const two = R"([{"Name": "first", "RGBPoints": [0, 0, 0, 0, 2, 1, 1, 1]},
        {"Creator": "someone", "ColorSpace": "HSV", "Name": "Rainbow, unwrapped", "NanColor": [0.5, 0, 0],
         "RGBPoints": [-1, 0, 0, 1, 1, 1, 0, 0], "AboveRangeColor": [1, 1, 1], "UseAboveRangeColor": 1,
         "BelowRangeColor": [1, 1, 1], "UseBelowRangeColor": 0}])";
    expectRange(map(two), 0, 2);
    ColorBar bar = map(two, "Rainbow, unwrapped");
    expectRange(bar, -1, 1);
    EXPECT_GT(qGreen(bar.colorOf(0)), 250);
    EXPECT_EQ(bar.noValueColor(), qRgb(128, 0, 0));
    EXPECT_EQ(bar.colorOf(2), qRgb(255, 255, 255));
    EXPECT_EQ(bar.colorOf(-2), qRgb(0, 0, 255));
    bar = map(R"({"Name": "classes", "IndexedColors": [1, 0, 0, 0, 0, 1], "Annotations": ["0", "a", "1", "b"]})");
    EXPECT_EQ(bar.colors()[127], qRgb(255, 0, 0));
    EXPECT_EQ(bar.colors()[128], qRgb(0, 0, 255));
    bar = map(R"({"RGBPoints": [0, 0, 0, 0, 1, 1, 1, 1], "Points": [0, 0, 0.5, 0, 0.5, 1, 0.5, 0, 1, 1, 0.5, 0]})");
    EXPECT_EQ(bar.colors()[0], qRgba(0, 0, 0, 0));
    EXPECT_NEAR(qAlpha(bar.colors()[64]), 128, 1);
    EXPECT_EQ(bar.colors()[200], qRgb(200, 200, 200));

    const std::pair<const char*, const char*> cases[] = {
        {"[{\"Name\": \"x\",\n \"RGBPoints\": [1, 2,, ]}]", "line 2: illegal value"},
        {"[]", "it holds no colour map"},
        {R"([{"Name": "a"}])", "colour map \"a\": it has neither RGBPoints nor IndexedColors"},
        {R"([{"Name": "a", "RGBPoints": [0, 0, 0, 0]}])",
         "colour map \"a\": RGBPoints needs 2 or more groups of 4 numbers"},
        {R"([{"Name": "a", "RGBPoints": [0, 0, 0, 0, 1, 1, 1, "1"]}])",
         "colour map \"a\": RGBPoints holds something that is not a number"},
        {R"([{"Name": "a", "RGBPoints": [0, 0, 0, 0, 1, 255, 1, 1]}])",
         "colour map \"a\": RGBPoints: 255 is not a colour component of 0 to 1"},
        {R"([{"Name": "a", "RGBPoints": [0, 0, 0, 0, 2, 0, 0, 0, 1, 1, 1, 1]}])",
         "colour map \"a\": the values of RGBPoints do not ascend"},
        {R"([{"Name": "a", "ColorSpace": "XYZ", "RGBPoints": [0, 0, 0, 0, 1, 1, 1, 1]}])",
         "colour map \"a\": unknown ColorSpace \"XYZ\""},
    };
    for (const auto& [text, message] : cases) {
        EXPECT_FALSE(done(readColorMap(text, QString()))) << text;
        EXPECT_STREQ(qPrintable(g_error), message);
    }
}

TEST(ColorBarFile, EveryPaletteSurvivesBothFormats)
{
    const QTemporaryDir folder;
    for (const auto& palette : PaletteCatalogue::instance().palettes()) {
        for (const char* suffix : {"json", "cpt"}) {
            SCOPED_TRACE(qPrintable(palette.identifier + QLatin1Char('.') + QLatin1String(suffix)));
            ColorBar bar = palette.colorBar;
            bar.setRange(-1234.5678, 0.1);
            bar.setAboveColor(qRgb(1, 2, 3));
            const QString file = folder.filePath(palette.identifier + QLatin1Char('.') + QLatin1String(suffix));
            ASSERT_TRUE(done(writeColorBar(bar, file))) << qPrintable(g_error);
            const auto read = readColorBar(file, QString());
            ASSERT_TRUE(done(read)) << qPrintable(g_error);
            EXPECT_EQ(read->colors(), bar.colors());
            EXPECT_EQ(read->name(), palette.identifier);
            expectRange(*read, bar.minimum(), bar.maximum());
            EXPECT_EQ(read->noValueColor(), bar.noValueColor());
            EXPECT_EQ(read->aboveColor(), bar.aboveColor());
            EXPECT_EQ(read->belowColor(), std::nullopt);
        }
    }
    ColorBar bar;
    bar.setPoints({{0, qRgba(9, 8, 7, 0)}, {0.3, qRgba(1, 2, 3, 77)}, {0.3, qRgb(4, 5, 6)}, {1, qRgb(7, 8, 9)}});
    EXPECT_EQ(readColorMap(writeColorMap(bar), QString())->colors(), bar.colors());
    EXPECT_EQ(readPaletteTable(writePaletteTable(bar))->colors(), bar.colors());
}

TEST(ColorBarFile, FailuresLeaveFilesAlone)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(done(readColorBar(folder.path(), QString())));
    EXPECT_STREQ(qPrintable(g_error), "it is not an ordinary file");
    EXPECT_FALSE(done(writeColorBar(ColorBar(), folder.filePath(QStringLiteral("none/x.json")))));
    EXPECT_FALSE(g_error.isEmpty());
    // What is not an ordinary file (here a pipe) must not be replaced by one.
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    EXPECT_FALSE(done(writeColorBar(ColorBar(), pipe)));
    EXPECT_TRUE(QFile::exists(pipe) && !QFileInfo(pipe).isFile());
    EXPECT_FALSE(done(readColorBar(pipe, QString())));
    QFile::remove(pipe);

    // A limit on the size of files stands for a full disk: the old file stays, and nothing lies beside it.
    const QString file = folder.filePath(QStringLiteral("kept.json"));
    ASSERT_TRUE(done(writeColorBar(ColorBar(), file)));
    rlimit limit;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit tight{100, limit.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    const bool isWritten = done(writeColorBar(PaletteCatalogue::instance().palettes().back().colorBar, file));
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(isWritten);
    EXPECT_EQ(readColorBar(file, QString())->colors(), ColorBar().colors());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

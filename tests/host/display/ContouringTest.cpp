#include "host/display/Contouring.h"

#include <cmath>
#include <limits>

using display::Contouring;

TEST(Contouring, TheViewHearsOfEveryAcceptedAssignment)
{
    Contouring contouring;
    int count = 0;
    QObject::connect(&contouring, &Contouring::changed, [&count] { ++count; });
    for (const double step : {0.0, -1.0, -std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_FALSE(contouring.setStep(step)) << step;
    EXPECT_EQ(count, 0);
    EXPECT_EQ(contouring.step(), 1);
    EXPECT_TRUE(contouring.setStep(1e-9));
    EXPECT_EQ(contouring.step(), 1e-9);
    contouring.setVisible(true);
    contouring.setLimited(true);
    contouring.setMinimum(1);
    contouring.setMaximum(2);
    contouring.setMode(display::ContouringMode::ZValue);
    contouring.setPen(QPen(Qt::red, 2, Qt::DashLine));
    EXPECT_EQ(count, 7);
}

TEST(Contouring, Levels)
{
    Contouring contouring;
    contouring.setValueRange(-12, 31);
    contouring.setStep(10);
    EXPECT_EQ(contouring.levels(), (std::vector<double>{-10, 0, 10, 20, 30}));
    contouring.setLimited(true);
    contouring.setMinimum(0);
    contouring.setMaximum(25);
    EXPECT_EQ(contouring.levels(), (std::vector<double>{0, 10, 20}));
    contouring.setMaximum(-1);
    EXPECT_TRUE(contouring.levels().empty());
    contouring.setLimited(false);
    // Steps that would ask for millions of lines, or for lines closer than numbers lie, end in time.
    for (const double step : {1e-9, std::numeric_limits<double>::denorm_min()}) {
        contouring.setStep(step);
        const std::vector<double> levels = contouring.levels(500);
        EXPECT_GT(levels.size(), 40U);
        EXPECT_LE(levels.size(), 500U);
    }
    contouring.setValueRange(1e300, std::nextafter(1e300, 2e300));
    EXPECT_LE(contouring.levels().size(), 1U);
    contouring.setStep(std::numeric_limits<double>::infinity());
    EXPECT_TRUE(contouring.levels().empty());
}

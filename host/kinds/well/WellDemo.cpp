#include "host/kinds/demo/SyntheticSurvey.h"
#include "host/kinds/well/WellKind.h"

#include <algorithm>
#include <cmath>

namespace hv {

namespace {

using Survey = demo::SyntheticSurvey;

/// Depth in metres of a time in milliseconds: 1480 m/s in the water, then velocity grows with time.
double depthOf(double time, double seabed)
{
    const double water = std::min(time, seabed);
    const double rock = time - water;
    return 0.5 * (1.480 * water + 1.850 * rock + 0.0004 * rock * rock);
}

QByteArray lasText(const QString& name, int inlineNumber, int crossline)
{
    constexpr double step = 4.0;
    const auto [x, y] = Survey::position(inlineNumber, crossline);
    const double seabed = Survey::layerTime(0, inlineNumber, crossline);
    QByteArray rows;
    double depth = 0.0;
    for (double time = 0.0; time < Survey::sampleCount * Survey::sampleInterval; time += step) {
        int layer = -1;
        while (layer + 1 < Survey::layerCount && Survey::layerTime(layer + 1, inlineNumber, crossline) <= time)
            ++layer;
        // Sands and shales in turn, over a slow change within each.
        const double gamma = layer < 0 ? 5.0 : (layer % 2 == 0 ? 92.0 : 41.0) + 9.0 * std::sin(time / 31.0);
        depth = depthOf(time, seabed);
        rows += QString::asprintf("%10.2f %10.1f %10.2f\n", depth, time, gamma).toLatin1();
    }
    const QString head =
        QStringLiteral("~VERSION INFORMATION\n VERS.          2.0 : CWLS LOG ASCII STANDARD - VERSION 2.0\n"
                       " WRAP.           NO : ONE LINE PER DEPTH STEP\n~WELL INFORMATION\n"
                       " STRT.M        0.00 : START DEPTH\n STOP.M %1 : STOP DEPTH\n"
                       " STEP.M        0.00 : STEP, 0 WHEN IT IS NOT CONSTANT\n NULL.     -9999.00 : NULL VALUE\n"
                       " COMP.     Strativo : COMPANY\n WELL. %2 : WELL\n FLD .         Demo : FIELD\n"
                       " XCOO.M %3 : MAP X COORDINATE\n YCOO.M %4 : MAP Y COORDINATE\n"
                       " HZCS. %5:%6 : HORIZONTAL REFERENCE SYSTEM\n~CURVE INFORMATION\n DEPT.M    : DEPTH\n"
                       " TWT .MS   : TWO-WAY TIME\n GR  .GAPI : GAMMA RAY\n~A DEPTH TWT GR\n")
            .arg(QString::number(depth, 'f', 2), name, QString::number(x, 'f', 1), QString::number(y, 'f', 1),
                 Survey::crsAuthority(), Survey::crsCode());
    return head.toLatin1() + rows;
}

} // namespace

std::vector<DemoObject> WellKind::demo() const
{
    const auto well = [this](const QString& name, int inlineNumber, int crossline) {
        return DemoObject{name, *parse(lasText(name, inlineNumber, crossline)), QStringLiteral("Exploration")};
    };
    // One on each side of the fault, the first through the channel.
    return {well(QStringLiteral("S-1"), 1064, 5056), well(QStringLiteral("S-2"), 1136, 5171)};
}

} // namespace hv

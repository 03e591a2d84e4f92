#pragma once

#include "host/core/Result.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// Well logs as LAS files (Log ASCII Standard of the CWLS, versions 1.2 and 2.0).
namespace las {

/// A line of a header section: "DEPT.M 12.0 : Depth".
struct Item
{
    QString mnemonic;
    QString unit;
    QString value;
    QString description;
};

struct Log
{
    std::vector<Item> well;
    std::vector<Item> curves;
    /// The samples of each curve, all of one length; not-a-number where the file has its null value.
    std::vector<std::vector<double>> samples;

    /// Empty when the well section has no such line.
    QString wellValue(const char* mnemonic) const;
};

/// Wrapped and unwrapped, in any order of the sections before the samples. A failure is the reason alone, with the
/// line.
hv::Result<Log> read(const QByteArray& text);

} // namespace las

#pragma once

#include "host/georef/BlocSpace.h"
#include "host/georef/Crs.h"
#include "host/segy/SampleFormat.h"
#include "host/segy/TextHeader.h"

namespace hv {
struct VolumeHeader;
}

/// What a SEG-Y file that is to be written says of its survey: numbers, places and samples of its traces, and the text
/// in front of them. A value.
class HVSegyDescription
{
public:
    HVSegyDescription() = default;
    /// From the place of a block. `verticalUnit` is that of the survey's vertical numbers.
    HVSegyDescription(const georef::BlocSpace& space, const QString& name, georef::Domain domain,
                      georef::Unit verticalUnit, const georef::Crs& crs = {});
    /// Of a volume; a reference system that cannot be read is left out.
    HVSegyDescription(const hv::VolumeHeader& volume, const QString& name);

    const georef::BlocSpace& space() const { return m_space; }
    georef::Domain domain() const { return m_domain; }
    georef::Unit verticalUnit() const { return m_unit; }

    /// 40 rows of 80 characters, see hv::segy::encodeText(). Empty: the generated one.
    const QString& textualHeader() const { return m_text; }
    void setTextualHeader(const QString& text) { m_text = text; }
    /// Name, corners of the survey, reference system, samples, where the trace headers hold what.
    QString defaultTextualHeader() const;

    hv::segy::SampleFormat format() const { return m_format; }
    /// Ibm (the default) or Ieee.
    void setFormat(hv::segy::SampleFormat format) { m_format = format; }
    hv::segy::TextEncoding encoding() const { return m_encoding; }
    void setEncoding(hv::segy::TextEncoding encoding) { m_encoding = encoding; }

    /// Whether traces without any value are left out of the file. Else they are there with samples of 0, marked as
    /// dead, so that programs that ask for a whole rectangle of lines read the file.
    bool leavesOutMissing() const { return m_leavesOutMissing; }
    void setLeavesOutMissing(bool leavesOut) { m_leavesOutMissing = leavesOut; }

    /// The file with all traces in it.
    std::int64_t sizeInBytes() const;
    /// The world is more than the line numbers in other clothes.
    bool hasCoordinates() const;
    /// As in the survey's numbering, from block indices.
    double inlineNumber(int y) const;
    double crosslineNumber(int x) const;
    /// World coordinates of a trace.
    core::vec3 position(int x, int y) const;
    /// Of the survey's vertical numbers.
    double firstSample() const;
    double interval() const;

private:
    georef::BlocSpace m_space;
    QString m_name;
    georef::Domain m_domain = georef::Domain::Time;
    georef::Unit m_unit = georef::Unit::Milliseconds;
    georef::Crs m_crs;
    QString m_text;
    hv::segy::SampleFormat m_format = hv::segy::SampleFormat::Ibm;
    hv::segy::TextEncoding m_encoding = hv::segy::TextEncoding::Ebcdic;
    bool m_leavesOutMissing = false;
};

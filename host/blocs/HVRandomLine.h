#pragma once

#include "host/volume/LineSection.h"

/// A random line with the file that it lies in: what scripts and viewers of lines hold. A value of its own.
class HVRandomLine
{
public:
    /// A line without a file.
    HVRandomLine() = default;
    explicit HVRandomLine(hv::RandomLine line) : m_line(std::move(line)) {}

    static hv::Result<HVRandomLine> load(const QString& path);
    /// Replaces the file as a whole, or leaves it as it was. Objects of a project are saved through its store.
    hv::Result<void> save(const QString& path);

    /// Absolute; empty without a file.
    const QString& filename() const { return m_filename; }
    /// The complete base name of the file; without one, the line's.
    QString name() const;

    const hv::RandomLine& line() const { return m_line; }
    void setLine(hv::RandomLine line) { m_line = std::move(line); }

    /// See hv::sectionAlong().
    hv::Result<hv::LineSection> section(const hv::VolumeFile& volume, hv::Interpolation interpolation,
                                        double spacing = 0.0, hv::JobContext* context = nullptr) const
    {
        return hv::sectionAlong(volume, m_line, interpolation, spacing, context);
    }

private:
    QString m_filename;
    hv::RandomLine m_line;
};

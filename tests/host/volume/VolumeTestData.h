#pragma once

#include "host/volume/VolumeFile.h"
#include "host/volume/VolumeWriter.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <vector>

/// Volumes whose samples tell where they belong.
namespace volumes {

/// Exact in a float for indices below 256.
inline float sampleAt(int inlineIndex, int crossline, int sample)
{
    return static_cast<float>(inlineIndex * 65536 + crossline * 256 + sample);
}

inline hv::VolumeHeader header(int inlines, int crosslines, int samples)
{
    hv::VolumeHeader header;
    header.space = georef::BlocSpace(crosslines, inlines, samples);
    header.samples = QStringLiteral("Amplitude");
    return header;
}

inline std::vector<float> traces(const hv::VolumeHeader& header, int inlineIndex, int firstCrossline, int count)
{
    std::vector<float> all;
    for (int x = firstCrossline; x < firstCrossline + count; ++x)
        for (int k = 0; k < header.sampleCount(); ++k)
            all.push_back(sampleAt(inlineIndex, x, k));
    return all;
}

/// A whole file of sampleAt().
inline void make(const QString& path, const hv::VolumeHeader& header, const hv::VolumeOrders& orders = {})
{
    auto writer = hv::VolumeWriter::create(path, header, orders);
    ASSERT_TRUE(writer) << qPrintable(writer.failure().sentence);
    for (int i = 0; i < header.inlines(); ++i)
        ASSERT_TRUE(
            (*writer)->writeTraces(i, 0, header.crosslines(), traces(header, i, 0, header.crosslines()).data()));
    const auto finished = (*writer)->finish(nullptr);
    ASSERT_TRUE(finished) << qPrintable(finished.failure().sentence);
}

/// A frame of sampleAt(), as Image3d has it.
inline std::vector<float> frame(const georef::BlocSpace& space, georef::ScanOrientation orientation, int index)
{
    const hv::FrameShape shape = hv::frameShape(space, orientation);
    std::vector<float> all;
    for (int y = 0; y < shape.height; ++y)
        for (int x = 0; x < shape.width; ++x)
            switch (orientation) {
            case georef::ScanOrientation::Inline:
                all.push_back(sampleAt(index, x, y));
                break;
            case georef::ScanOrientation::Crossline:
                all.push_back(sampleAt(x, index, y));
                break;
            case georef::ScanOrientation::Timeslice:
                all.push_back(sampleAt(y, x, index));
                break;
            }
    return all;
}

inline std::vector<float> readFrame(const hv::VolumeFile& file, georef::ScanOrientation orientation, int index)
{
    std::vector<float> all(static_cast<std::size_t>(file.shape(orientation).cells()));
    const auto read = file.readFrame(orientation, index, all.data());
    EXPECT_TRUE(read) << qPrintable(read.failure().sentence);
    return all;
}

inline std::shared_ptr<const hv::VolumeFile> open(const QString& path)
{
    auto file = hv::VolumeFile::open(path);
    EXPECT_TRUE(file) << qPrintable(file.failure().sentence);
    return file ? *file : nullptr;
}

/// Every frame of every orientation is sampleAt().
inline void expectSamples(const hv::VolumeFile& file)
{
    for (const georef::ScanOrientation orientation : hv::scanOrientations)
        for (int index = 0; index < file.shape(orientation).count; ++index)
            ASSERT_EQ(readFrame(file, orientation, index), frame(file.header().space, orientation, index))
                << "orientation " << static_cast<int>(orientation) << ", frame " << index;
}

} // namespace volumes

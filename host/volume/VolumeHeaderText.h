#pragma once

#include "host/volume/VolumeLayout.h"

namespace hv {

/// The line of text that begins a volume file: JSON of volumeHeaderBytes bytes, filled up with spaces. It begins with
/// the places of the arrays, so that their marks lie in the first page.
///
/// Failures are the reason alone: they name no file.

struct VolumeFileHead
{
    VolumeHeader header;
    VolumeLayout layout;
};

Result<QByteArray> volumeHeaderText(const VolumeFileHead& head);

/// From the beginning of a file, both copies of the header. Everything is tested: what comes back can be used with the
/// file, which has `fileSize` bytes.
Result<VolumeFileHead> parseVolumeHeader(const QByteArray& bytes, std::int64_t fileSize);

/// Where the mark of an array stands in such a line, five letters; below 0 when the line has no such array.
int volumeMarkPosition(const QByteArray& line, georef::ScanOrientation orientation);
QByteArray volumeMark(bool isWhole);

} // namespace hv

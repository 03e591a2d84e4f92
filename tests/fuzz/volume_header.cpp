// What anybody may have put into the header of a volume file: it is refused, or what comes back can be used. By hand:
//
//     tests/fuzz/run.sh volume_header 600
#include "host/volume/VolumeHeaderText.h"

#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace hv;
    // The first two bytes say how long the file behind it is.
    if (size < 2)
        return 0;
    const std::int64_t fileSize = std::int64_t(1) << (data[0] % 62);
    const QByteArray text(reinterpret_cast<const char*>(data + 2), static_cast<int>(size - 2));
    const auto head = parseVolumeHeader(text, fileSize);
    if (!head)
        return 0;
    // Every sample of every order lies in the file.
    const auto bytes = sampleBytes(head->header.space);
    if (!bytes || *bytes <= 0 || head->layout.fileSize(head->header.space) > fileSize)
        std::abort();
    for (const georef::ScanOrientation orientation : scanOrientations) {
        const auto& order = head->layout.order(orientation);
        if (order && (order->offset < volumeHeaderBytes * volumeHeaderCopies || order->offset + *bytes > fileSize))
            std::abort();
    }
    // What was read is written and read again. Texts may have grown in between: a letter can need six.
    const auto line = volumeHeaderText(*head);
    if (line && !parseVolumeHeader(*line, fileSize))
        std::abort();
    return 0;
}

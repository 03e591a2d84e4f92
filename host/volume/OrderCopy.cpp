#include "host/volume/OrderCopy.h"

#include "host/core/AlignedBuffer.h"
#include "host/img/Rearrange.h"
#include "host/jobs/JobContext.h"
#include "host/volume/VolumeIo.h"

#include <algorithm>
#include <cerrno>

namespace hv {

using georef::ScanOrientation;

namespace {

constexpr std::int64_t g_sampleSize = sizeof(float);

struct Range
{
    int begin;
    int end;
    int length() const { return end - begin; }
};

/// A range in steps.
template <class Do>
Result<void> inSteps(const Range& range, int step, Do each)
{
    for (int begin = range.begin; begin < range.end; begin += step)
        if (auto done = each(Range{begin, std::min(range.end, begin + step)}); !done)
            return done;
    return {};
}

int stepOf(std::int64_t wanted, int length)
{
    return static_cast<int>(std::clamp<std::int64_t>(wanted, 1, length));
}

std::size_t size(int value)
{
    return static_cast<std::size_t>(value);
}

/// An order in which the index `slow` runs slowest, then the samples (or, for time slices, the inlines) and `fast`
/// fastest. What has gaps is read or written in pieces, what has none in one.
class Rows
{
public:
    Rows(int file, std::int64_t offset, int middleExtent, int fastExtent)
        : m_file(file), m_offset(offset), m_middle(middleExtent), m_fast(fastExtent)
    {}

    /// `buffer` is [middle][fast] without gaps.
    template <class Move, class Buffer>
    Result<void> transfer(Move move, int slow, const Range& middle, const Range& fast, Buffer* buffer) const
    {
        if (fast.length() == m_fast)
            return move(m_file, buffer, std::int64_t(middle.length()) * m_fast * g_sampleSize,
                        place(slow, middle.begin, 0));
        for (int row = middle.begin; row < middle.end; ++row) {
            auto done = move(m_file, buffer, fast.length() * g_sampleSize, place(slow, row, fast.begin));
            if (!done)
                return done;
            buffer += fast.length();
        }
        return {};
    }

private:
    std::int64_t place(int slow, int middle, int fast) const
    {
        return m_offset + ((std::int64_t(slow) * m_middle + middle) * m_fast + fast) * g_sampleSize;
    }

    int m_file;
    std::int64_t m_offset;
    int m_middle;
    int m_fast;
};

struct Buffers
{
    explicit Buffers(std::int64_t bytes)
        : samples(bytes / g_sampleSize), in(core::AlignedBuffer::allocate(bytes)),
          out(core::AlignedBuffer::allocate(bytes))
    {}
    std::int64_t samples; // in each
    core::AlignedBuffer in;
    core::AlignedBuffer out;
};

/// [slow][sample][fast] becomes [fast][sample][slow].
Result<void> exchangeEnds(const Rows& source, const Rows& target, const Range& slow, const Range& samples,
                          const Range& fast, const Buffers& buffers, JobContext* context)
{
    // Long runs on both sides: whole rows where they fit, and a few samples at once.
    const std::int64_t most = buffers.samples;
    const int fastStep = stepOf(most / 4, fast.length());
    const int sampleStep = stepOf(most / (std::int64_t(slow.length()) * fastStep), samples.length());
    const int least = std::min(4, samples.length());
    const int sampleCount = std::max(sampleStep, stepOf(most / fastStep, least));
    const int slowStep = stepOf(most / (std::int64_t(sampleCount) * fastStep), slow.length());
    auto* in = buffers.in.as<float>();
    auto* out = buffers.out.as<float>();
    return inSteps(samples, sampleCount, [&](const Range& s) {
        return inSteps(slow, slowStep, [&](const Range& a) {
            return inSteps(fast, fastStep, [&](const Range& c) -> Result<void> {
                if (context && context->cancelled())
                    return JobContext::stopped();
                const std::size_t piece = size(s.length()) * size(c.length());
                for (int i = a.begin; i < a.end; ++i)
                    if (auto read = source.transfer(readAt, i, s, c, in + size(i - a.begin) * piece); !read)
                        return read;
                for (int k = 0; k < s.length(); ++k)
                    img::transpose(in + size(k) * size(c.length()), piece, out + size(k) * size(a.length()),
                                   size(s.length()) * size(a.length()), size(c.length()), size(a.length()));
                const std::size_t turned = size(s.length()) * size(a.length());
                for (int j = c.begin; j < c.end; ++j)
                    if (auto written = target.transfer(writeAt, j, s, a, out + size(j - c.begin) * turned); !written)
                        return written;
                if (context)
                    context->advance(std::int64_t(s.length()) * a.length() * c.length());
                return {};
            });
        });
    });
}

/// [inline][sample][crossline] becomes [sample][inline][crossline].
Result<void> exchangeFirst(const Rows& source, const Rows& target, const Range& inlines, const Range& samples,
                           const Range& crosslines, const Buffers& buffers, JobContext* context)
{
    const std::int64_t most = buffers.samples;
    const int width = stepOf(most, crosslines.length());
    const int wanted = stepOf(most / width / inlines.length(), samples.length());
    const int sampleStep = std::max(wanted, stepOf(most / width, std::min(16, samples.length())));
    const int inlineStep = stepOf(most / width / sampleStep, inlines.length());
    auto* in = buffers.in.as<float>();
    auto* out = buffers.out.as<float>();
    return inSteps(samples, sampleStep, [&](const Range& s) {
        return inSteps(inlines, inlineStep, [&](const Range& i) {
            return inSteps(crosslines, width, [&](const Range& x) -> Result<void> {
                if (context && context->cancelled())
                    return JobContext::stopped();
                const std::size_t row = size(x.length());
                for (int each = i.begin; each < i.end; ++each) {
                    if (auto read = source.transfer(readAt, each, s, x, in); !read)
                        return read;
                    for (std::size_t k = 0; k < size(s.length()); ++k)
                        std::copy_n(in + k * row, row, out + (k * size(i.length()) + size(each - i.begin)) * row);
                }
                for (int k = s.begin; k < s.end; ++k)
                    if (auto written =
                            target.transfer(writeAt, k, i, x, out + size(k - s.begin) * size(i.length()) * row);
                        !written)
                        return written;
                if (context)
                    context->advance(std::int64_t(s.length()) * i.length() * x.length());
                return {};
            });
        });
    });
}

} // namespace

Result<void> OrderCopy::run(const CellRegion& region, JobContext* context) const
{
    const Buffers buffers(bufferBytes);
    if (!buffers.in || !buffers.out)
        return systemFailure(ENOMEM);
    const Range inlines{region.firstInline, region.endInline};
    const Range crosslines{region.firstCrossline, region.endCrossline};
    const Range samples{region.firstSample, region.endSample};
    if (context)
        context->setSteps(std::int64_t(inlines.length()) * crosslines.length() * samples.length());
    const auto rows = [this](ScanOrientation orientation, std::int64_t offset) {
        const FrameShape shape = frameShape(space, orientation);
        return Rows(file, offset, shape.height, shape.width);
    };
    const Rows source = rows(fromOrder, from);
    const Rows target = rows(toOrder, to);
    if (toOrder == ScanOrientation::Timeslice)
        return exchangeFirst(source, target, inlines, samples, crosslines, buffers, context);
    if (fromOrder == ScanOrientation::Inline)
        return exchangeEnds(source, target, inlines, samples, crosslines, buffers, context);
    return exchangeEnds(source, target, crosslines, samples, inlines, buffers, context);
}

} // namespace hv

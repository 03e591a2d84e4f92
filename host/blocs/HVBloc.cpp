#include "host/blocs/HVBloc.h"

#include "host/blocs/HVPropertyBloc.h"
#include "host/blocs/HVSeismicBloc.h"
#include "host/blocs/KeptSamples.h"
#include "host/jobs/JobContext.h"
#include "host/services/HVEventBus.h"
#include "host/volume/VolumeEditor.h"
#include "host/volume/VolumeSettings.h"
#include "host/volume/VolumeWriter.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

using georef::ScanOrientation;
using hv::Failure;
using hv::Result;

HVBloc::HVBloc(hv::VolumeContent content, HVProject* project) : m_project(project)
{
    m_header.content = content;
    if (project) {
        m_header.crs = project->crs().toWkt();
        m_header.horizontalUnit = project->horizontalUnit();
        m_header.verticalUnit = project->verticalUnit();
        m_header.domain = project->domain();
    }
    m_settleSoon.setSingleShot(true);
    m_settleSoon.setInterval(0);
    connect(&m_settleSoon, &QTimer::timeout, this, [this] {
        if (auto settled = settle(); !settled)
            HVEventBus::instance().sendMessage(MessageLevel::Error, settled.failure().sentence, true);
    });
}

HVBloc::~HVBloc()
{
    if (auto settled = settle(); !settled)
        HVEventBus::instance().sendMessage(MessageLevel::Error, settled.failure().sentence, true);
}

std::unique_ptr<HVBloc> HVBloc::create(hv::VolumeContent content, HVProject* project)
{
    if (content == hv::VolumeContent::Property)
        return std::make_unique<HVPropertyBloc>(project);
    return std::make_unique<HVSeismicBloc>(project);
}

Result<std::unique_ptr<HVBloc>> HVBloc::load(const QString& path, HVProject* project)
{
    auto file = hv::VolumeFile::open(path);
    if (!file)
        return file.failure();
    std::unique_ptr<HVBloc> bloc = create((*file)->header().content, project);
    bloc->m_file = *file;
    bloc->setFilename(path);
    return bloc;
}

Failure HVBloc::failed(const QString& why) const
{
    return hv::cannotWrite(m_filename, Failure(why));
}

std::optional<hv::ObjectKey> HVBloc::key() const
{
    return m_project ? m_project->keyOf(m_filename) : std::nullopt;
}

// What it is ----------------------------------------------------------------------------------------------------------

void HVBloc::setFilename(const QString& path)
{
    if (auto settled = settle(); !settled)
        HVEventBus::instance().sendMessage(MessageLevel::Error, settled.failure().sentence, true);
    m_filename = path.isEmpty() ? QString() : QDir::cleanPath(QDir::current().absoluteFilePath(path));
}

QString HVBloc::name() const
{
    return QFileInfo(m_filename).completeBaseName();
}

void HVBloc::setName(const QString& name)
{
    const QFileInfo file(m_filename);
    if (!m_filename.isEmpty())
        setFilename(file.absolutePath() + QLatin1Char('/') + name + QLatin1Char('.') + file.suffix());
    else if (m_project)
        setFilename(m_project->filename(ObjectKind::Volume, name));
    else
        setFilename(name + objectKindInfo(ObjectKind::Volume).suffix());
}

Result<void> HVBloc::setHeader(const hv::VolumeHeader& header)
{
    if (m_file) {
        if (auto begun = beginWriting(); !begun)
            return begun;
        if (auto written = m_editor->setHeader(header); !written)
            return written;
        if (const auto object = key())
            m_project->changes().recordWithoutUndo(tr("Describe %1").arg(hv::shown(*object)));
        save();
        return reopen();
    }
    if (!hv::sampleBytes(header.space))
        return failed(tr("a volume of %1 x %2 x %3 samples cannot be stored")
                          .arg(header.inlines())
                          .arg(header.crosslines())
                          .arg(header.sampleCount()));
    const georef::BlocSpace& space = m_header.space;
    if (header.inlines() != space.height() || header.crosslines() != space.width() ||
        header.sampleCount() != space.length())
        m_overlay.clear();
    m_header = header;
    return {};
}

georef::BlocSpace HVBloc::blocSpace() const
{
    georef::BlocSpace space = header().space;
    space.setScanOrientation(m_orientation);
    space.setFrameIndex(frameIndex());
    return space;
}

Result<void> HVBloc::setBlocSpace(const georef::BlocSpace& space)
{
    // The current frame is no part of the file.
    hv::VolumeHeader changed = header();
    changed.space = space;
    changed.space.setScanOrientation(ScanOrientation::Inline);
    changed.space.setFrameIndex(0);
    if (!m_file || changed.space != header().space)
        if (auto set = setHeader(changed); !set)
            return set;
    m_orientation = space.scanOrientation();
    m_index = space.frameIndex();
    return {};
}

std::int64_t HVBloc::datasize() const
{
    return hv::sampleBytes(header().space).value_or(0);
}

int HVBloc::frameIndex() const
{
    return std::clamp(m_index, minFrameIndex(), maxFrameIndex());
}

bool HVBloc::isTransposed() const
{
    return m_isTransposed.value_or(m_file ? transposedCount() > 0 : hv::preferredOrders(m_header.space).count() > 1);
}

// Frames --------------------------------------------------------------------------------------------------------------

Result<std::unique_ptr<img::Image2d>> HVBloc::frame(int index) const
{
    return frame(m_orientation, index);
}

Result<std::unique_ptr<img::Image2d>> HVBloc::frame(ScanOrientation orientation, int index) const
{
    const georef::BlocSpace& space = header().space;
    const hv::FrameShape frames = hv::frameShape(space, orientation);
    if (index < 0 || index >= frames.count)
        return Failure(tr("Frame %1 is not one of 0 to %2.").arg(index).arg(frames.count - 1));
    auto image = img::Image2d::createUninitialized(frames.width, frames.height, name());
    if (!image) {
        Failure failure(tr("There is not enough memory for a frame of %1 x %2.").arg(frames.width).arg(frames.height));
        failure.systemError = ENOMEM;
        return failure;
    }
    if (!m_file)
        image->fill(m_header.noValue);
    else if (auto read = m_file->readFrame(orientation, index, image->data()); !read)
        return read.failure();
    m_overlay.apply(space, orientation, index, *image);
    return image;
}

Result<void> HVBloc::readTraces(int inlineIndex, int firstCrossline, int endCrossline, float* out) const
{
    if (m_file && m_overlay.isEmpty())
        return m_file->readTraces(inlineIndex, firstCrossline, endCrossline, out);
    const auto image = frame(ScanOrientation::Inline, inlineIndex);
    if (!image)
        return image.failure();
    for (int x = firstCrossline; x < endCrossline; ++x)
        for (int z = 0; z < (*image)->height(); ++z)
            *out++ = (*image)->value(x, z);
    return {};
}

Result<void> HVBloc::check(int index, const img::Image2d& image) const
{
    const hv::FrameShape frames = shape();
    if (index < 0 || index >= frames.count)
        return failed(tr("frame %1 is not one of 0 to %2").arg(index).arg(frames.count - 1));
    if (image.width() != frames.width || image.height() != frames.height)
        return failed(tr("an image of %1 x %2 is no frame of %3 x %4")
                          .arg(image.width())
                          .arg(image.height())
                          .arg(frames.width)
                          .arg(frames.height));
    return {};
}

Result<void> HVBloc::setFrame(int index, const img::Image2d& image)
{
    if (auto fits = check(index, image); !fits)
        return fits;
    if (m_overlay.put(header().space, m_orientation, index, image))
        return {};
    Failure failure = failed(tr("there is not enough memory"));
    failure.systemError = ENOMEM;
    return failure;
}

Result<void> HVBloc::writeFrame(int index, const img::Image2d& image)
{
    if (auto fits = check(index, image); !fits)
        return fits;
    const georef::BlocSpace space = header().space;
    auto written = change(hv::frameRegion(space, m_orientation, index),
                          [&] { return m_editor->writeFrame(m_orientation, index, image.data()); });
    if (written)
        m_overlay.drop(space, m_orientation, index, image);
    return written;
}

Result<void> HVBloc::writeRegion(const hv::CellRegion& region, const float* samples)
{
    return change(region, [&] { return m_editor->writeRegion(region, samples); });
}

// Writing -------------------------------------------------------------------------------------------------------------

Result<void> HVBloc::beginWriting()
{
    if (m_editor)
        return {};
    auto editor = hv::VolumeEditor::open(m_filename);
    if (!editor)
        return editor.failure();
    const georef::BlocSpace theirs = (*editor)->header().space;
    const georef::BlocSpace& ours = header().space;
    if (theirs.width() != ours.width() || theirs.height() != ours.height() || theirs.length() != ours.length())
        return failed(tr("it is of another size"));
    m_editor = *editor;
    return {};
}

template <class Write>
Result<void> HVBloc::change(const hv::CellRegion& region, Write write)
{
    if (auto begun = beginWriting(); !begun)
        return begun;
    const bool isFirst = !m_written;
    keep(region);
    if (auto written = write(); !written)
        return written;
    m_written = m_written ? m_written->united(region) : region;
    save();
    // From the first change on the further orders are not read.
    return isFirst ? reopen() : Result<void>();
}

void HVBloc::keep(const hv::CellRegion& region)
{
    const auto object = key();
    if (!object || !m_project->changes().sink())
        return;
    hv::ChangeLog& log = m_project->changes();
    const QString text = tr("Write into %1").arg(hv::shown(*object));
    if (!m_isKept || m_step != log.finishedSteps()) {
        m_isKept = true;
        m_kept.reset();
        auto kept = hv::KeptSamples::make(m_project->path() + QStringLiteral("/.trash"));
        if (kept) {
            m_kept = std::move(*kept);
            log.record(std::make_unique<hv::SamplesChange>(m_project->store(), *object, m_kept), text);
        }
        m_step = log.isOpen() ? log.finishedSteps() : log.finishedSteps() - 1;
    }
    if (!m_kept)
        return;
    const auto file = hv::VolumeFile::open(m_filename);
    const std::int64_t bytes = std::int64_t(region.endInline - region.firstInline) *
                               (region.endCrossline - region.firstCrossline) * (region.endSample - region.firstSample) *
                               static_cast<std::int64_t>(sizeof(float));
    if (file && log.keepable(m_kept->bytes() + bytes, hv::shown(*object)) && m_kept->keep(**file, region))
        return;
    m_kept.reset();
    log.recordWithoutUndo(text);
}

Result<void> HVBloc::reopen()
{
    auto file = hv::VolumeFile::open(m_filename);
    if (!file)
        return file.failure();
    m_file = *file;
    return {};
}

void HVBloc::save()
{
    if (m_editor)
        m_settleSoon.start();
}

Result<void> HVBloc::settle()
{
    m_settleSoon.stop();
    if (!m_editor)
        return {};
    auto flushed = m_editor->flush();
    m_editor.reset();
    m_kept.reset();
    m_isKept = false;
    const hv::CellRegion region = m_written.value_or(hv::CellRegion());
    m_written.reset();
    if (const auto object = key())
        m_project->store().changedInPlace(*object, region);
    if (!flushed)
        return flushed;
    return reopen();
}

Result<void> HVBloc::makeStatistics(hv::JobContext* context)
{
    if (auto begun = beginWriting(); !begun)
        return begun;
    if (auto made = m_editor->makeStatistics(context); !made)
        return made;
    save();
    return reopen();
}

Result<void> HVBloc::createFile(hv::JobContext* context)
{
    if (m_filename.isEmpty())
        return Failure(tr("The volume has no file name."));
    if (QFileInfo::exists(m_filename)) {
        Failure failure = failed(tr("it exists already"));
        failure.systemError = EEXIST;
        return failure;
    }
    hv::VolumeHeader made = header();
    made.statistics.reset();
    const bool isTransposed = this->isTransposed();
    const auto object = key();
    if (object)
        if (auto folder = m_project->store().ensureFolder(object->kind); !folder)
            return folder;
    auto writer = hv::VolumeWriter::create(m_filename, std::move(made), {isTransposed, isTransposed});
    if (!writer)
        return writer.failure();
    const int lines = header().inlines();
    if (context)
        context->setSteps(lines * 2LL);
    for (int i = 0; i < lines; ++i) {
        if (context && context->cancelled())
            return hv::JobContext::stopped();
        auto image = frame(ScanOrientation::Inline, i);
        if (!image)
            return image.failure();
        if (auto written = (*writer)->writeInline(i, (*image)->data()); !written)
            return written;
        if (context)
            context->advance();
    }
    std::optional<hv::JobContext> end;
    if (context)
        end.emplace(*context, lines);
    if (auto finished = (*writer)->finish(end ? &*end : nullptr); !finished)
        return finished;
    if (auto opened = reopen(); !opened)
        return opened;
    m_overlay.clear();
    return object ? m_project->store().adopt(*object) : Result<void>();
}

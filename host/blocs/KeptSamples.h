#pragma once

#include "host/changes/Change.h"
#include "host/core/CellRegion.h"
#include "host/objects/ObjectKey.h"
#include "host/volume/VolumeIo.h"

#include <memory>
#include <vector>

namespace hv {

class ObjectStore;
class VolumeEditor;
class VolumeFile;

/// What regions of a volume held before they were written over, in a file that has no name and goes with the object.
class KeptSamples
{
public:
    /// `folder` is where the file lies, on a disk that has room.
    static Result<std::unique_ptr<KeptSamples>> make(const QString& folder);

    std::int64_t bytes() const { return m_bytes; }
    /// Keeps a region as the volume has it now.
    Result<void> keep(const VolumeFile& volume, const CellRegion& region);
    /// The volume and what is kept change places, the region that was kept last first.
    Result<void> exchange(const VolumeFile& volume, VolumeEditor& editor);
    CellRegion united() const;

private:
    struct Piece
    {
        CellRegion region;
        std::int64_t offset;
    };

    KeptSamples() = default;
    FileDescriptor m_file;
    std::vector<Piece> m_pieces;
    std::int64_t m_bytes = 0;
};

/// Samples of an object were written over where they lie.
class SamplesChange final : public Change
{
public:
    SamplesChange(ObjectStore& store, ObjectKey key, std::shared_ptr<KeptSamples> kept)
        : m_store(store), m_key(std::move(key)), m_kept(std::move(kept))
    {}
    Result<void> undo() override { return exchange(); }
    Result<void> redo() override { return exchange(); }

private:
    Result<void> exchange();

    ObjectStore& m_store;
    ObjectKey m_key;
    std::shared_ptr<KeptSamples> m_kept;
};

} // namespace hv

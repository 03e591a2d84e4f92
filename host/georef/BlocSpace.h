#pragma once

#include "host/core/Matrix.h"
#include "host/georef/Enumerations.h"

#include <cstdint>
#include <string>

/// host/georef: where data lie. Block spaces, coordinate reference systems, units; no files, no windows.
namespace georef {

/// The place of a grid of width x height x length cells in the survey and in the world.
///
/// Three frames of points, all vec3:
/// - block: (x, y, z) in cells, whole numbers are cell centres. x counts crosslines, y inlines, z vertical samples.
/// - survey: (inline, crossline, vertical sample). Note the order: block x is the second component. Line numbers and
///   samples are in the survey's own numbering (a step of 2 between inlines is 2), the vertical one in the unit of the
///   survey's domain.
/// - world: map x, map y in the unit of the reference system, and depth or time.
///
/// A new block space numbers the lines from 0 in steps of 1, so block (x, y, z) is survey (y, x, z), and its world is
/// the block itself.
///
/// The two matrices of a pair are always inverse to each other. A plain value, copied freely; not locked.
class BlocSpace
{
public:
    BlocSpace() = default;
    BlocSpace(int width, int height, int length) : m_width(width), m_height(height), m_length(length) {}

    int width() const { return m_width; }
    int height() const { return m_height; }
    int length() const { return m_length; }
    void setExtents(int width, int height, int length);
    /// Every extent is at least 1.
    bool isValid() const { return m_width >= 1 && m_height >= 1 && m_length >= 1; }

    /// Why a setter refused; empty means done. A refused call changes nothing.
    using Refusal = std::string;

    /// Four cell centres of the block and where they lie: the origin (0, 0, 0) and the last cell along each axis,
    /// (width - 1, 0, 0), (0, height - 1, 0) and (0, 0, length - 1). Where an extent is 1 the point of that axis is one
    /// cell away from the origin, for a single cell has no direction. Refused for an invalid block and for points that
    /// do not span a volume (finite, no two equal, not on one plane).
    [[nodiscard]] Refusal setSurveySpace(const core::vec3& origin, const core::vec3& endX, const core::vec3& endY,
                                         const core::vec3& endZ);
    [[nodiscard]] Refusal setWorldSpace(const core::vec3& origin, const core::vec3& endX, const core::vec3& endY,
                                        const core::vec3& endZ);

    /// The survey numbers of the first and the last cell along x, y and z. An axis of one cell whose two numbers agree
    /// gets steps of 1; otherwise the numbers must differ.
    [[nodiscard]] Refusal setSurveySpace(double firstCrossline, double lastCrossline, double firstInline,
                                         double lastInline, double firstSample, double lastSample);

    const core::mat4& fromBlockToSurvey() const { return m_survey.forward; }
    const core::mat4& fromSurveyToBlock() const { return m_survey.backward; }
    const core::mat4& fromBlockToWorld() const { return m_world.forward; }
    const core::mat4& fromWorldToBlock() const { return m_world.backward; }
    /// Each sets the other direction, too. Refused when the matrix has no finite inverse.
    [[nodiscard]] Refusal setFromBlockToSurvey(const core::mat4& matrix);
    [[nodiscard]] Refusal setFromSurveyToBlock(const core::mat4& matrix);
    [[nodiscard]] Refusal setFromBlockToWorld(const core::mat4& matrix);
    [[nodiscard]] Refusal setFromWorldToBlock(const core::mat4& matrix);

    /// Length of one cell step from the block's origin along x (crosslines), y (inlines) and z, in survey units:
    /// the increment of the line numbers or samples.
    float crosslineResolution() const { return resolution({1.0, 0.0, 0.0}); }
    float inlineResolution() const { return resolution({0.0, 1.0, 0.0}); }
    float verticalResolution() const { return resolution({0.0, 0.0, 1.0}); }

    /// The current frame of a viewer over this block; the index is not tested against the extents.
    ScanOrientation scanOrientation() const { return m_scanOrientation; }
    void setScanOrientation(ScanOrientation orientation) { m_scanOrientation = orientation; }
    std::int32_t frameIndex() const { return m_frameIndex; }
    void setFrameIndex(std::int32_t index) { m_frameIndex = index; }

    friend bool operator==(const BlocSpace&, const BlocSpace&) = default;

private:
    struct TransformPair
    {
        core::mat4 forward;
        core::mat4 backward;
        friend bool operator==(const TransformPair&, const TransformPair&) = default;
    };

    static TransformPair swappedAxes();
    static Refusal setPair(TransformPair& pair, const core::mat4& forward);
    Refusal setFromPoints(TransformPair& pair, const core::vec3& origin, const core::vec3& endX, const core::vec3& endY,
                          const core::vec3& endZ) const;
    float resolution(const core::vec3& step) const;

    int m_width = 1;
    int m_height = 1;
    int m_length = 1;
    TransformPair m_survey = swappedAxes();
    TransformPair m_world{core::mat4::identity(), core::mat4::identity()};
    ScanOrientation m_scanOrientation = ScanOrientation::Inline;
    std::int32_t m_frameIndex = 0;
};

} // namespace georef

#pragma once

#include "host/volume/LineSection.h"

#include <memory>

namespace python {

/// A section as scripts have it: the image is an Image2d of its own.
struct RandomLineSection
{
    explicit RandomLineSection(hv::LineSection section)
        : traces(std::move(section.traces)), image(std::move(section.image))
    {}

    std::vector<hv::SectionTrace> traces;
    std::shared_ptr<img::Image2d> image;
};

} // namespace python

#include "host/georef/BlocSpace.h"
#include "host/services/HVMemory.h"
#include "runtime/GilLock.h"
#include "tests/runtime/RuntimeFixture.h"

#include <boost/python.hpp>

namespace bp = boost::python;

namespace {

/// What scripts see when the host is short of memory, or hands out what scripts can not make themselves.
class ImageMemory : public fixture::RuntimeTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(run(R"py(
from strativo_python import *
def failure(function, *arguments):
    try:
        function(*arguments)
    except Exception as error:
        return type(error).__name__ + ": " + str(error)
    return "done"
def expect(wanted, function, *arguments):
    got = failure(function, *arguments)
    if got != wanted:
        raise ValueError("wanted %r, got %r" % (wanted, got))
SETTINGS = " Increase the physical memory dedicated to Strativo in Settings/Optimizations."
)py"));
    }

    /// The script runs to its end while the system reports `bytes` as available.
    void runWith(std::int64_t bytes, const char* code)
    {
        const hv::AvailableMemoryOverride answer([bytes] { return bytes; });
        EXPECT_TRUE(run(code)) << recorder.textOf(6);
    }
};

TEST_F(ImageMemory, ImagesAreRefusedBeforeTheyAreMade)
{
    runWith(4 * 10 * 20, R"py(
image = Image2d(10, 20)
expect("MemoryError: Image2d, not enough free memory to allocate Image2d of size: (10, 21)." + SETTINGS, Image2d, 10, 21)
expect("MemoryError: Image2d, not enough free memory." + SETTINGS, Image2d, 2**15, 2**15)
cube = Image3d(2, 10, 10)
expect("MemoryError: Image3d, not enough free memory for 3d image with dimensions: (2, 10, 11)." + SETTINGS,
       Image3d, 2, 10, 11)
)py");
}

TEST_F(ImageMemory, ResizingCountsTheOldPixelsAgainstWhatIsAvailable)
{
    ASSERT_TRUE(run("image = Image2d(10, 10); image.fill(3); cube = Image3d(10, 5, 2); cube.fill(4)"));
    runWith(400 + 839, R"py(
expect("MemoryError: Image2d.resize(), not enough free memory to resize Image2d to (10, 21)." + SETTINGS,
       image.resize, 10, 21)
expect("MemoryError: Image3d.resize(), not enough memory to resize to size (10, 7, 3)." + SETTINGS,
       cube.resize, 10, 7, 3)
if (image.height, image.average(), cube.length, cube.average()) != (10, 3.0, 2, 4.0):
    raise ValueError("a refused image has changed")
)py");
    runWith(400 + 840, R"py(
expect("MemoryError: Image2d.resize(), unable to allocate memory for Image2d of size (32768, 32768)",
       image.resize, 2**15, 2**15)
expect("done", image.resize, 10, 21)
expect("done", cube.resize, 10, 7, 3)
)py");
}

TEST_F(ImageMemory, DerivedImagesAreRefused)
{
    ASSERT_TRUE(run("image = Image2d(2048, 2049); cube = Image3d(2048, 2049, 2)"));
    runWith(4 * 2048 * 2049 - 1, R"py(
expect("MemoryError: Image2d.transpose(), unable to allocate memory for transposed Image2d", image.transpose)
expect("MemoryError: Image3d, getImage() unable to allocate memory for 'Image2d' for frame 1",
       cube.getImage, ScanOrientation.Timeslice, 1)
expect("done", cube.getImage, ScanOrientation.Inline, 1)
)py");
}

TEST_F(ImageMemory, ReferencePointsNeedValidExtents)
{
    georef::BlocSpace invalid(4, 0, 6);
    {
        const python::GilLock lock;
        bp::import("__main__").attr("invalid") = bp::ptr(&invalid);
    }
    EXPECT_TRUE(run(R"py(
text = "ValueError: BlockSpace.setSurveySpace(), BlockSpace dimensions can not be less than 1 (4, 0, 6)"
points = vec3(0, 0, 0), vec3(1, 0, 0), vec3(0, 1, 0), vec3(0, 0, 1)
expect(text, invalid.setSurveySpace, 1, 2, 3, 4, 5, 6)
expect(text, invalid.setSurveySpace, *points)
expect(text, invalid.setWorldSpace, *points)
invalid.setBlockSpace(1, 1, 1)
expect("done", invalid.setWorldSpace, *points)
del invalid
)py")) << recorder.textOf(6);
}

} // namespace

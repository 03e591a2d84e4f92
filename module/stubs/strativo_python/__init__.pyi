# Written by module/stubs/generate.py; do not edit.
from typing import overload
from typing_extensions import Buffer

NO_VALUE: float
from . import utils as utils
from . import segy as segy

class ScanOrientation(int):
    """The axis of a block that frames are cut across: an Inline frame has one inline number (block y), a Crossline
    frame one crossline number (block x), a Timeslice one vertical sample (block z).
    """
    names: dict[str, ScanOrientation]
    values: dict[int, ScanOrientation]
    name: str
    Inline: ScanOrientation  # 0
    Crossline: ScanOrientation  # 1
    Timeslice: ScanOrientation  # 2

class ScaleType(int):
    """The coordinates that the scales of a viewer show."""
    names: dict[str, ScaleType]
    values: dict[int, ScaleType]
    name: str
    Pixel: ScaleType  # 0
    World: ScaleType  # 1
    Survey: ScaleType  # 2

class Unit(int):
    """Units of length and time. The US ones are survey units (1 foot = 1200/3937 m)."""
    names: dict[str, Unit]
    values: dict[int, Unit]
    name: str
    Meters: Unit  # 0
    Feet: Unit  # 1
    Milliseconds: Unit  # 2
    Seconds: Unit  # 3
    Kilometers: Unit  # 4
    Miles: Unit  # 6
    FeetUS: Unit  # 7
    Decimeters: Unit  # 8
    Centimeters: Unit  # 9
    MilesUS: Unit  # 10
    Yards: Unit  # 11
    YardsUS: Unit  # 12
    Inches: Unit  # 13
    InchesUS: Unit  # 14

class Domain(int):
    """What the vertical axis measures."""
    names: dict[str, Domain]
    values: dict[int, Domain]
    name: str
    Unknown: Domain  # 0
    Time: Domain  # 1
    Depth: Domain  # 2
    All: Domain  # 3

class Crs:
    """A coordinate reference system. It never changes, so copies share one description."""
    @staticmethod
    def fromWtk(text: str) -> Crs:
        """A reference system from its well-known text (WKT 1 as of GDAL or ESRI, WKT 2).

        Raises TypeError when text is not a str, ValueError with the reason when it can not be read or describes
        something else.
        """
    @property
    def area(self) -> Rect2D:
        """Area of use in degrees: left = west, top = south, right = east, bottom = north; all zero when unknown.
        Read-only.
        """
    @property
    def authority(self) -> str:
        """The authority that defines the system, e.g. 'EPSG'; empty when none does. Read-only."""
    @property
    def authorityCode(self) -> str:
        """The authority's code for the system, e.g. '32631'. Read-only."""

class _HVImageBaseFloat:
    """What Image2d and Image3d have in common: pixels of 32-bit floats, stored row by row.

    A pixel of NO_VALUE (-9999.0) or not-a-number holds no value and is left out of the statistics.
    """
    def average(self) -> float:
        """Mean of the pixels that hold a value; not-a-number when there is none."""
    def standardDeviation(self) -> float:
        """Population standard deviation (divided by the count) of the pixels that hold a value; not-a-number when there
        is none.
        """
    @overload
    def fill(self, value: float) -> None:
        """Sets every pixel.

        Raises TypeError when value is neither a number nor a buffer.
        """
    @overload
    def fill(self, buffer: Buffer) -> None:
        """Copies the pixels, x fastest, from an object with the buffer protocol that has as many items: FloatArray,
        array.array, a NumPy array of shape (size,), (height, width) or (length, height, width). Integers, bool and
        floats of any width, byte order and memory layout are converted; bytes are numbers from 0 to 255.

        Raises RuntimeError when the count differs or the items are no real numbers; the image then keeps its pixels.
        """
    @property
    def minValue(self) -> float:
        """Smallest pixel that holds a value; NO_VALUE when there is none. Read-only."""
    @property
    def maxValue(self) -> float:
        """Largest pixel that holds a value; NO_VALUE when there is none. Read-only."""
    @property
    def name(self) -> str:
        """Name of the image. Every str can be set; reading a name with other characters than ASCII raises
        UnicodeDecodeError.
        """
    @name.setter
    def name(self, value: str) -> None: ...
    @property
    def width(self) -> int:
        """Number of pixels in x. Read-only."""
    @property
    def height(self) -> int:
        """Number of pixels in y. Read-only."""
    @property
    def size(self) -> int:
        """Number of all pixels. Read-only."""
    @property
    def bufferAddress(self) -> int:
        """Address of the first pixel, for native numeric code (ctypes). Valid until the image is resized or dies;
        numpy.asarray(image) is the safe way to the pixels. Read-only.
        """

class Image2d(_HVImageBaseFloat):
    """An image of width x height pixels of 32-bit floats: a map of a horizon, a frame of a volume.

    image[x, y] reads and writes one pixel; it is element y * width + x of the buffer. numpy.asarray(image) is an
    array of shape (height, width) over the same pixels, without a copy: array[y, x] is image[x, y]. While such a
    view exists the image can not be resized. Images can be copied and pickled.
    """
    def __init__(self, width: int, height: int, name: str = '') -> None:
        """A new image; every pixel is NO_VALUE.

        Raises RuntimeError when an extent is below 1, TypeError when name is not a str, MemoryError when memory is
        short.
        """
    def __str__(self) -> str:
        """Name and size."""
    def clear(self) -> None:
        """Sets every pixel to NO_VALUE (-9999.0)."""
    def resize(self, width: int, height: int) -> None:
        """Other extents. Pixels inside both extents stay at their (x, y), new ones are NO_VALUE. Extents that are the
        current ones only issue a RuntimeWarning.

        Raises IndexError when an extent is below 1, BufferError while views of the pixels exist, MemoryError when
        memory is short; the image is then as it was.
        """
    def transpose(self) -> Image2d:
        """A new image of the same name with x and y exchanged.

        Raises MemoryError when memory is short.
        """
    def getValue(self, x: int, y: int) -> float:
        """One pixel.

        Raises IndexError outside the image.
        """
    def setValue(self, x: int, y: int, value: float) -> None:
        """Sets one pixel.

        Raises IndexError outside the image.
        """
    def __getitem__(self, index: tuple[int, int]) -> float:
        """One pixel. Raises IndexError outside the image."""
    def __setitem__(self, index: tuple[int, int], value: float) -> None:
        """Sets one pixel. Raises IndexError outside the image."""

class Image3d(_HVImageBaseFloat):
    """A cube of width x height x length pixels of 32-bit floats with a block space that places it in the survey.

    x counts crosslines, y inlines and z vertical samples. image[x, y, z] reads and writes one pixel; it is element
    (z * height + y) * width + x of the buffer. numpy.asarray(image) is an array of shape (length, height, width)
    over the same pixels, without a copy: array[z, y, x] is image[x, y, z]. While such a view exists the image can
    not be resized. Images can be copied and pickled.
    """
    def __init__(self, width: int, height: int, length: int) -> None:
        """A new cube; every pixel is NO_VALUE, the block space is a new one of these extents.

        Raises IndexError when an extent is below 1, MemoryError when memory is short.
        """
    def __str__(self) -> str:
        """The size."""
    def clear(self) -> None:
        """Sets every pixel to NO_VALUE (-9999.0)."""
    def getImage(self, orientation: ScanOrientation, frame: int) -> Image2d:
        """A copy of one frame: the inline frame y = frame has x to the right and z down, the crossline frame x = frame
        y to the right and z down, the time slice z = frame x to the right and y down.

        Raises RuntimeError for an unknown orientation, MemoryError when the frame does not exist or memory is short.
        """
    def setImage(self, orientation: ScanOrientation, frame: int, image: Image2d) -> None:
        """Overwrites one frame; see getImage() for the axes.

        Raises IndexError when the frame does not exist or the image has another size, RuntimeError for None and for
        an unknown orientation.
        """
    def resize(self, width: int, height: int, length: int) -> None:
        """Other extents. Pixels inside both extents stay at their (x, y, z), new ones are NO_VALUE; the block space
        takes the new extents and keeps its transforms. Extents that are the current ones only issue a
        RuntimeWarning.

        Raises IndexError when an extent is below 1, BufferError while views of the pixels exist, MemoryError when
        memory is short; the image is then as it was.
        """
    @overload
    def setBlockSpace(self, blockSpace: BlockSpace) -> None:
        """Places the cube with a copy of blockSpace.

        Raises ValueError when its extents are not those of the cube.
        """
    @overload
    def setBlockSpace(self, width: int, height: int, length: int) -> None:
        """Places the cube with a new block space of these extents.

        Raises ValueError when they are not those of the cube.
        """
    @property
    def length(self) -> int:
        """Number of pixels in z. Read-only."""
    @property
    def blockSpace(self) -> BlockSpace:
        """A copy of the block space of the cube. Read-only."""
    def getValue(self, x: int, y: int, z: int) -> float:
        """One pixel.

        Raises IndexError outside the cube.
        """
    def setValue(self, x: int, y: int, z: int, value: float) -> None:
        """Sets one pixel.

        Raises IndexError outside the cube.
        """
    def __getitem__(self, index: tuple[int, int, int]) -> float:
        """One pixel. Raises IndexError outside the image."""
    def __setitem__(self, index: tuple[int, int, int], value: float) -> None:
        """Sets one pixel. Raises IndexError outside the image."""

class BlockSpace:
    """The place of a grid of width x height x length cells in the survey and in the world.

    Block coordinates count cells: x crosslines, y inlines, z vertical samples; whole numbers are cell centres.
    Survey coordinates are (inline, crossline, sample): block x is the second one. World coordinates are map x, map y
    and depth or time. Block spaces can be copied and pickled.
    """
    def __init__(self, width: int, height: int, length: int) -> None:
        """A block whose lines and samples are numbered from 0 in steps of 1 and whose world coordinates are the
        block's.

        Raises ValueError when an extent is below 1.
        """
    @overload
    def setBlockSpace(self, width: int, height: int, length: int) -> None:
        """Sets the extents; the transforms stay.

        Raises ValueError when an extent is below 1.
        """
    @overload
    def setBlockSpace(self, other: BlockSpace) -> None:
        """Copies everything from other."""
    @property
    def width(self) -> int:
        """Number of cells along x, the crosslines. Read-only."""
    @property
    def height(self) -> int:
        """Number of cells along y, the inlines. Read-only."""
    @property
    def length(self) -> int:
        """Number of cells along z, the samples. Read-only."""
    @property
    def scanOrientation(self) -> ScanOrientation:
        """The axis that frames are cut across."""
    @scanOrientation.setter
    def scanOrientation(self, value: ScanOrientation) -> None: ...
    @property
    def frameIndex(self) -> int:
        """The current frame along that axis; not tested against the extents."""
    @frameIndex.setter
    def frameIndex(self, value: int) -> None: ...
    @overload
    def setSurveySpace(self, origin: vec3, endX: vec3, endY: vec3, endZ: vec3) -> None:
        """Defines fromBlockToSurvey by the survey coordinates (inline, crossline, sample) of four cells: the first one,
        (0, 0, 0), and the last one along each axis of the block, (width - 1, 0, 0), (0, height - 1, 0) and (0, 0,
        length - 1). Along an axis of a single cell the point is one cell away.

        Raises ValueError when an extent is below 1 or the points lie on one plane.
        """
    @overload
    def setSurveySpace(self, firstCrossline: float, lastCrossline: float, firstInline: float, lastInline: float, firstSample: float, lastSample: float) -> None:
        """The same from the numbers of the first and the last cell along x, y and z.

        Raises ValueError when an extent is below 1 or an axis of several cells has two equal numbers.
        """
    def setWorldSpace(self, origin: vec3, endX: vec3, endY: vec3, endZ: vec3) -> None:
        """Defines fromBlockToWorld by the world coordinates (map x, map y, depth or time) of the four cells of
        setSurveySpace().

        Raises ValueError when an extent is below 1 or the points lie on one plane.
        """
    @property
    def fromBlockToSurvey(self) -> mat4:
        """A copy of the transform. Setting it sets fromSurveyToBlock to the inverse; raises ValueError for a matrix
        that has none.
        """
    @fromBlockToSurvey.setter
    def fromBlockToSurvey(self, value: mat4) -> None: ...
    @property
    def fromSurveyToBlock(self) -> mat4:
        """The inverse of fromBlockToSurvey, set in the same way."""
    @fromSurveyToBlock.setter
    def fromSurveyToBlock(self, value: mat4) -> None: ...
    @property
    def fromBlockToWorld(self) -> mat4:
        """A copy of the transform. Setting it sets fromWorldToBlock to the inverse; raises ValueError for a matrix that
        has none.
        """
    @fromBlockToWorld.setter
    def fromBlockToWorld(self, value: mat4) -> None: ...
    @property
    def fromWorldToBlock(self) -> mat4:
        """The inverse of fromBlockToWorld, set in the same way."""
    @fromWorldToBlock.setter
    def fromWorldToBlock(self, value: mat4) -> None: ...
    @property
    def crosslineResolution(self) -> float:
        """Step of the crossline numbers from cell to cell (block x). Read-only."""
    @property
    def inlineResolution(self) -> float:
        """Step of the inline numbers from cell to cell (block y). Read-only."""
    @property
    def verticalResolution(self) -> float:
        """Step of the vertical samples from cell to cell (block z), in the survey's unit. Read-only."""

# Written by module/stubs/generate.py; do not edit.
import os
from typing import Any, Callable, Iterable, Iterator, Optional, Sequence, overload
from typing_extensions import Buffer

NO_VALUE: float
from . import utils as utils
from . import segy as segy

class IntArray:
    """A growable array of signed 32-bit integers in one block of memory: the carrier of whole numbers (indices,
    classes) between scripts and the application. Values beyond 32 bits raise OverflowError, floats TypeError.

    Elements are indexed from 0 to len() - 1; negative indices are not counted from the end. numpy.asarray(array) is
    a view of the same memory, without a copy; while it exists the array can not change its size. Can be copied and
    pickled.
    """
    @overload
    def __init__(self) -> None:
        """An empty array, or one of `size` zeros. Raises ValueError for a negative size and MemoryError when the memory
        is not to be had.
        """
    @overload
    def __init__(self, size: int) -> None: ...
    def __len__(self) -> int:
        """The number of elements."""
    def size(self) -> int:
        """The number of elements, as len() gives it."""
    def __str__(self) -> str:
        """The class and the number of elements."""
    def __repr__(self) -> str:
        """The class and the number of elements."""
    def __eq__(self, other: IntArray) -> bool:
        """True when both have the same number of elements and every pair is exactly equal (a not-a-number equals
        nothing). Arrays of another class are never equal.
        """
    def __neq__(self, other: IntArray) -> bool:
        """True when the arrays are equal, as == gives it; != is the operator for the opposite. Raises RuntimeError for
        None.
        """
    def __contains__(self, value: int) -> bool:
        """Whether an element equals `value`; searched from the start."""
    def __setitem__(self, index: int, value: int) -> None:
        """Replaces element `index`, 0 <= index < len(). Raises IndexError for any other index, also a negative one, and
        TypeError for a value of another type.
        """
    @overload
    def __getitem__(self, index: int) -> int:
        """Element `index`, 0 <= index < len(), or a list of the elements that a slice selects. Nothing is counted from
        the end: a negative index, or a slice that selects a position outside, raises IndexError.
        """
    @overload
    def __getitem__(self, index: slice) -> list: ...
    def resize(self, size: int) -> None:
        """Changes the number of elements to `size`; all of them are zero afterwards. Raises ValueError for a negative
        size, MemoryError when the memory is not to be had and BufferError while a view (a numpy array) uses the
        memory.
        """
    def index(self, value: int) -> int:
        """The position of the first element equal to `value`. Raises ValueError when there is none."""
    def rindex(self, value: int) -> int:
        """Not usable: raises IndexError for every array and value."""
    def reverse(self) -> None:
        """Reverses the order in place."""
    def append(self, value: int) -> None:
        """Adds one element at the end. Raises MemoryError when the memory is not to be had and BufferError while a view
        uses the memory.
        """
    def extend(self, sequence: Sequence[int]) -> None:
        """Adds every item of a sequence at the end. Memory of numbers (numpy arrays, array.array, other typed arrays)
        is copied at once, also from other widths and byte orders. Raises TypeError for an item of another type,
        MemoryError and BufferError as append; the array is unchanged then.
        """
    def clear(self) -> None:
        """Removes all elements and gives their memory back. Raises BufferError while a view uses the memory."""
    def sort(self) -> None:
        """Not implemented: raises NotImplementedError."""
    def __iter__(self) -> Iterator[int]:
        """The elements in order."""

class FloatArray:
    """A growable array of 32-bit floats in one block of memory: the carrier of samples, maps and attributes between
    scripts and the application. Numbers are rounded to 32 bits; beyond their range they become infinite.

    Elements are indexed from 0 to len() - 1; negative indices are not counted from the end. numpy.asarray(array) is
    a view of the same memory, without a copy; while it exists the array can not change its size. Can be copied and
    pickled.
    """
    @overload
    def __init__(self) -> None:
        """An empty array, or one of `size` zeros. Raises ValueError for a negative size and MemoryError when the memory
        is not to be had.
        """
    @overload
    def __init__(self, size: int) -> None: ...
    def __len__(self) -> int:
        """The number of elements."""
    def size(self) -> int:
        """The number of elements, as len() gives it."""
    def __str__(self) -> str:
        """The class and the number of elements."""
    def __repr__(self) -> str:
        """The class and the number of elements."""
    def __eq__(self, other: FloatArray) -> bool:
        """True when both have the same number of elements and every pair is exactly equal (a not-a-number equals
        nothing). Arrays of another class are never equal.
        """
    def __neq__(self, other: FloatArray) -> bool:
        """True when the arrays are equal, as == gives it; != is the operator for the opposite. Raises RuntimeError for
        None.
        """
    def __contains__(self, value: float) -> bool:
        """Whether an element equals `value`; searched from the start."""
    def __setitem__(self, index: int, value: float) -> None:
        """Replaces element `index`, 0 <= index < len(). Raises IndexError for any other index, also a negative one, and
        TypeError for a value of another type.
        """
    @overload
    def __getitem__(self, index: int) -> float:
        """Element `index`, 0 <= index < len(), or a list of the elements that a slice selects. Nothing is counted from
        the end: a negative index, or a slice that selects a position outside, raises IndexError.
        """
    @overload
    def __getitem__(self, index: slice) -> list: ...
    def resize(self, size: int) -> None:
        """Changes the number of elements to `size`; all of them are zero afterwards. Raises ValueError for a negative
        size, MemoryError when the memory is not to be had and BufferError while a view (a numpy array) uses the
        memory.
        """
    def index(self, value: float) -> int:
        """The position of the first element equal to `value`. Raises ValueError when there is none."""
    def rindex(self, value: float) -> int:
        """Not usable: raises IndexError for every array and value."""
    def reverse(self) -> None:
        """Reverses the order in place."""
    def append(self, value: float) -> None:
        """Adds one element at the end. Raises MemoryError when the memory is not to be had and BufferError while a view
        uses the memory.
        """
    def extend(self, sequence: Sequence[float]) -> None:
        """Adds every item of a sequence at the end. Memory of numbers (numpy arrays, array.array, other typed arrays)
        is copied at once, also from other widths and byte orders. Raises TypeError for an item of another type,
        MemoryError and BufferError as append; the array is unchanged then.
        """
    def clear(self) -> None:
        """Removes all elements and gives their memory back. Raises BufferError while a view uses the memory."""
    def sort(self) -> None:
        """Not implemented: raises NotImplementedError."""
    def __iter__(self) -> Iterator[float]:
        """The elements in order."""

class DoubleArray:
    """A growable array of 64-bit floats in one block of memory: the carrier of coordinates and other exact numbers
    between scripts and the application.

    Elements are indexed from 0 to len() - 1; negative indices are not counted from the end. numpy.asarray(array) is
    a view of the same memory, without a copy; while it exists the array can not change its size. Can be copied and
    pickled.
    """
    @overload
    def __init__(self) -> None:
        """An empty array, or one of `size` zeros. Raises ValueError for a negative size and MemoryError when the memory
        is not to be had.
        """
    @overload
    def __init__(self, size: int) -> None: ...
    def __len__(self) -> int:
        """The number of elements."""
    def size(self) -> int:
        """The number of elements, as len() gives it."""
    def __str__(self) -> str:
        """The class and the number of elements."""
    def __repr__(self) -> str:
        """The class and the number of elements."""
    def __eq__(self, other: DoubleArray) -> bool:
        """True when both have the same number of elements and every pair is exactly equal (a not-a-number equals
        nothing). Arrays of another class are never equal.
        """
    def __neq__(self, other: DoubleArray) -> bool:
        """True when the arrays are equal, as == gives it; != is the operator for the opposite. Raises RuntimeError for
        None.
        """
    def __contains__(self, value: float) -> bool:
        """Whether an element equals `value`; searched from the start."""
    def __setitem__(self, index: int, value: float) -> None:
        """Replaces element `index`, 0 <= index < len(). Raises IndexError for any other index, also a negative one, and
        TypeError for a value of another type.
        """
    @overload
    def __getitem__(self, index: int) -> float:
        """Element `index`, 0 <= index < len(), or a list of the elements that a slice selects. Nothing is counted from
        the end: a negative index, or a slice that selects a position outside, raises IndexError.
        """
    @overload
    def __getitem__(self, index: slice) -> list: ...
    def resize(self, size: int) -> None:
        """Changes the number of elements to `size`; all of them are zero afterwards. Raises ValueError for a negative
        size, MemoryError when the memory is not to be had and BufferError while a view (a numpy array) uses the
        memory.
        """
    def index(self, value: float) -> int:
        """The position of the first element equal to `value`. Raises ValueError when there is none."""
    def rindex(self, value: float) -> int:
        """Not usable: raises IndexError for every array and value."""
    def reverse(self) -> None:
        """Reverses the order in place."""
    def append(self, value: float) -> None:
        """Adds one element at the end. Raises MemoryError when the memory is not to be had and BufferError while a view
        uses the memory.
        """
    def extend(self, sequence: Sequence[float]) -> None:
        """Adds every item of a sequence at the end. Memory of numbers (numpy arrays, array.array, other typed arrays)
        is copied at once, also from other widths and byte orders. Raises TypeError for an item of another type,
        MemoryError and BufferError as append; the array is unchanged then.
        """
    def clear(self) -> None:
        """Removes all elements and gives their memory back. Raises BufferError while a view uses the memory."""
    def sort(self) -> None:
        """Not implemented: raises NotImplementedError."""
    def __iter__(self) -> Iterator[float]:
        """The elements in order."""

class Vec3Array:
    """A growable array of vec3 points in one block of memory: the carrier of point sets between scripts and the
    application. Elements are read and written by copy: changing a vec3 got from the array does not change the array.
    As a buffer (numpy.asarray) it is of shape (n, 3).

    Elements are indexed from 0 to len() - 1; negative indices are not counted from the end. numpy.asarray(array) is
    a view of the same memory, without a copy; while it exists the array can not change its size. Can be copied and
    pickled.
    """
    @overload
    def __init__(self) -> None:
        """An empty array, or one of `size` zeros. Raises ValueError for a negative size and MemoryError when the memory
        is not to be had.
        """
    @overload
    def __init__(self, size: int) -> None: ...
    def __len__(self) -> int:
        """The number of elements."""
    def size(self) -> int:
        """The number of elements, as len() gives it."""
    def __str__(self) -> str:
        """The class and the number of elements."""
    def __repr__(self) -> str:
        """The class and the number of elements."""
    def __eq__(self, other: Vec3Array) -> bool:
        """True when both have the same number of elements and every pair is exactly equal (a not-a-number equals
        nothing). Arrays of another class are never equal.
        """
    def __neq__(self, other: Vec3Array) -> bool:
        """True when the arrays are equal, as == gives it; != is the operator for the opposite. Raises RuntimeError for
        None.
        """
    def __contains__(self, value: vec3) -> bool:
        """Whether an element equals `value`; searched from the start."""
    def __setitem__(self, index: int, value: vec3) -> None:
        """Replaces element `index`, 0 <= index < len(). Raises IndexError for any other index, also a negative one, and
        TypeError for a value of another type.
        """
    @overload
    def __getitem__(self, index: int) -> vec3:
        """Element `index`, 0 <= index < len(), or a list of the elements that a slice selects. Nothing is counted from
        the end: a negative index, or a slice that selects a position outside, raises IndexError.
        """
    @overload
    def __getitem__(self, index: slice) -> list: ...
    def resize(self, size: int) -> None:
        """Changes the number of elements to `size`; all of them are zero afterwards. Raises ValueError for a negative
        size, MemoryError when the memory is not to be had and BufferError while a view (a numpy array) uses the
        memory.
        """
    def index(self, value: vec3) -> int:
        """The position of the first element equal to `value`. Raises ValueError when there is none."""
    def rindex(self, value: vec3) -> int:
        """Not usable: raises IndexError for every array and value."""
    def reverse(self) -> None:
        """Reverses the order in place."""
    def append(self, value: vec3) -> None:
        """Adds one element at the end. Raises MemoryError when the memory is not to be had and BufferError while a view
        uses the memory.
        """
    def extend(self, sequence: Sequence[vec3]) -> None:
        """Adds every item of a sequence at the end. Memory of numbers (numpy arrays of shape (n, 3), array.array, other
        typed arrays) is copied at once, also from other widths and byte orders. Raises TypeError for an item of
        another type, MemoryError and BufferError as append; the array is unchanged then.
        """
    def clear(self) -> None:
        """Removes all elements and gives their memory back. Raises BufferError while a view uses the memory."""
    def sort(self) -> None:
        """Not implemented: raises NotImplementedError."""
    def __iter__(self) -> Iterator[vec3]:
        """The elements in order."""

class vec2:
    """A vector of 2 floats: a point or a direction in the plane. Vectors are compared and hashed by identity."""
    @overload
    def __init__(self) -> None:
        """All components are 0."""
    @overload
    def __init__(self, x: float, y: float) -> None:
        """A vector of these components."""
    def __getitem__(self, index: int) -> float:
        """The component. Raises IndexError when there is none, OverflowError for a negative index."""
    def __setitem__(self, index: int, value: float) -> None:
        """Sets the component. Raises IndexError when there is none, OverflowError for a negative index."""
    def __add__(self, other: vec2) -> vec2:
        """Component-wise sum."""
    def __sub__(self, other: vec2) -> vec2:
        """Component-wise difference."""
    @overload
    def __mul__(self, other: vec2) -> float:
        """The dot product, the scaled vector, or the transposed matrix applied to the vector."""
    @overload
    def __mul__(self, factor: float) -> vec2: ...
    @overload
    def __mul__(self, matrix: mat3) -> vec2: ...
    def __rmul__(self, matrix: mat3) -> vec2:
        """The matrix applied to the vector."""
    def __truediv__(self, divisor: float) -> vec2:
        """Component-wise division. Raises ZeroDivisionError."""
    def __neg__(self) -> vec2:
        """The opposite vector."""
    def __iadd__(self, other: vec2) -> vec2:
        """Adds in place."""
    def __isub__(self, other: vec2) -> vec2:
        """Subtracts in place."""
    def __imul__(self, factor: float) -> vec2:
        """Scales in place."""
    def __itruediv__(self, divisor: float) -> vec2:
        """Divides in place. Raises ZeroDivisionError."""
    def __xor__(self, other: vec2) -> vec3:
        """The cross product."""
    def __str__(self) -> str: ...
    def __repr__(self) -> str: ...
    @property
    def length(self) -> float:
        """The Euclidean length."""
    @property
    def lengthSquared(self) -> float:
        """The sum of the squared components."""
    def normalize(self) -> vec2:
        """Divides the vector by its length, in place, and returns it. The zero vector becomes not-a-number."""
    @property
    def x(self) -> float:
        """The first component."""
    @x.setter
    def x(self, value: float) -> None: ...
    @property
    def y(self) -> float:
        """The second component."""
    @y.setter
    def y(self, value: float) -> None: ...

class vec3:
    """A vector of 3 floats: a point or a direction in space. Vectors are compared and hashed by identity."""
    @overload
    def __init__(self) -> None:
        """All components are 0."""
    @overload
    def __init__(self, x: float, y: float, z: float) -> None:
        """A vector of these components."""
    def __getitem__(self, index: int) -> float:
        """The component. Raises IndexError when there is none, OverflowError for a negative index."""
    def __setitem__(self, index: int, value: float) -> None:
        """Sets the component. Raises IndexError when there is none, OverflowError for a negative index."""
    def __add__(self, other: vec3) -> vec3:
        """Component-wise sum."""
    def __sub__(self, other: vec3) -> vec3:
        """Component-wise difference."""
    @overload
    def __mul__(self, other: vec3) -> float:
        """The dot product, the scaled vector, or the transposed matrix applied to the vector."""
    @overload
    def __mul__(self, factor: float) -> vec3: ...
    @overload
    def __mul__(self, matrix: mat4) -> vec3: ...
    def __rmul__(self, matrix: mat4) -> vec3:
        """The matrix applied to the vector."""
    def __truediv__(self, divisor: float) -> vec3:
        """Component-wise division. Raises ZeroDivisionError."""
    def __neg__(self) -> vec3:
        """The opposite vector."""
    def __iadd__(self, other: vec3) -> vec3:
        """Adds in place."""
    def __isub__(self, other: vec3) -> vec3:
        """Subtracts in place."""
    def __imul__(self, factor: float) -> vec3:
        """Scales in place."""
    def __itruediv__(self, divisor: float) -> vec3:
        """Divides in place. Raises ZeroDivisionError."""
    def __xor__(self, other: vec3) -> vec3:
        """The cross product."""
    def __str__(self) -> str: ...
    def __repr__(self) -> str: ...
    @property
    def length(self) -> float:
        """The Euclidean length."""
    @property
    def lengthSquared(self) -> float:
        """The sum of the squared components."""
    def normalize(self) -> vec3:
        """Divides the vector by its length, in place, and returns it. The zero vector becomes not-a-number."""
    @property
    def x(self) -> float:
        """The first component."""
    @x.setter
    def x(self, value: float) -> None: ...
    @property
    def y(self) -> float:
        """The second component."""
    @y.setter
    def y(self, value: float) -> None: ...
    @property
    def z(self) -> float:
        """The third component."""
    @z.setter
    def z(self, value: float) -> None: ...

class vec4:
    """A vector of 4 floats: four numbers, such as a point in homogeneous coordinates. Vectors are compared and hashed
    by identity.
    """
    @overload
    def __init__(self) -> None:
        """All components are 0."""
    @overload
    def __init__(self, x: float, y: float, z: float, w: float) -> None:
        """A vector of these components."""
    def __getitem__(self, index: int) -> float:
        """The component. Raises IndexError when there is none, OverflowError for a negative index."""
    def __setitem__(self, index: int, value: float) -> None:
        """Sets the component. Raises IndexError when there is none, OverflowError for a negative index."""
    def __add__(self, other: vec4) -> vec4:
        """Component-wise sum."""
    def __sub__(self, other: vec4) -> vec4:
        """Component-wise difference."""
    @overload
    def __mul__(self, other: vec4) -> float:
        """The dot product, the scaled vector, or the transposed matrix applied to the vector."""
    @overload
    def __mul__(self, factor: float) -> vec4: ...
    @overload
    def __mul__(self, matrix: mat4) -> vec4: ...
    def __rmul__(self, matrix: mat4) -> vec4:
        """The matrix applied to the vector."""
    def __truediv__(self, divisor: float) -> vec4:
        """Component-wise division. Raises ZeroDivisionError."""
    def __neg__(self) -> vec4:
        """The opposite vector."""
    def __iadd__(self, other: vec4) -> vec4:
        """Adds in place."""
    def __isub__(self, other: vec4) -> vec4:
        """Subtracts in place."""
    def __imul__(self, factor: float) -> vec4:
        """Scales in place."""
    def __itruediv__(self, divisor: float) -> vec4:
        """Divides in place. Raises ZeroDivisionError."""
    def __str__(self) -> str: ...
    def __repr__(self) -> str: ...
    @property
    def length(self) -> float:
        """The Euclidean length."""
    @property
    def lengthSquared(self) -> float:
        """The sum of the squared components."""
    def normalize(self) -> vec4:
        """Divides the vector by its length, in place, and returns it. The zero vector becomes not-a-number."""
    @property
    def x(self) -> float:
        """The first component."""
    @x.setter
    def x(self, value: float) -> None: ...
    @property
    def y(self) -> float:
        """The second component."""
    @y.setter
    def y(self, value: float) -> None: ...
    @property
    def z(self) -> float:
        """The third component."""
    @z.setter
    def z(self, value: float) -> None: ...
    @property
    def w(self) -> float:
        """The fourth component."""
    @w.setter
    def w(self, value: float) -> None: ...

class mat3:
    """A 3 x 3 matrix of floats, row by row. It acts on column vectors: matrix * vector. Matrices are compared element
    by element and hashed by identity.
    """
    @overload
    def __init__(self) -> None:
        """All elements are 0."""
    @overload
    def __init__(self, value: float) -> None:
        """All elements are value."""
    @overload
    def __init__(self, row0: vec3, row1: vec3, row2: vec3) -> None:
        """A matrix of these rows."""
    def __getitem__(self, row: int) -> vec3:
        """The row, as a reference: what is assigned to its components changes the matrix. Raises IndexError when there
        is no such row.
        """
    def __setitem__(self, row: int, value: vec3) -> None:
        """Replaces the row. Raises IndexError when there is no such row."""
    def __add__(self, other: mat3) -> mat3:
        """Element-wise sum."""
    def __sub__(self, other: mat3) -> mat3:
        """Element-wise difference."""
    @overload
    def __mul__(self, other: mat3) -> mat3:
        """The matrix product, or the scaled matrix."""
    @overload
    def __mul__(self, factor: float) -> mat3: ...
    def __rmul__(self, factor: float) -> mat3:
        """The scaled matrix."""
    def __truediv__(self, divisor: float) -> mat3:
        """Every element times 1 / divisor; zero gives infinities."""
    def __iadd__(self, other: mat3) -> mat3:
        """Adds in place."""
    def __isub__(self, other: mat3) -> mat3:
        """Subtracts in place."""
    def __imul__(self, factor: float) -> mat3:
        """Scales in place."""
    def __str__(self) -> str: ...
    def __repr__(self) -> str: ...
    @property
    def determinant(self) -> float:
        """The determinant."""
    def transpose(self) -> mat3:
        """The transposed matrix; this one is not changed."""
    def isInvertible(self) -> bool:
        """True when the determinant is not exactly 0."""
    def invert(self) -> mat3:
        """The inverse matrix; this one is not changed. Raises RuntimeError when the determinant is exactly 0."""
    def __idiv__(self, divisor: float) -> mat3:
        """Divides in place and returns the matrix; zero gives infinities. The operator /= makes a new matrix instead."""
    def __eq__(self, other: object) -> bool: ...
    def __ne__(self, other: object) -> bool: ...

class mat4:
    """A 4 x 4 matrix of floats, row by row. It acts on column vectors: matrix * vector. Matrices are compared and
    hashed by identity.
    """
    @overload
    def __init__(self) -> None:
        """All elements are 0."""
    @overload
    def __init__(self, value: float) -> None:
        """All elements are value."""
    @overload
    def __init__(self, row0: vec4, row1: vec4, row2: vec4, row3: vec4) -> None:
        """A matrix of these rows."""
    def __getitem__(self, row: int) -> vec4:
        """The row, as a reference: what is assigned to its components changes the matrix. Raises IndexError when there
        is no such row.
        """
    def __setitem__(self, row: int, value: vec4) -> None:
        """Replaces the row. Raises IndexError when there is no such row."""
    def __add__(self, other: mat4) -> mat4:
        """Element-wise sum."""
    def __sub__(self, other: mat4) -> mat4:
        """Element-wise difference."""
    @overload
    def __mul__(self, other: mat4) -> mat4:
        """The matrix product, or the scaled matrix."""
    @overload
    def __mul__(self, factor: float) -> mat4: ...
    def __rmul__(self, factor: float) -> mat4:
        """The scaled matrix."""
    def __truediv__(self, divisor: float) -> mat4:
        """Every element times 1 / divisor; zero gives infinities."""
    def __iadd__(self, other: mat4) -> mat4:
        """Adds in place."""
    def __isub__(self, other: mat4) -> mat4:
        """Subtracts in place."""
    def __imul__(self, factor: float) -> mat4:
        """Scales in place."""
    def __str__(self) -> str: ...
    def __repr__(self) -> str: ...
    @property
    def determinant(self) -> float:
        """The determinant."""
    def transpose(self) -> mat4:
        """The transposed matrix; this one is not changed."""
    def isInvertible(self) -> bool:
        """True when the determinant is not exactly 0."""
    def invert(self) -> mat4:
        """The inverse matrix; this one is not changed. Raises RuntimeError when the determinant is exactly 0."""
    def __idiv__(self, divisor: float) -> mat4:
        """Divides in place and returns the matrix; zero gives infinities. The operator /= makes a new matrix instead."""

class Rect2D:
    """A closed rectangle of floats given by its edges; touching rectangles intersect. Rectangles are compared and
    hashed by identity.
    """
    @overload
    def __init__(self) -> None:
        """All edges are 0."""
    @overload
    def __init__(self, topLeft: vec2, bottomRight: vec2) -> None:
        """The rectangle between two opposite corners."""
    def isValid(self) -> bool:
        """True when no extent is negative."""
    def isNull(self) -> bool:
        """True when all extents are exactly 0."""
    def intersects(self, other: Rect2D) -> bool:
        """True when the two have a point in common; touching is enough."""
    def intersection(self, other: Rect2D) -> Rect2D:
        """What the two have in common; not valid when that is nothing."""
    def __str__(self) -> str: ...
    def __repr__(self) -> str: ...
    @property
    def left(self) -> float:
        """The left edge (x)."""
    @left.setter
    def left(self, value: float) -> None: ...
    @property
    def top(self) -> float:
        """The top edge (y), the smaller one of a valid rectangle."""
    @top.setter
    def top(self, value: float) -> None: ...
    @property
    def right(self) -> float:
        """The right edge (x)."""
    @right.setter
    def right(self, value: float) -> None: ...
    @property
    def bottom(self) -> float:
        """The bottom edge (y), the larger one of a valid rectangle."""
    @bottom.setter
    def bottom(self, value: float) -> None: ...
    @property
    def width(self) -> float:
        """right - left. Setting it moves the right edge."""
    @width.setter
    def width(self, value: float) -> None: ...
    @property
    def height(self) -> float:
        """bottom - top. Setting it moves the bottom edge."""
    @height.setter
    def height(self, value: float) -> None: ...
    @property
    def topLeft(self) -> vec2:
        """The corner (left, top). Setting it moves these two edges."""
    @topLeft.setter
    def topLeft(self, value: vec2) -> None: ...
    @property
    def bottomLeft(self) -> vec2:
        """The corner (left, bottom). Setting it moves these two edges."""
    @bottomLeft.setter
    def bottomLeft(self, value: vec2) -> None: ...
    @property
    def topRight(self) -> vec2:
        """The corner (right, top). Setting it moves these two edges."""
    @topRight.setter
    def topRight(self, value: vec2) -> None: ...
    @property
    def bottomRight(self) -> vec2:
        """The corner (right, bottom). Setting it moves these two edges."""
    @bottomRight.setter
    def bottomRight(self, value: vec2) -> None: ...
    @property
    def center(self) -> vec2:
        """The middle of the rectangle."""

class Rect3D:
    """A closed box of floats given by its faces; touching boxes intersect. Boxes are compared number by number and
    hashed by identity.
    """
    @overload
    def __init__(self) -> None:
        """All faces are 0."""
    @overload
    def __init__(self, topLeftFront: vec3, bottomRightBack: vec3) -> None:
        """The box between two opposite corners."""
    def isValid(self) -> bool:
        """True when no extent is negative."""
    def isNull(self) -> bool:
        """True when all extents are exactly 0."""
    def intersects(self, other: Rect3D) -> bool:
        """True when the two have a point in common; touching is enough."""
    def intersection(self, other: Rect3D) -> Rect3D:
        """What the two have in common; not valid when that is nothing."""
    def __str__(self) -> str: ...
    def __repr__(self) -> str: ...
    def __eq__(self, other: object) -> bool: ...
    def __ne__(self, other: object) -> bool: ...
    @property
    def left(self) -> float:
        """The left face (x)."""
    @left.setter
    def left(self, value: float) -> None: ...
    @property
    def top(self) -> float:
        """The top face (y), the smaller one of a valid box."""
    @top.setter
    def top(self, value: float) -> None: ...
    @property
    def front(self) -> float:
        """The front face (z), the smaller one of a valid box."""
    @front.setter
    def front(self, value: float) -> None: ...
    @property
    def right(self) -> float:
        """The right face (x)."""
    @right.setter
    def right(self, value: float) -> None: ...
    @property
    def bottom(self) -> float:
        """The bottom face (y), the larger one of a valid box."""
    @bottom.setter
    def bottom(self, value: float) -> None: ...
    @property
    def back(self) -> float:
        """The back face (z), the larger one of a valid box."""
    @back.setter
    def back(self, value: float) -> None: ...
    @property
    def width(self) -> float:
        """right - left. Setting it moves the right face."""
    @width.setter
    def width(self, value: float) -> None: ...
    @property
    def height(self) -> float:
        """bottom - top. Setting it moves the bottom face."""
    @height.setter
    def height(self, value: float) -> None: ...
    @property
    def depth(self) -> float:
        """back - front. Setting it moves the back face."""
    @depth.setter
    def depth(self, value: float) -> None: ...
    @property
    def center(self) -> vec3:
        """The middle of the box."""

class Key(int):
    """A key of the keyboard. Letter keys have no name; they are the number of the capital letter: event.key ==
    ord('A').
    """
    names: dict[str, Key]
    values: dict[int, Key]
    name: str
    Space: Key  # 32
    ExclamationPoint: Key  # 33
    DoubleQuote: Key  # 34
    NumberSign: Key  # 35
    Dollar: Key  # 36
    Percent: Key  # 37
    Ampersand: Key  # 38
    Apostrophe: Key  # 39
    LeftParen: Key  # 40
    RightParen: Key  # 41
    Plus: Key  # 43
    Comma: Key  # 44
    Minus: Key  # 45
    Period: Key  # 46
    Slash: Key  # 47
    Number_0: Key  # 48
    Number_1: Key  # 49
    Number_2: Key  # 50
    Number_3: Key  # 51
    Number_4: Key  # 52
    Number_5: Key  # 53
    Number_6: Key  # 54
    Number_7: Key  # 55
    Number_8: Key  # 56
    Number_9: Key  # 57
    Colon: Key  # 58
    SemiColon: Key  # 59
    Less: Key  # 60
    Equal: Key  # 61
    Greater: Key  # 62
    QuestionMark: Key  # 63
    at: Key  # 64
    LeftBracket: Key  # 91
    Backslash: Key  # 92
    RightBracket: Key  # 93
    Underscore: Key  # 95
    QuoteLeft: Key  # 96
    BraceLeft: Key  # 123
    BraceRight: Key  # 125
    Tilde: Key  # 126
    Escape: Key  # 16777216
    Tab: Key  # 16777217
    Backtab: Key  # 16777218
    Backspace: Key  # 16777219
    Return: Key  # 16777220
    Enter: Key  # 16777221
    Insert: Key  # 16777222
    Delete: Key  # 16777223
    Pause: Key  # 16777224
    Print: Key  # 16777225
    Clear: Key  # 16777227
    Home: Key  # 16777232
    End: Key  # 16777233
    Up: Key  # 16777235
    Down: Key  # 16777237
    PageUp: Key  # 16777238
    PageDown: Key  # 16777239
    Shift: Key  # 16777248
    Control: Key  # 16777249
    Meta: Key  # 16777250
    Alt: Key  # 16777251
    CapsLock: Key  # 16777252
    NumLock: Key  # 16777253
    ScrollLock: Key  # 16777254
    F1: Key  # 16777264
    F2: Key  # 16777265
    F3: Key  # 16777266
    F4: Key  # 16777267
    F5: Key  # 16777268
    F6: Key  # 16777269
    F7: Key  # 16777270
    F8: Key  # 16777271
    F9: Key  # 16777272
    F10: Key  # 16777273
    F11: Key  # 16777274
    F12: Key  # 16777275

class MouseMode(int):
    """What the mouse does in a viewer."""
    names: dict[str, MouseMode]
    values: dict[int, MouseMode]
    name: str
    Unknown: MouseMode  # 0
    Selection: MouseMode  # 1
    SquareSelection: MouseMode  # 2
    CrossNavigation: MouseMode  # 3
    Translation: MouseMode  # 4
    Zoom: MouseMode  # 5

class ScrollDirection(int):
    """Where a turn of the mouse wheel scrolls to."""
    names: dict[str, ScrollDirection]
    values: dict[int, ScrollDirection]
    name: str
    Down: ScrollDirection  # 0
    Up: ScrollDirection  # 1
    NoDirection: ScrollDirection  # 2
    Left: ScrollDirection  # 3
    Right: ScrollDirection  # 4

class EventType(int):
    """The kind of an event."""
    names: dict[str, EventType]
    values: dict[int, EventType]
    name: str
    MouseButtonPress: EventType  # 2
    MouseButtonRelease: EventType  # 3
    MouseMove: EventType  # 5
    KeyPress: EventType  # 6
    KeyRelease: EventType  # 7
    Enter: EventType  # 10
    Show: EventType  # 17
    Hide: EventType  # 18
    Close: EventType  # 19
    Wheel: EventType  # 31
    DragEnter: EventType  # 60
    DragMove: EventType  # 61
    DragLeave: EventType  # 62
    Drop: EventType  # 63
    Scroll: EventType  # 205

class KeyboardModifiers(int):
    """The keys held down during an event. Several are combined with |; & tells whether one is among them."""
    names: dict[str, KeyboardModifiers]
    values: dict[int, KeyboardModifiers]
    name: str
    NoModifier: KeyboardModifiers  # 0
    Shift: KeyboardModifiers  # 33554432
    Control: KeyboardModifiers  # 67108864
    Alt: KeyboardModifiers  # 134217728
    Meta: KeyboardModifiers  # 268435456
    Keypad: KeyboardModifiers  # 536870912

class MouseButton(int):
    """A button of the mouse."""
    names: dict[str, MouseButton]
    values: dict[int, MouseButton]
    name: str
    NoButton: MouseButton  # 0
    Left: MouseButton  # 1
    Right: MouseButton  # 2
    Middle: MouseButton  # 4

class Modality(int):
    """Which windows wait while a dialog is open."""
    names: dict[str, Modality]
    values: dict[int, Modality]
    name: str
    NonModal: Modality  # 0
    Window: Modality  # 1
    Application: Modality  # 2

class DialogResponse(int):
    """How a dialog was closed."""
    names: dict[str, DialogResponse]
    values: dict[int, DialogResponse]
    name: str
    Rejected: DialogResponse  # 0
    Accepted: DialogResponse  # 1

class Align(int):
    """Where something stands in its place. A horizontal and a vertical one are combined with |: Align.Left | Align.Top.
    Leading and Trailing are other names of Left and Right.
    """
    names: dict[str, Align]
    values: dict[int, Align]
    name: str
    Left: Align  # 1
    Leading: Align  # 1
    Right: Align  # 2
    Trailing: Align  # 2
    HCenter: Align  # 4
    Justify: Align  # 8
    Absolute: Align  # 16
    Top: Align  # 32
    Bottom: Align  # 64
    VCenter: Align  # 128
    Center: Align  # 132
    Baseline: Align  # 256

class CheckState(int):
    """The state of a check box."""
    names: dict[str, CheckState]
    values: dict[int, CheckState]
    name: str
    Unchecked: CheckState  # 0
    PartiallyChecked: CheckState  # 1
    Checked: CheckState  # 2

class Orientation(int):
    """The direction in which a slider or a splitter lies."""
    names: dict[str, Orientation]
    values: dict[int, Orientation]
    name: str
    Horizontal: Orientation  # 1
    Vertical: Orientation  # 2

class ComboBoxSizePolicy(int):
    """How a combo box finds its width."""
    names: dict[str, ComboBoxSizePolicy]
    values: dict[int, ComboBoxSizePolicy]
    name: str
    AdjustToContents: ComboBoxSizePolicy  # 0
    AdjustToContentsOnFirstShow: ComboBoxSizePolicy  # 1
    AdjustToMinimumContentsLength: ComboBoxSizePolicy  # 2
    AdjustToMinimumContentsLengthWithIcon: ComboBoxSizePolicy  # 3

class FileDialogType(int):
    """What a file chooser is for."""
    names: dict[str, FileDialogType]
    values: dict[int, FileDialogType]
    name: str
    Open: FileDialogType  # 0
    Save: FileDialogType  # 1

class ScrollSizeAdjust(int):
    """How a scroll area finds its size."""
    names: dict[str, ScrollSizeAdjust]
    values: dict[int, ScrollSizeAdjust]
    name: str
    AdjustIgnored: ScrollSizeAdjust  # 0
    AdjustToContentsOnFirstShow: ScrollSizeAdjust  # 1
    AdjustToContents: ScrollSizeAdjust  # 2

class ScrollBarPolicy(int):
    """When a scroll bar is shown."""
    names: dict[str, ScrollBarPolicy]
    values: dict[int, ScrollBarPolicy]
    name: str
    AsNeeded: ScrollBarPolicy  # 0
    AlwaysOff: ScrollBarPolicy  # 1
    AlwaysOn: ScrollBarPolicy  # 2

class ScrollEventState(int):
    """The phase of a scroll gesture."""
    names: dict[str, ScrollEventState]
    values: dict[int, ScrollEventState]
    name: str
    Started: ScrollEventState  # 0
    Updated: ScrollEventState  # 1
    Finished: ScrollEventState  # 2

class SliderTickPosition(int):
    """Where a slider has its tick marks. The sides of a vertical slider are other names of those of a horizontal one:
    TicksLeft of TicksAbove, TicksRight of TicksBelow.
    """
    names: dict[str, SliderTickPosition]
    values: dict[int, SliderTickPosition]
    name: str
    NoTicks: SliderTickPosition  # 0
    TicksAbove: SliderTickPosition  # 1
    TicksLeft: SliderTickPosition  # 1
    TicksBelow: SliderTickPosition  # 2
    TicksRight: SliderTickPosition  # 2
    TicksBothSides: SliderTickPosition  # 3

class FrameShadow(int):
    """How the line of a frame stands out."""
    names: dict[str, FrameShadow]
    values: dict[int, FrameShadow]
    name: str
    Plain: FrameShadow  # 16
    Raised: FrameShadow  # 32
    Sunken: FrameShadow  # 48

class FrameShape(int):
    """The form of a frame."""
    names: dict[str, FrameShape]
    values: dict[int, FrameShape]
    name: str
    NoFrame: FrameShape  # 0
    Box: FrameShape  # 1
    Panel: FrameShape  # 2
    WinPanel: FrameShape  # 3
    HLine: FrameShape  # 4
    VLine: FrameShape  # 5
    StyledPanel: FrameShape  # 6

class TextFormat(int):
    """How a text is read: as it is, as HTML, or as what it looks like."""
    names: dict[str, TextFormat]
    values: dict[int, TextFormat]
    name: str
    PlainText: TextFormat  # 0
    RichText: TextFormat  # 1
    AutoText: TextFormat  # 2

class PenStyle(int):
    """How lines are drawn."""
    names: dict[str, PenStyle]
    values: dict[int, PenStyle]
    name: str
    NoPen: PenStyle  # 0
    SolidLine: PenStyle  # 1
    DashLine: PenStyle  # 2
    DotLine: PenStyle  # 3
    DashDotLine: PenStyle  # 4
    DashDotDotLine: PenStyle  # 5

class Colors(int):
    """Colours that need no numbers. Each can stand wherever a Color is wanted."""
    names: dict[str, Colors]
    values: dict[int, Colors]
    name: str
    Black: Colors  # 2
    White: Colors  # 3
    DarkGray: Colors  # 4
    Gray: Colors  # 5
    LightGray: Colors  # 6
    Red: Colors  # 7
    Green: Colors  # 8
    Blue: Colors  # 9
    Cyan: Colors  # 10
    Magenta: Colors  # 11
    Yellow: Colors  # 12
    DarkRed: Colors  # 13
    DarkGreen: Colors  # 14
    DarkBlue: Colors  # 15
    DarkCyan: Colors  # 16
    DarkMagenta: Colors  # 17
    DarkYellow: Colors  # 18
    Transparent: Colors  # 19

class ImageConversion(int):
    """How an image is turned into one of fewer colours. One of each group is combined with |: colours, dithering of the
    alpha channel, dithering of the colours, when to dither. AutoColor, ThresholdAlphaDither, DiffuseDither and
    AutoDither are all 0, the usual choice.
    """
    names: dict[str, ImageConversion]
    values: dict[int, ImageConversion]
    name: str
    AutoColor: ImageConversion  # 0
    ThresholdAlphaDither: ImageConversion  # 0
    DiffuseDither: ImageConversion  # 0
    AutoDither: ImageConversion  # 0
    MonoOnly: ImageConversion  # 2
    ColorOnly: ImageConversion  # 3
    OrderedAlphaDither: ImageConversion  # 4
    DiffuseAlphaDither: ImageConversion  # 8
    OrderedDither: ImageConversion  # 16
    ThresholdDither: ImageConversion  # 32
    PreferDither: ImageConversion  # 64
    AvoidDither: ImageConversion  # 128
    NoOpaqueDetection: ImageConversion  # 256
    NoFormatConversion: ImageConversion  # 512

class Point:
    """A position in pixels, from the top left corner of a widget or of the screen. Wherever a Point is wanted a pair of
    ints can stand as well: (x, y). x, y = point unpacks it.
    """
    @overload
    def __init__(self, x: int = 0, y: int = 0) -> None:
        """Raises TypeError, and OverflowError beyond 32 bits."""
    @overload
    def __init__(self, other: Point | tuple[int, int]) -> None: ...
    def __repr__(self) -> str: ...
    def __eq__(self, other: object) -> bool: ...
    def __ne__(self, other: object) -> bool: ...
    def __getitem__(self, index: int) -> int:
        """The first (0) or second (1) number; a Point can be unpacked. Raises IndexError."""
    def __add__(self, other: Point) -> Point:
        """The sum. Raises OverflowError."""
    def __sub__(self, other: Point) -> Point:
        """The difference. Raises OverflowError."""
    def __mul__(self, factor: float) -> Point:
        """Scaled and rounded to the nearest whole numbers, halves up. Raises OverflowError."""
    def __rmul__(self, factor: float) -> Point:
        """Scaled, as with the factor on the right."""
    def __truediv__(self, divisor: float) -> Point:
        """Divided and rounded to the nearest whole numbers, halves up. Raises ZeroDivisionError, OverflowError."""
    def __neg__(self) -> Point:
        """The opposite."""
    @property
    def x(self) -> int:
        """Pixels to the right."""
    @x.setter
    def x(self, value: int) -> None: ...
    @property
    def y(self) -> int:
        """Pixels down."""
    @y.setter
    def y(self, value: int) -> None: ...

class PointF:
    """A position in pixels with fractions. Wherever a PointF is wanted a Point or a pair of numbers can stand as well.
    x, y = point unpacks it. Equality is exact.
    """
    @overload
    def __init__(self, x: float = 0, y: float = 0) -> None:
        """Raises TypeError."""
    @overload
    def __init__(self, other: PointF | Point | tuple[float, float]) -> None: ...
    def __repr__(self) -> str: ...
    def __eq__(self, other: object) -> bool: ...
    def __ne__(self, other: object) -> bool: ...
    def __getitem__(self, index: int) -> float:
        """The first (0) or second (1) number; a PointF can be unpacked. Raises IndexError."""
    def __add__(self, other: PointF) -> PointF:
        """The sum."""
    def __sub__(self, other: PointF) -> PointF:
        """The difference."""
    def __mul__(self, factor: float) -> PointF:
        """Scaled."""
    def __rmul__(self, factor: float) -> PointF:
        """Scaled, as with the factor on the right."""
    def __truediv__(self, divisor: float) -> PointF:
        """Divided. Raises ZeroDivisionError."""
    def __neg__(self) -> PointF:
        """The opposite."""
    @property
    def x(self) -> float:
        """Pixels to the right."""
    @x.setter
    def x(self, value: float) -> None: ...
    @property
    def y(self) -> float:
        """Pixels down."""
    @y.setter
    def y(self, value: float) -> None: ...

class Size:
    """A width and a height in pixels. Wherever a Size is wanted a pair of ints can stand as well: (width, height).
    width, height = size unpacks it.
    """
    @overload
    def __init__(self, width: int = 0, height: int = 0) -> None:
        """Raises TypeError, and OverflowError beyond 32 bits."""
    @overload
    def __init__(self, other: Size | tuple[int, int]) -> None: ...
    def __repr__(self) -> str: ...
    def __eq__(self, other: object) -> bool: ...
    def __ne__(self, other: object) -> bool: ...
    def __getitem__(self, index: int) -> int:
        """The first (0) or second (1) number; a Size can be unpacked. Raises IndexError."""
    def __add__(self, other: Size) -> Size:
        """The sum. Raises OverflowError."""
    def __sub__(self, other: Size) -> Size:
        """The difference. Raises OverflowError."""
    def __mul__(self, factor: float) -> Size:
        """Scaled and rounded to the nearest whole numbers, halves up. Raises OverflowError."""
    def __rmul__(self, factor: float) -> Size:
        """Scaled, as with the factor on the right."""
    def __truediv__(self, divisor: float) -> Size:
        """Divided and rounded to the nearest whole numbers, halves up. Raises ZeroDivisionError, OverflowError."""
    def __neg__(self) -> Size:
        """The opposite."""
    @property
    def width(self) -> int:
        """Pixels from left to right."""
    @width.setter
    def width(self, value: int) -> None: ...
    @property
    def height(self) -> int:
        """Pixels from top to bottom."""
    @height.setter
    def height(self, value: int) -> None: ...

class Rectangle:
    """A rectangle of whole pixels, given by its first pixel and its size. The last pixel is one less than the first
    plus the size, and topRight and bottomLeft are pixels inside.
    """
    @overload
    def __init__(self, x: int = 0, y: int = 0, width: int = 0, height: int = 0) -> None:
        """Raises TypeError, and OverflowError when an edge or the size does not fit 32 bits."""
    @overload
    def __init__(self, topLeft: Point | tuple[int, int], size: Size | tuple[int, int]) -> None: ...
    def __eq__(self, other: object) -> bool: ...
    def __ne__(self, other: object) -> bool: ...
    def __repr__(self) -> str: ...
    def contains(self, point: Point | tuple[int, int], proper: bool = False) -> bool:
        """True when the pixel is one of the rectangle's; with `proper` those on its edges do not count. Raises
        TypeError.
        """
    @property
    def topLeft(self) -> Point:
        """The first pixel. Setting it moves the left and the top edge."""
    @topLeft.setter
    def topLeft(self, value: Point) -> None: ...
    @property
    def topRight(self) -> Point:
        """The last pixel of the first row, at topLeft.x + width - 1. Setting it moves the right and the top edge."""
    @topRight.setter
    def topRight(self, value: Point) -> None: ...
    @property
    def bottomLeft(self) -> Point:
        """The first pixel of the last row, at topLeft.y + height - 1. Setting it moves the left and the bottom edge."""
    @bottomLeft.setter
    def bottomLeft(self, value: Point) -> None: ...
    @property
    def width(self) -> int:
        """The number of pixels in a row. Setting it moves the right edge."""
    @width.setter
    def width(self, value: int) -> None: ...
    @property
    def height(self) -> int:
        """The number of rows. Setting it moves the bottom edge."""
    @height.setter
    def height(self, value: int) -> None: ...
    @property
    def size(self) -> Size:
        """Width and height. Setting it moves the right and the bottom edge."""
    @size.setter
    def size(self, value: Size) -> None: ...

class Color:
    """A colour; alpha 255 is opaque. Wherever a Color is wanted there can stand as well one of Colors, a name
    ("#ff8000", "steelblue"), or a tuple (red, green, blue) or (red, green, blue, alpha).
    """
    @overload
    def __init__(self, red: int = 0, green: int = 0, blue: int = 0, alpha: int = 255) -> None:
        """Raises ValueError for a component outside 0 to 255."""
    @overload
    def __init__(self, color: Color | Colors | str | tuple[int, ...]) -> None:
        """The same colour. A name is "#rgb", "#rrggbb", "#aarrggbb" or one of SVG's. Raises ValueError for a name that
        is no colour.
        """
    @property
    def red(self) -> int:
        """Red, 0 to 255."""
    @red.setter
    def red(self, value: int) -> None: ...
    @property
    def redF(self) -> float:
        """Red, 0 to 1."""
    @redF.setter
    def redF(self, value: float) -> None: ...
    @property
    def blue(self) -> int:
        """Blue, 0 to 255."""
    @blue.setter
    def blue(self, value: int) -> None: ...
    @property
    def blueF(self) -> float:
        """Blue, 0 to 1."""
    @blueF.setter
    def blueF(self, value: float) -> None: ...
    @property
    def green(self) -> int:
        """Green, 0 to 255."""
    @green.setter
    def green(self, value: int) -> None: ...
    @property
    def greenF(self) -> float:
        """Green, 0 to 1."""
    @greenF.setter
    def greenF(self, value: float) -> None: ...
    @property
    def alpha(self) -> int:
        """Opacity, 0 (clear) to 255 (opaque)."""
    @alpha.setter
    def alpha(self, value: int) -> None: ...
    @property
    def alphaF(self) -> float:
        """Opacity, 0 (clear) to 1 (opaque)."""
    @alphaF.setter
    def alphaF(self, value: float) -> None: ...
    @property
    def name(self) -> str:
        """"#rrggbb", or "#aarrggbb" when it is not opaque. Read-only."""
    def __repr__(self) -> str: ...

class Pen:
    """A line style."""
    def __init__(self, color: Color = Color(0, 0, 0), width: float = 1, style: PenStyle = PenStyle.SolidLine) -> None:
        """Raises ValueError for a width outside 0 to 1000."""
    @property
    def style(self) -> PenStyle:
        """How the line is drawn."""
    @style.setter
    def style(self, value: PenStyle) -> None: ...
    @property
    def color(self) -> Color:
        """The line's colour. Reading gives a copy; assign it to change the pen."""
    @color.setter
    def color(self, value: Color) -> None: ...
    @property
    def width(self) -> float:
        """Width in pixels; 0 is the thinnest line that the display has."""
    @width.setter
    def width(self, value: float) -> None: ...
    def __repr__(self) -> str: ...

class Font:
    """A font of texts. A family that is not installed is replaced by the most similar one."""
    def __init__(self, family: str = '', pointSize: float | None = None, bold: bool = False, italic: bool = False, underline: bool = False) -> None:
        """Without a family or a size, that of the application's font. Raises ValueError for a size of 0 or less."""
    @property
    def family(self) -> str:
        """The name of the family, as asked for."""
    @family.setter
    def family(self, value: str) -> None: ...
    @property
    def pointSize(self) -> int:
        """The size in points, rounded; -1 when it is given in pixels."""
    @pointSize.setter
    def pointSize(self, value: int) -> None: ...
    @property
    def pointSizeF(self) -> float:
        """The size in points; -1 when it is given in pixels."""
    @pointSizeF.setter
    def pointSizeF(self, value: float) -> None: ...
    @property
    def pixelSize(self) -> int:
        """The size in pixels; -1 when it is given in points."""
    @pixelSize.setter
    def pixelSize(self, value: int) -> None: ...
    @property
    def bold(self) -> bool:
        """Heavier than normal. Setting it sets weight."""
    @bold.setter
    def bold(self, value: bool) -> None: ...
    @property
    def italic(self) -> bool:
        """Slanted."""
    @italic.setter
    def italic(self, value: bool) -> None: ...
    @property
    def underline(self) -> bool:
        """Underlined."""
    @underline.setter
    def underline(self, value: bool) -> None: ...
    @property
    def strikeOut(self) -> bool:
        """Struck through."""
    @strikeOut.setter
    def strikeOut(self, value: bool) -> None: ...
    @property
    def weight(self) -> int:
        """How heavy, 0 to 99: 25 light, 50 normal, 63 demi-bold, 75 bold, 87 black."""
    @weight.setter
    def weight(self, value: int) -> None: ...
    def __repr__(self) -> str: ...

class MimeData:
    """What is dragged: text, or objects of the project browser. A copy, which stays as it is when the drag is over."""
    def __init__(self) -> None:
        """Nothing."""
    @property
    def text(self) -> str:
        """The plain text, or the addresses of dragged files; empty when there is none."""
    @text.setter
    def text(self, value: str) -> None: ...
    @property
    def html(self) -> str:
        """The text with its formatting, as HTML; empty when there is none."""
    @html.setter
    def html(self, value: str) -> None: ...
    @property
    def hasText(self) -> bool:
        """True when there is plain text. Read-only."""
    @property
    def hasHtml(self) -> bool:
        """True when there is HTML. Read-only."""
    @property
    def hasObjects(self) -> bool:
        """True when objects of the project are dragged. Read-only."""
    @property
    def objectFilenames(self) -> list[str]:
        """The files of the dragged objects, absolute paths. Read-only."""
    @property
    def objectIds(self) -> list[ObjectId]:
        """The kinds of the dragged objects, in the order of objectFilenames. Read-only."""

class _QObject:
    """What menus, commands and windows have in common."""
    @property
    def deleted(self) -> bool:
        """Whether the application has destroyed what this object stands for; everything else then raises RuntimeError.
        Read-only.
        """

class _QEvent:
    """Something that happened to a widget. Only valid inside the handler that gets it."""
    @property
    def eventType(self) -> EventType:
        """What happened. Read-only."""
    @property
    def accepted(self) -> bool:
        """Whether the event counts as used; what is not goes on to the widget around. Read-only."""
    def accept(self) -> None:
        """The event is used and goes no further."""
    def ignore(self) -> None:
        """The event is not used: it goes on to the widget around, a window refuses to close, something dragged can not
        be dropped.
        """

class CloseEvent(_QEvent):
    """A window is about to close; ignore() keeps it open."""

class ShowEvent(_QEvent):
    """A widget appears."""

class HideEvent(_QEvent):
    """A widget disappears."""

class MoveEvent(_QEvent):
    """A widget has moved in the widget around, or a window on the screen."""
    @property
    def position(self) -> Point:
        """Where it is now. Read-only."""
    @property
    def oldPosition(self) -> Point:
        """Where it was. Read-only."""

class ResizeEvent(_QEvent):
    """A widget has got another size."""
    @property
    def size(self) -> Size:
        """Size now, in pixels. Read-only."""
    @property
    def oldSize(self) -> Size:
        """Size before, (-1, -1) for the first time. Read-only."""

class DropEvent(_QEvent):
    """Something dragged is dropped on the widget."""
    @property
    def mimeData(self) -> MimeData:
        """A copy of what is dragged. Read-only."""
    @property
    def position(self) -> Point:
        """Place in the widget. Read-only."""

class DragMoveEvent(DropEvent):
    """Something dragged moves over the widget."""
    @property
    def rectangle(self) -> Rectangle:
        """The part of the widget for which the answer holds. Read-only."""
    def acceptRectangle(self, rectangle: Rectangle) -> None:
        """What is dragged can be dropped anywhere in the rectangle."""
    def ignoreRectangle(self, rectangle: Rectangle) -> None:
        """What is dragged can not be dropped in the rectangle."""

class DragEnterEvent(DragMoveEvent):
    """Something dragged comes over the widget; accept() lets it be dropped."""

class DragLeaveEvent(_QEvent):
    """Something dragged has left the widget."""

class InputEvent(_QEvent):
    """Something done with keyboard or mouse."""
    @property
    def modifiers(self) -> KeyboardModifiers:
        """The keys held down, combined by '|'. Read-only."""

class KeyEvent(InputEvent):
    """A key is pressed or released."""
    @property
    def key(self) -> Key:
        """The key; a letter compares equal to its capital's code, `event.key == ord('A')`. Read-only."""
    @property
    def text(self) -> str:
        """What the key types, empty for keys such as Shift. Read-only."""

class MouseEvent(InputEvent):
    """A mouse button is pressed or released, or the mouse moves."""
    @property
    def position(self) -> Point:
        """Place in the widget, in pixels from its upper left corner. Read-only."""
    @property
    def globalPosition(self) -> Point:
        """Place on the screen. Read-only."""
    @property
    def button(self) -> MouseButton:
        """The button pressed or released; NoButton when the mouse moves. Read-only."""
    @property
    def buttons(self) -> MouseButton:
        """The buttons held down, combined by '|'. Read-only."""

class WheelEvent(InputEvent):
    """The mouse wheel turns."""
    @property
    def scrollDirection(self) -> ScrollDirection:
        """Where the wheel turns, in the direction that turned most. Read-only."""
    @property
    def angle(self) -> Point:
        """How far the wheel turned, in eighths of a degree; most wheels make steps of 120. Read-only."""
    @property
    def position(self) -> Point:
        """Place in the widget. Read-only."""

class _QWidget(_QObject):
    """What all windows and parts of windows have in common."""
    def show(self) -> None:
        """Shows the widget. A window without a parent stays until it is closed, though the script keeps no name of it."""
    def setFocus(self) -> None:
        """Lets the widget take what is typed, as soon as its window is the active one."""
    def activate(self) -> None:
        """Brings the widget's window to the front."""
    def hide(self) -> None:
        """Hides the widget."""
    def close(self) -> bool:
        """Closes the window; False when it refused, for example over unsaved changes."""
    def setLayout(self, layout: Layout) -> None:
        """Lets the layout arrange this widget, which the widgets in it become parts of.

        Raises TypeError for what is no layout, RuntimeError when there already is one, ValueError for a layout that
        is in use.
        """
    def move(self, x: int | Point, y: int = None) -> None:
        """Moves the upper left corner, in pixels of the parent or of the screen."""
    def setMinimumSize(self, width: int | Size, height: int = None) -> None:
        """The widget never gets smaller, in pixels."""
    def setMaximumSize(self, width: int | Size, height: int = None) -> None:
        """The widget never gets larger, in pixels."""
    def setFixedSize(self, width: int | Size, height: int = None) -> None:
        """The widget keeps this size, in pixels."""
    def toGlobalPosition(self, position: Point) -> Point:
        """The place on the screen of a place in the widget."""
    def fromGlobalPosition(self, position: Point) -> Point:
        """The place in the widget of a place on the screen."""
    def toParentPosition(self, position: Point) -> Point:
        """The place in the parent of a place in the widget."""
    def fromParentPosition(self, position: Point) -> Point:
        """The place in the widget of a place in the parent."""
    @property
    def width(self) -> int:
        """Width in pixels."""
    @width.setter
    def width(self, value: int) -> None: ...
    @property
    def height(self) -> int:
        """Height in pixels."""
    @height.setter
    def height(self, value: int) -> None: ...
    @property
    def acceptDrops(self) -> bool:
        """Whether something can be dropped here; see dragEnterEvent() and dropEvent()."""
    @acceptDrops.setter
    def acceptDrops(self, value: bool) -> None: ...
    @property
    def windowTitle(self) -> str:
        """The text in the title bar or the tab."""
    @windowTitle.setter
    def windowTitle(self, value: str) -> None: ...
    @property
    def enabled(self) -> bool:
        """Whether the user can use the widget."""
    @enabled.setter
    def enabled(self, value: bool) -> None: ...
    @property
    def visible(self) -> bool:
        """Whether the widget is shown. A part of a window is not visible before the window is."""
    @visible.setter
    def visible(self, value: bool) -> None: ...
    @property
    def helpText(self) -> str:
        """The longer explanation that Shift+F1 shows."""
    @helpText.setter
    def helpText(self, value: str) -> None: ...
    @property
    def toolTip(self) -> str:
        """The text that appears under the mouse."""
    @toolTip.setter
    def toolTip(self, value: str) -> None: ...
    @property
    def styleSheet(self) -> str:
        """Colours, borders and the like in Qt's style-sheet language; the classes there have Qt's names."""
    @styleSheet.setter
    def styleSheet(self, value: str) -> None: ...
    @property
    def parentWidget(self) -> Widget | None:
        """The widget that this one is in. It keeps this one alive."""
    @parentWidget.setter
    def parentWidget(self, value: Widget | None) -> None: ...
    @property
    def layout(self) -> Layout | None:
        """What arranges the widgets in this one. It can be set once."""
    @layout.setter
    def layout(self, value: Layout | None) -> None: ...
    @property
    def font(self) -> Font:
        """The font. Reading gives a copy; assign it to change the widget."""
    @font.setter
    def font(self, value: Font) -> None: ...
    @property
    def mouseTracking(self) -> bool:
        """Whether mouseMoveEvent() is also called when no button is held down."""
    @mouseTracking.setter
    def mouseTracking(self, value: bool) -> None: ...
    def resizeEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def showEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def hideEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def closeEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def enterEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def leaveEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def moveEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def keyPressEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def keyReleaseEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def mousePressEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def mouseReleaseEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def mouseDoubleClickEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def mouseMoveEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def wheelEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def dragEnterEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def dragMoveEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def dragLeaveEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """
    def dropEvent(self, event: _QEvent) -> None:
        """What the widget does with the event when no subclass overrides this. The event is only valid inside the
        handler.
        """

class Widget(_QWidget):
    """Widget(parent: Widget = None, **properties)

    An empty widget, to put others into or to derive from.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """Properties go by name, as in Widget(toolTip='...')."""

class Icon:
    """Icon(path: str)

    A small picture for commands and windows, from an image file.
    """
    def __init__(self, path: str) -> None:
        """Reads the image file when the icon is first shown.

        Raises TypeError, FileNotFoundError, PermissionError.
        """
    @staticmethod
    def getPluginIcon(path: str) -> Icon | None:
        """The icon in a file of the calling plug-in's folder; None outside a plug-in.

        Raises TypeError, FileNotFoundError, PermissionError.
        """
    @staticmethod
    def getBuiltinIcon(name: str) -> Icon:
        """An icon of the application by its name.

        Raises TypeError, and RuntimeError when there is no such icon.
        """

class Action(_QObject):
    """A command in a menu or a tool bar, as addAction() returns it."""
    def trigger(self) -> None:
        """Does what choosing the command does; nothing while it is not enabled."""
    @property
    def text(self) -> str:
        """What the command is called."""
    @text.setter
    def text(self, value: str) -> None: ...
    @property
    def toolTip(self) -> str:
        """The text under the mouse and in the status bar."""
    @toolTip.setter
    def toolTip(self, value: str) -> None: ...
    @property
    def icon(self) -> Icon:
        """The picture beside the text."""
    @icon.setter
    def icon(self, value: Icon) -> None: ...
    @property
    def enabled(self) -> bool:
        """Whether the user can choose it."""
    @enabled.setter
    def enabled(self, value: bool) -> None: ...
    @property
    def checkable(self) -> bool:
        """Whether choosing it switches it on or off."""
    @checkable.setter
    def checkable(self, value: bool) -> None: ...
    @property
    def checked(self) -> bool:
        """Whether it is switched on."""
    @checked.setter
    def checked(self, value: bool) -> None: ...

class _QFrame(_QWidget):
    """What widgets with a frame have."""
    @property
    def shape(self) -> FrameShape:
        """What the frame looks like."""
    @shape.setter
    def shape(self, value: FrameShape) -> None: ...
    @property
    def shadow(self) -> FrameShadow:
        """Flat, raised or sunken."""
    @shadow.setter
    def shadow(self, value: FrameShadow) -> None: ...
    @property
    def lineWidth(self) -> int:
        """Width of the lines in pixels."""
    @lineWidth.setter
    def lineWidth(self, value: int) -> None: ...
    @property
    def frameStyle(self) -> int:
        """Shape and shadow in one number, `shape | shadow`."""
    @frameStyle.setter
    def frameStyle(self, value: int) -> None: ...

class Frame(_QFrame):
    """Frame(parent: Widget = None, **properties)

    A frame around other widgets, or a line.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """A frame without lines."""

class _QAbstractScrollArea(_QFrame):
    """What everything that scrolls has."""
    @property
    def horizontalScrollBarPolicy(self) -> ScrollBarPolicy:
        """When the lower scroll bar is shown."""
    @horizontalScrollBarPolicy.setter
    def horizontalScrollBarPolicy(self, value: ScrollBarPolicy) -> None: ...
    @property
    def verticalScrollBarPolicy(self) -> ScrollBarPolicy:
        """When the scroll bar at the side is shown."""
    @verticalScrollBarPolicy.setter
    def verticalScrollBarPolicy(self, value: ScrollBarPolicy) -> None: ...
    @property
    def sizeAdjustPolicy(self) -> ScrollSizeAdjust:
        """Whether the size follows what is shown."""
    @sizeAdjustPolicy.setter
    def sizeAdjustPolicy(self, value: ScrollSizeAdjust) -> None: ...

class _QTextEdit(_QAbstractScrollArea):
    """What text fields of many lines have."""
    @property
    def text(self) -> str:
        """The text, lines separated by '\\n'."""
    @text.setter
    def text(self, value: str) -> None: ...
    @property
    def readOnly(self) -> bool:
        """Whether the user can only look and copy."""
    @readOnly.setter
    def readOnly(self, value: bool) -> None: ...
    @property
    def placeholderText(self) -> str:
        """What an empty field shows."""
    @placeholderText.setter
    def placeholderText(self, value: str) -> None: ...

class TextEdit(_QTextEdit):
    """TextEdit(text: str = '', parent: Widget = None, **properties)

    A field for text of many lines, shown in letters of one width.
    """
    def __init__(self, text: str = '', parent: Widget = None, **properties) -> None:
        """A text field."""

class _QAbstractButton(_QWidget):
    """What everything that is pressed has."""
    @property
    def text(self) -> str:
        """The label; a letter after '&' is the key that Alt makes press it."""
    @text.setter
    def text(self, value: str) -> None: ...
    @property
    def icon(self) -> Icon:
        """The picture beside the text."""
    @icon.setter
    def icon(self, value: Icon) -> None: ...
    @property
    def iconSize(self) -> Size:
        """The icon's size in pixels."""
    @iconSize.setter
    def iconSize(self, value: Size) -> None: ...
    @property
    def checkable(self) -> bool:
        """Whether pressing it switches it on or off."""
    @checkable.setter
    def checkable(self, value: bool) -> None: ...
    @property
    def checked(self) -> bool:
        """Whether it is switched on."""
    @checked.setter
    def checked(self, value: bool) -> None: ...
    @property
    def shortcut(self) -> str:
        """Keys that press it from anywhere in the window, 'Ctrl+R'."""
    @shortcut.setter
    def shortcut(self, value: str) -> None: ...

class _QPushButton(_QAbstractButton):
    """What push buttons have."""
    def clicked(self, callable: Callable[[], object]) -> None:
        """Calls `callable` whenever the button is pressed. An exception that it raises is printed.

        Raises TypeError for what can not be called.
        """
    @property
    def default(self) -> bool:
        """Whether the Return key presses it, in dialogs."""
    @default.setter
    def default(self, value: bool) -> None: ...
    @property
    def menu(self) -> Menu | None:
        """What opens when the button is pressed."""
    @menu.setter
    def menu(self, value: Menu | None) -> None: ...

class Button(_QPushButton):
    """Button(text: str = '', parent: Widget = None, **properties)

    A push button.
    """
    def __init__(self, text: str = '', parent: Widget = None, **properties) -> None:
        """A button; icon, shortcut and the other properties go by name."""

class _QLabel(_QFrame):
    """What labels have."""
    @property
    def text(self) -> str:
        """The text. It takes the place of the icon."""
    @text.setter
    def text(self, value: str) -> None: ...
    @property
    def textFormat(self) -> TextFormat:
        """Whether the text is shown as it is, read as HTML, or whichever it looks like."""
    @textFormat.setter
    def textFormat(self, value: TextFormat) -> None: ...
    @property
    def wordWrap(self) -> bool:
        """Whether long lines are broken between words."""
    @wordWrap.setter
    def wordWrap(self, value: bool) -> None: ...
    @property
    def alignment(self) -> Align | int:
        """Where the text or the icon stands, `Align.Right | Align.Top`."""
    @alignment.setter
    def alignment(self, value: Align | int) -> None: ...
    @property
    def icon(self) -> Icon:
        """A picture in place of the text, as large as its file; None takes it away. Reading gives a copy."""
    @icon.setter
    def icon(self, value: Icon) -> None: ...
    @property
    def scaledContents(self) -> bool:
        """Whether the icon is stretched over the whole label."""
    @scaledContents.setter
    def scaledContents(self, value: bool) -> None: ...

class Label(_QLabel):
    """Label(text: str = '', parent: Widget = None, **properties)

    A text or a picture to look at.
    """
    def __init__(self, text: str = '', parent: Widget = None, **properties) -> None:
        """A label; icon and the other properties go by name."""

class _QLineEdit(_QWidget):
    """What text fields of one line have."""
    def clear(self) -> None:
        """Empties the field."""
    def selectAll(self) -> None:
        """Selects the text."""
    def textChanged(self, callable: Callable[[str], object]) -> None:
        """Calls `callable` with the new text whenever it changes, by the user or by a script.

        Raises TypeError for what can not be called.
        """
    def returnPressed(self, callable: Callable[[], object]) -> None:
        """Calls `callable` when the user presses the Return or Enter key in the field.

        Raises TypeError for what can not be called.
        """
    def editingFinished(self, callable: Callable[[], object]) -> None:
        """Calls `callable` when the user presses the Return or Enter key or leaves the field.

        Raises TypeError for what can not be called.
        """
    @property
    def text(self) -> str:
        """What is in the field."""
    @text.setter
    def text(self, value: str) -> None: ...
    @property
    def placeholderText(self) -> str:
        """What an empty field shows."""
    @placeholderText.setter
    def placeholderText(self, value: str) -> None: ...
    @property
    def clearButtonEnabled(self) -> bool:
        """Whether a field with text has a button at its end that clears it."""
    @clearButtonEnabled.setter
    def clearButtonEnabled(self, value: bool) -> None: ...
    @property
    def readOnly(self) -> bool:
        """Whether the user can only look and copy."""
    @readOnly.setter
    def readOnly(self, value: bool) -> None: ...
    @property
    def alignment(self) -> Align | int:
        """Where the text stands in the field."""
    @alignment.setter
    def alignment(self, value: Align | int) -> None: ...
    @property
    def hasSelectedText(self) -> bool:
        """Whether a part of the text is selected."""
    @property
    def selectedText(self) -> str:
        """The selected part of the text."""

class LineEdit(_QLineEdit):
    """LineEdit(text: str = '', parent: Widget = None, **properties)

    A field for text of one line.
    """
    def __init__(self, text: str = '', parent: Widget = None, **properties) -> None:
        """A text field; placeholderText and the other properties go by name."""

class _QCheckBox(_QAbstractButton):
    """What check boxes have."""
    def stateChanged(self, callable: Callable[[CheckState], object]) -> None:
        """Calls `callable` with the new state whenever it changes, by the user or by a script. CheckState.Unchecked is
        0 and false.

        Raises TypeError for what can not be called.
        """
    @property
    def checkState(self) -> CheckState:
        """Off, on, or in between; the latter makes the box a tristate one."""
    @checkState.setter
    def checkState(self, value: CheckState) -> None: ...
    @property
    def tristate(self) -> bool:
        """Whether clicking it also goes through CheckState.PartiallyChecked."""
    @tristate.setter
    def tristate(self, value: bool) -> None: ...

class CheckBox(_QCheckBox):
    """CheckBox(text: str = '', parent: Widget = None, **properties)

    A box with a text that is switched on and off.
    """
    def __init__(self, text: str = '', parent: Widget = None, **properties) -> None:
        """A box that is off; checked, checkState and the other properties go by name."""

class _QRadioButton(_QAbstractButton):
    """What radio buttons have."""
    def stateChanged(self, callable: Callable[[bool], object]) -> None:
        """Calls `callable` with True when the button is switched on and with False when another one takes its place.

        Raises TypeError for what can not be called.
        """

class RadioButton(_QRadioButton):
    """RadioButton(text: str = '', parent: Widget = None, **properties)

    One of the choices in a widget: switching it on switches the others with the same parent off.
    """
    def __init__(self, text: str = '', parent: Widget = None, **properties) -> None:
        """A choice that is off; checked and the other properties go by name."""

class _QComboBox(_QWidget):
    """What boxes with a list of choices have. Items are counted from 0."""
    def addItem(self, text: str, icon: Icon = None, userData: int | float | str = None) -> None:
        """A new item at the end. `userData` comes back from currentData as a plain int, float or str: True as 1, an
        enumeration's value as its number. The first item of an empty box becomes the chosen one.

        Raises TypeError, and OverflowError for an int beyond 64 bits.
        """
    def insertItem(self, index: int, text: str, icon: Icon = None, userData: int | float | str = None) -> None:
        """The same before the item `index`, or at the end when that is the number of items. The chosen item stays
        chosen.

        Raises TypeError, OverflowError, and IndexError beyond the end.
        """
    def addItems(self, texts: Iterable[str]) -> None:
        """New items at the end, in half the time of one by one.

        Raises TypeError, and has added nothing, when one of them is not a str.
        """
    def index(self, text: str) -> int:
        """The number of the first item with exactly this text; -1 when there is none.

        Raises TypeError.
        """
    def removeItem(self, index: int) -> None:
        """Takes an item away. When it was the chosen one, its neighbour is.

        Raises TypeError, and IndexError when there is no such item.
        """
    def itemText(self, index: int) -> str:
        """The text of an item.

        Raises TypeError, IndexError.
        """
    def itemData(self, index: int) -> int | float | str | None:
        """The userData of an item; None for nothing.

        Raises TypeError, IndexError.
        """
    def clear(self) -> None:
        """Takes all items away."""
    def selectionChanged(self, callable: Callable[[int], object]) -> None:
        """Calls `callable` with the number of the chosen item (-1 for none) whenever it changes, by the user or by a
        script.

        Raises TypeError for what can not be called.
        """
    @property
    def currentText(self) -> str:
        """The text of the chosen item, or what the user has typed into an editable box. Setting it chooses the first
        item with the text; ValueError when there is none, unless the box is editable.
        """
    @currentText.setter
    def currentText(self, value: str) -> None: ...
    @property
    def currentIndex(self) -> int:
        """The number of the chosen item, counted from 0; -1 for none."""
    @currentIndex.setter
    def currentIndex(self, value: int) -> None: ...
    @property
    def currentData(self) -> int | float | str | None:
        """What the chosen item has as its userData; None for nothing."""
    @property
    def count(self) -> int:
        """The number of items."""
    @property
    def editable(self) -> bool:
        """Whether the user can also type. Return adds what was typed as an item."""
    @editable.setter
    def editable(self, value: bool) -> None: ...
    @property
    def sizeAdjustPolicy(self) -> ComboBoxSizePolicy:
        """How the box finds its width."""
    @sizeAdjustPolicy.setter
    def sizeAdjustPolicy(self, value: ComboBoxSizePolicy) -> None: ...
    @property
    def minimumContentsLength(self) -> int:
        """Letters that the box has room for at least."""
    @minimumContentsLength.setter
    def minimumContentsLength(self, value: int) -> None: ...
    @property
    def iconSize(self) -> Size:
        """The size of the items' icons in pixels."""
    @iconSize.setter
    def iconSize(self, value: Size) -> None: ...

class ComboBox(_QComboBox):
    """ComboBox(parent: Widget = None, **properties)

    A box that opens a list to choose from.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """A box without items."""

class _QAbstractSpinBox(_QWidget):
    """What fields for numbers have."""
    @property
    def specialValueText(self) -> str:
        """What the box shows in place of its minimum, 'Automatic'; empty for the number."""
    @specialValueText.setter
    def specialValueText(self, value: str) -> None: ...
    @property
    def readOnly(self) -> bool:
        """Whether the user can only look and copy."""
    @readOnly.setter
    def readOnly(self, value: bool) -> None: ...
    @property
    def wrapping(self) -> bool:
        """Whether a step beyond the maximum leads to the minimum, as for angles."""
    @wrapping.setter
    def wrapping(self, value: bool) -> None: ...
    @property
    def keyboardTracking(self) -> bool:
        """Whether the value changes with every key typed, or when the user is done."""
    @keyboardTracking.setter
    def keyboardTracking(self, value: bool) -> None: ...
    @property
    def alignment(self) -> Align | int:
        """Where the number stands in the box."""
    @alignment.setter
    def alignment(self, value: Align | int) -> None: ...

class _QSpinBox(_QAbstractSpinBox):
    """What fields for whole numbers have."""
    def valueChanged(self, callable: Callable[[int], object]) -> None:
        """Calls `callable` with the new number whenever it changes, by the user or by a script.

        Raises TypeError for what can not be called.
        """
    @property
    def value(self) -> int:
        """The number; one beyond `minimum` or `maximum` becomes that."""
    @value.setter
    def value(self, value: int) -> None: ...
    @property
    def minimum(self) -> int:
        """The smallest number, at first 0. A maximum below it becomes the same."""
    @minimum.setter
    def minimum(self, value: int) -> None: ...
    @property
    def maximum(self) -> int:
        """The largest number, at first 99. A minimum above it becomes the same."""
    @maximum.setter
    def maximum(self, value: int) -> None: ...
    @property
    def singleStep(self) -> int:
        """What one press of an arrow adds or takes away."""
    @singleStep.setter
    def singleStep(self, value: int) -> None: ...
    @property
    def prefix(self) -> str:
        """What stands before the number."""
    @prefix.setter
    def prefix(self, value: str) -> None: ...
    @property
    def suffix(self) -> str:
        """What stands behind the number, ' ms'."""
    @suffix.setter
    def suffix(self, value: str) -> None: ...

class SpinBox(_QSpinBox):
    """SpinBox(parent: Widget = None, **properties)

    A field for a whole number, with arrows that count up and down.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """A field for 0 to 99; minimum, maximum, value and the other properties go by name."""

class _QDoubleSpinBox(_QAbstractSpinBox):
    """What fields for numbers with a decimal point have."""
    def valueChanged(self, callable: Callable[[float], object]) -> None:
        """Calls `callable` with the new number whenever it changes, by the user or by a script.

        Raises TypeError for what can not be called.
        """
    @property
    def value(self) -> float:
        """The number, rounded to `decimals`; one beyond `minimum` or `maximum` becomes that."""
    @value.setter
    def value(self, value: float) -> None: ...
    @property
    def minimum(self) -> float:
        """The smallest number, at first 0. A maximum below it becomes the same."""
    @minimum.setter
    def minimum(self, value: float) -> None: ...
    @property
    def maximum(self) -> float:
        """The largest number, at first 99.99. A minimum above it becomes the same."""
    @maximum.setter
    def maximum(self, value: float) -> None: ...
    @property
    def decimals(self) -> int:
        """Digits behind the point, 0 to 323, at first 2. Value and bounds are rounded to them."""
    @decimals.setter
    def decimals(self, value: int) -> None: ...
    @property
    def singleStep(self) -> float:
        """What one press of an arrow adds or takes away."""
    @singleStep.setter
    def singleStep(self, value: float) -> None: ...
    @property
    def prefix(self) -> str:
        """What stands before the number."""
    @prefix.setter
    def prefix(self, value: str) -> None: ...
    @property
    def suffix(self) -> str:
        """What stands behind the number, ' Hz'."""
    @suffix.setter
    def suffix(self, value: str) -> None: ...

class DoubleSpinBox(_QDoubleSpinBox):
    """DoubleSpinBox(parent: Widget = None, **properties)

    A field for a number with a decimal point, with arrows that count up and down.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """A field for 0.00 to 99.99; decimals, minimum, maximum, value and the other properties go by name."""

class _QAbstractSlider(_QWidget):
    """What everything with a handle that moves along a line has."""
    @property
    def value(self) -> int:
        """The number; one beyond `minimum` or `maximum` becomes that."""
    @value.setter
    def value(self, value: int) -> None: ...
    @property
    def minimum(self) -> int:
        """The smallest number, at first 0. A maximum below it becomes the same."""
    @minimum.setter
    def minimum(self, value: int) -> None: ...
    @property
    def maximum(self) -> int:
        """The largest number, at first 99. A minimum above it becomes the same."""
    @maximum.setter
    def maximum(self, value: int) -> None: ...
    @property
    def singleStep(self) -> int:
        """How far an arrow key moves it."""
    @singleStep.setter
    def singleStep(self, value: int) -> None: ...
    @property
    def pageStep(self) -> int:
        """How far a click beside the handle moves it."""
    @pageStep.setter
    def pageStep(self, value: int) -> None: ...
    @property
    def tracking(self) -> bool:
        """Whether the value follows the mouse, or changes when the button is let go."""
    @tracking.setter
    def tracking(self, value: bool) -> None: ...
    @property
    def orientation(self) -> Orientation:
        """How it lies."""
    @orientation.setter
    def orientation(self, value: Orientation) -> None: ...

class _QSlider(_QAbstractSlider):
    """What sliders have."""
    def valueChanged(self, callable: Callable[[int], object]) -> None:
        """Calls `callable` with the new number whenever it changes, by the user or by a script.

        Raises TypeError for what can not be called.
        """
    @property
    def tickPosition(self) -> SliderTickPosition:
        """Where it has tick marks."""
    @tickPosition.setter
    def tickPosition(self, value: SliderTickPosition) -> None: ...
    @property
    def tickInterval(self) -> int:
        """From one tick mark to the next; 0 goes by `singleStep` and `pageStep`."""
    @tickInterval.setter
    def tickInterval(self, value: int) -> None: ...

class Slider(_QSlider):
    """Slider(orientation: Orientation = Orientation.Horizontal, parent: Widget = None, **properties)

    A handle on a line that chooses a whole number.
    """
    def __init__(self, orientation: Orientation = Orientation.Horizontal, parent: Widget = None, **properties) -> None:
        """A slider for 0 to 99; minimum, maximum, value and the other properties go by name."""

class _QProgressBar(_QWidget):
    """What progress bars in windows have."""
    def reset(self) -> None:
        """Back to the start: an empty bar without a text."""
    def valueChanged(self, callable: Callable[[int], object]) -> None:
        """Calls `callable` with the new value whenever it changes.

        Raises TypeError for what can not be called.
        """
    @property
    def value(self) -> int:
        """How far it is; a number beyond `minimum` or `maximum` becomes that. A new bar, and one after reset(), is at
        -1.
        """
    @value.setter
    def value(self, value: int) -> None: ...
    @property
    def minimum(self) -> int:
        """The value of the empty bar, at first 0. A maximum below it becomes the same."""
    @minimum.setter
    def minimum(self, value: int) -> None: ...
    @property
    def maximum(self) -> int:
        """The value of the full bar, at first 100. With minimum and maximum 0 the bar only shows that something goes
        on.
        """
    @maximum.setter
    def maximum(self, value: int) -> None: ...
    @property
    def textFormat(self) -> str:
        """The text on the bar: %p becomes the percentage, %v the value, %m the number of steps."""
    @textFormat.setter
    def textFormat(self, value: str) -> None: ...
    @property
    def textVisible(self) -> bool:
        """Whether the bar shows its text."""
    @textVisible.setter
    def textVisible(self, value: bool) -> None: ...
    @property
    def orientation(self) -> Orientation:
        """How it lies."""
    @orientation.setter
    def orientation(self, value: Orientation) -> None: ...

class ProgressBar(_QProgressBar):
    """ProgressBar(parent: Widget = None, **properties)

    A bar in a window of a script that shows how far something is.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """An empty bar; minimum, maximum and the other properties go by name."""

class _QDialog(_QWidget):
    """What dialogs have."""
    def accept(self) -> None:
        """Closes the dialog with the answer Accepted."""
    def reject(self) -> None:
        """Closes the dialog with the answer Rejected."""
    def execute(self) -> DialogResponse:
        """Shows the dialog and waits until the user closes it.

        Raises RuntimeError when it is already waiting, just closing or a part of another widget.
        """
    def accepted(self, callable: Callable[[], object]) -> None:
        """Calls `callable` when the dialog is closed by accept().

        Raises TypeError for what can not be called.
        """
    def rejected(self, callable: Callable[[], object]) -> None:
        """Calls `callable` when the dialog is closed by reject(), the Escape key or the window's button.

        Raises TypeError for what can not be called.
        """
    @property
    def modal(self) -> bool:
        """Whether the other windows wait until it is closed; for show(), execute() always waits."""
    @modal.setter
    def modal(self, value: bool) -> None: ...
    @property
    def modality(self) -> Modality:
        """Which windows wait until it is closed."""
    @modality.setter
    def modality(self, value: Modality) -> None: ...

class Dialog(_QDialog):
    """Dialog(title: str = '', parent: Widget = None, **properties)

    A window that asks the user for something.
    """
    def __init__(self, title: str = '', parent: Widget = None, **properties) -> None:
        """An empty dialog."""

class _QMenu(_QWidget):
    """What menus have."""
    def addAction(self, text: str, callable: Callable[[], object], icon: Icon = None) -> Action:
        """A new command at the end that calls `callable` without arguments. An exception that it raises is printed.

        Raises TypeError for a text that is not a str, an object that can not be called, or a wrong icon.
        """
    def addSeparator(self) -> None:
        """A line between commands."""
    def addMenu(self, title: str | Menu) -> Menu:
        """A new menu with this title at the end, or the given one.

        Raises TypeError, and ValueError for a menu that would be inside itself.
        """
    @property
    def title(self) -> str:
        """What the menu is called."""
    @title.setter
    def title(self, value: str) -> None: ...
    @property
    def icon(self) -> Icon:
        """The picture beside the title."""
    @icon.setter
    def icon(self, value: Icon) -> None: ...

class Menu(_QMenu):
    """Menu(title: str = '', parent: Widget = None, **properties)

    A menu.
    """
    def __init__(self, title: str = '', parent: Widget = None, **properties) -> None:
        """An empty menu."""

class _QMenuBar(_QWidget):
    """What menu bars have."""
    def addMenu(self, title: str | Menu) -> Menu:
        """A new menu with this title at the end, or the given one.

        Raises TypeError, and ValueError for a menu that would be inside itself.
        """
    @property
    def defaultUp(self) -> bool:
        """Whether menus open upwards, for a bar at the lower edge."""
    @defaultUp.setter
    def defaultUp(self, value: bool) -> None: ...

class MenuBar(_QMenuBar):
    """MenuBar(parent: Widget = None, **properties)

    A row of menus at the top of a window.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """An empty menu bar."""

class _QToolBar(_QWidget):
    """What tool bars have."""
    def addAction(self, text: str, callable: Callable[[], object], icon: Icon = None) -> Action:
        """A new button at the end that calls `callable` without arguments. An exception that it raises is printed.

        Raises TypeError for a text that is not a str, an object that can not be called, or a wrong icon.
        """
    def addSeparator(self) -> None:
        """A line between buttons."""
    @property
    def movable(self) -> bool:
        """Whether the user can move it."""
    @movable.setter
    def movable(self, value: bool) -> None: ...
    @property
    def floatable(self) -> bool:
        """Whether the user can pull it out as a window."""
    @floatable.setter
    def floatable(self, value: bool) -> None: ...
    @property
    def floating(self) -> bool:
        """Whether it is a window now. Read-only."""

class ToolBar(_QToolBar):
    """A tool bar of the main window, as addMainWindowToolBar() returns it."""

class Layout(_QObject):
    """What arranges the widgets in another widget. Give it to Widget.setLayout()."""
    def addWidget(self, widget: Widget, stretch: int = 0, align: Align | int = None) -> None:
        """Puts a widget at the end. Those with a stretch share the room that is left in these proportions; `align` is
        where the widget stands when it gets more room than it wants, which it otherwise fills.

        Raises TypeError for wrong types, ValueError for a stretch outside box layouts or out of range and for a
        widget that is already in a layout or container or that this layout is in.
        """
    def addLayout(self, layout: Layout, align: Align | int = None) -> None:
        """Puts a layout at the end.

        Raises TypeError for wrong types, ValueError for a layout that is already in use or would be inside itself.
        """
    @overload
    def addRow(self, label: str | Widget, field: Widget | Layout) -> None:
        """Puts a row at the end: a label and what it names, or one part over the whole width. For form and grid
        layouts.

        Raises TypeError for wrong types, RuntimeError for other layouts, ValueError as addWidget().
        """
    @overload
    def addRow(self, field: Widget | Layout) -> None: ...
    def removeWidget(self, widget: Widget) -> None:
        """Takes a widget out, which has no parent afterwards and can be put elsewhere.

        Raises TypeError, and ValueError for a widget that is not directly in this layout.
        """
    @property
    def spacing(self) -> int:
        """Pixels between the parts; -1 takes the style's own, or says that it differs by direction."""
    @spacing.setter
    def spacing(self, value: int) -> None: ...
    @property
    def margin(self) -> int:
        """Pixels around all parts; -1 when the sides differ."""
    @margin.setter
    def margin(self, value: int) -> None: ...
    @property
    def menuBar(self) -> MenuBar | None:
        """The row of menus above everything else."""
    @menuBar.setter
    def menuBar(self, value: MenuBar | None) -> None: ...
    @property
    def parentWidget(self) -> Widget | None:
        """The widget that is arranged."""
    @parentWidget.setter
    def parentWidget(self, value: Widget | None) -> None: ...
    @property
    def count(self) -> int:
        """The number of parts: widgets, layouts and stretches. Read-only."""

class BoxLayout(Layout):
    """A row or column of widgets. Its parts are counted from 0, stretches among them."""
    def addStretch(self, stretch: int = 0) -> None:
        """Puts an empty place at the end, which takes the room that the widgets leave.

        Raises TypeError, and ValueError for a negative stretch.
        """
    def addSpacing(self, pixels: int) -> None:
        """Puts an empty place of this size at the end.

        Raises TypeError, and ValueError for a negative size.
        """
    def stretch(self, index: int) -> int:
        """The stretch of the part at `index`.

        Raises TypeError, IndexError.
        """
    def setStretch(self, index: int, stretch: int) -> None:
        """Raises TypeError, IndexError, and ValueError for a negative stretch."""
    def widget(self, index: int) -> Widget | None:
        """The widget at `index`; None when the part there is none.

        Raises TypeError, IndexError.
        """
    def layout(self, index: int) -> Layout | None:
        """The layout at `index`; None when the part there is none.

        Raises TypeError, IndexError.
        """
    def alignment(self, index: int) -> Align:
        """Where the part at `index` stands in its room; 0 when it fills it.

        Raises TypeError, IndexError.
        """

class HBoxLayout(BoxLayout):
    """HBoxLayout(parent: Widget = None, **properties)

    Widgets side by side, from left to right.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """An empty row for `parent`; spacing and margin go by name."""

class VBoxLayout(BoxLayout):
    """VBoxLayout(parent: Widget = None, **properties)

    Widgets one below the other.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """An empty column for `parent`; spacing and margin go by name."""

class GridLayout(Layout):
    """GridLayout(parent: Widget = None, **properties)

    Widgets in rows and columns, which are counted from 0.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """An empty grid for `parent`; spacing and margin go by name."""
    @overload
    def addWidget(self, widget: Widget, row: int, column: int, rowSpan: int = 1, columnSpan: int = 1, align: Align | int = None) -> None:
        """Puts a widget into a cell, over `rowSpan` rows and `columnSpan` columns, or into a new row below, over the
        whole width.

        Raises TypeError for wrong types, ValueError for cells out of range (0 to 9999) and as Layout.addWidget().
        """
    @overload
    def addWidget(self, widget: Widget, *, align: Align | int = None) -> None: ...
    @overload
    def addLayout(self, layout: Layout, row: int, column: int, rowSpan: int = 1, columnSpan: int = 1, align: Align | int = None) -> None:
        """Puts a layout into a cell, as addWidget()."""
    @overload
    def addLayout(self, layout: Layout, *, align: Align | int = None) -> None: ...
    def setRowStretch(self, row: int, stretch: int) -> None:
        """Rows with a stretch share the room that is left in these proportions.

        Raises TypeError, ValueError.
        """
    def setColumnStretch(self, column: int, stretch: int) -> None:
        """Columns with a stretch share the room that is left in these proportions.

        Raises TypeError, ValueError.
        """
    @property
    def columnCount(self) -> int:
        """The number of columns, at least 1. Read-only."""
    @property
    def rowCount(self) -> int:
        """The number of rows, at least 1. Read-only."""
    @property
    def horizontalSpacing(self) -> int:
        """Pixels between columns; -1 takes the style's own."""
    @horizontalSpacing.setter
    def horizontalSpacing(self, value: int) -> None: ...
    @property
    def verticalSpacing(self) -> int:
        """Pixels between rows; -1 takes the style's own."""
    @verticalSpacing.setter
    def verticalSpacing(self, value: int) -> None: ...

class FormLayout(Layout):
    """FormLayout(parent: Widget = None, **properties)

    Rows of a label and what it names; see addRow().
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """An empty form for `parent`; spacing and margin go by name."""
    @property
    def labelAlignment(self) -> Align:
        """Where the labels stand in their column; several are combined with |."""
    @labelAlignment.setter
    def labelAlignment(self, value: Align) -> None: ...
    @property
    def formAlignment(self) -> Align:
        """Where the whole form stands in room that it does not need."""
    @formAlignment.setter
    def formAlignment(self, value: Align) -> None: ...

class _QScrollArea(_QAbstractScrollArea):
    """What areas that scroll one widget have."""
    @property
    def alignment(self) -> Align:
        """Where the widget stands when it is smaller than the area."""
    @alignment.setter
    def alignment(self, value: Align) -> None: ...
    @property
    def widgetResizable(self) -> bool:
        """Whether the widget grows with the area."""
    @widgetResizable.setter
    def widgetResizable(self, value: bool) -> None: ...
    @property
    def widget(self) -> Widget | None:
        """What is scrolled. The one before has no parent afterwards and can be used again."""
    @widget.setter
    def widget(self, value: Widget | None) -> None: ...

class ScrollArea(_QScrollArea):
    """ScrollArea(widget: Widget = None, parent: Widget = None, **properties)

    A window onto a widget that may be larger.
    """
    def __init__(self, widget: Widget = None, parent: Widget = None, **properties) -> None:
        """Scroll bars appear when they are needed; set widgetResizable for a widget with a layout."""

class _QStackedWidget(_QFrame):
    """What stacks of pages have."""
    def addWidget(self, widget: Widget) -> int:
        """Puts a page at the end and returns its index.

        Raises TypeError, and ValueError for a widget that is already in a layout or container or that the stack is
        in.
        """
    def insertWidget(self, index: int, widget: Widget) -> int:
        """Puts a page before the one at `index`, at the end for an index that is none, and returns its index.

        Raises TypeError, and ValueError as addWidget().
        """
    def removeWidget(self, widget: Widget) -> None:
        """Takes a page out, which has no parent afterwards and can be put elsewhere.

        Raises TypeError, and ValueError for a widget that is no page.
        """
    def widget(self, index: int) -> Widget:
        """The page at `index`.

        Raises TypeError, IndexError.
        """
    def stackChanged(self, callable: Callable[[int], object]) -> None:
        """Calls `callable` with the index of the page that is shown from now on, -1 when the last one was taken out.

        Raises TypeError for what can not be called.
        """
    @property
    def currentIndex(self) -> int:
        """The page that is shown, from 0; -1 without pages."""
    @currentIndex.setter
    def currentIndex(self, value: int) -> None: ...
    @property
    def currentWidget(self) -> Widget | None:
        """The page that is shown."""
    @currentWidget.setter
    def currentWidget(self, value: Widget | None) -> None: ...
    @property
    def count(self) -> int:
        """The number of pages. Read-only."""

class StackedWidget(_QStackedWidget):
    """StackedWidget(parent: Widget = None, **properties)

    Pages of which one is shown.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """A stack without pages."""

class _QTabWidget(_QWidget):
    """What pages with tabs have."""
    @overload
    def addTab(self, widget: Widget, label: str) -> int:
        """Puts a page behind a tab at the end and returns its index.

        Raises TypeError for wrong types, ValueError for a widget that is already in a layout or container or that
        the tabs are in.
        """
    @overload
    def addTab(self, widget: Widget, icon: Icon, label: str) -> int: ...
    def removeTab(self, tab: str | int | Widget) -> None:
        """Takes a tab away, given by its label (the first one with it), its index or its page. The page has no parent
        afterwards and can be put elsewhere.

        Raises TypeError, and ValueError when there is no such tab.
        """
    def setCurrentTab(self, tab: str | int | Widget) -> None:
        """Shows a tab, given as for removeTab().

        Raises TypeError, and ValueError when there is no such tab.
        """
    def indexOf(self, widget: Widget) -> int:
        """The index of a page, -1 when it is none.

        Raises TypeError.
        """
    def tabChanged(self, callable: Callable[[int], object]) -> None:
        """Calls `callable` with the index of the tab that is shown from now on, -1 when the last one was taken away.

        Raises TypeError for what can not be called.
        """
    @property
    def tabPosition(self) -> int:
        """The side where the tabs are: 0 above, 1 below, 2 on the left, 3 on the right."""
    @tabPosition.setter
    def tabPosition(self, value: int) -> None: ...
    @property
    def tabShape(self) -> int:
        """The form of the tabs: 0 rounded, 1 triangular."""
    @tabShape.setter
    def tabShape(self, value: int) -> None: ...
    @property
    def usesScrollButtons(self) -> bool:
        """Whether tabs that find no room are scrolled to rather than squeezed."""
    @usesScrollButtons.setter
    def usesScrollButtons(self, value: bool) -> None: ...
    @property
    def currentIndex(self) -> int:
        """The tab that is shown, from 0; -1 without tabs."""
    @currentIndex.setter
    def currentIndex(self, value: int) -> None: ...
    @property
    def currentWidget(self) -> Widget | None:
        """The page that is shown. Read-only."""
    @property
    def count(self) -> int:
        """The number of tabs. Read-only."""

class TabWidget(_QTabWidget):
    """TabWidget(parent: Widget = None, **properties)

    Pages with tabs, of which one is shown.
    """
    def __init__(self, parent: Widget = None, **properties) -> None:
        """No tabs at first; see addTab()."""

class _QSplitter(_QFrame):
    """What rows of parts with movable borders have."""
    def addWidget(self, widget: Widget) -> None:
        """Puts a part at the end; `parentWidget = None` takes it out.

        Raises TypeError, and ValueError for a widget that is already in a layout or container or that the splitter
        is in.
        """
    def insertWidget(self, index: int, widget: Widget) -> None:
        """Puts a part before the one at `index`, at the end for an index that is none.

        Raises TypeError, and ValueError as addWidget().
        """
    def widget(self, index: int) -> Widget:
        """The part at `index`.

        Raises TypeError, IndexError.
        """
    @property
    def orientation(self) -> Orientation:
        """Horizontal puts the parts side by side, Vertical one below the other."""
    @orientation.setter
    def orientation(self, value: Orientation) -> None: ...
    @property
    def childrenCollapsible(self) -> bool:
        """Whether the user can shrink a part to nothing."""
    @childrenCollapsible.setter
    def childrenCollapsible(self, value: bool) -> None: ...
    @property
    def handleWidth(self) -> int:
        """Pixels between two parts."""
    @handleWidth.setter
    def handleWidth(self, value: int) -> None: ...
    @property
    def sizes(self) -> list[int]:
        """The parts' widths, or heights, in pixels. What is set is taken as proportions of the room that there is."""
    @sizes.setter
    def sizes(self, value: list[int]) -> None: ...
    @property
    def count(self) -> int:
        """The number of parts. Read-only."""

class Splitter(_QSplitter):
    """Splitter(orientation: Orientation = Orientation.Horizontal, parent: Widget = None, **properties)

    Widgets with borders between them that the user moves.
    """
    def __init__(self, orientation: Orientation = Orientation.Horizontal, parent: Widget = None, **properties) -> None:
        """No parts at first; see addWidget()."""

class _QGroupBox(_QWidget):
    """What frames with a title have."""
    def toggled(self, callable: Callable[[bool], object]) -> None:
        """Calls `callable` with the new state of the check box in the title.

        Raises TypeError for what can not be called.
        """
    @property
    def title(self) -> str:
        """The text in the frame."""
    @title.setter
    def title(self, value: str) -> None: ...
    @property
    def titleAlignment(self) -> Align:
        """Where the title stands: Left, HCenter or Right."""
    @titleAlignment.setter
    def titleAlignment(self, value: Align) -> None: ...
    @property
    def checkable(self) -> bool:
        """Whether the title has a check box, which switches what is inside on and off."""
    @checkable.setter
    def checkable(self, value: bool) -> None: ...
    @property
    def checked(self) -> bool:
        """Whether the check box is on."""
    @checked.setter
    def checked(self, value: bool) -> None: ...

class GroupBox(_QGroupBox):
    """GroupBox(title: str = '', parent: Widget = None, **properties)

    A frame with a title around widgets that belong together.
    """
    def __init__(self, title: str = '', parent: Widget = None, **properties) -> None:
        """An empty frame."""

class _QMdiSubWindow(_QWidget):
    """What windows in the document area have."""

class SubWindow(_QMdiSubWindow):
    """A window in the main window's document area, as addSubWindow() returns it."""

class _HVSwitch(_QAbstractButton):
    """What switches have."""
    def toggled(self, callable: Callable[[bool], object]) -> None:
        """Calls `callable` with True or False whenever it is switched on or off, by the user or by a script.

        Raises TypeError for what can not be called.
        """
    @property
    def onColor(self) -> Color:
        """The colour of the track when it is on. Setting None gives back the theme's."""
    @onColor.setter
    def onColor(self, value: Color) -> None: ...
    @property
    def offColor(self) -> Color:
        """The colour of the track when it is off. Setting None gives back the theme's."""
    @offColor.setter
    def offColor(self, value: Color) -> None: ...
    @property
    def switched(self) -> bool:
        """Whether it is on."""
    @switched.setter
    def switched(self, value: bool) -> None: ...
    @property
    def animationDuration(self) -> int:
        """Milliseconds that the knob is under way, 0 for none; negative ones become 0."""
    @animationDuration.setter
    def animationDuration(self, value: int) -> None: ...

class Switch(_HVSwitch):
    """Switch(text: str = '', parent: Widget = None, **properties)

    A knob that slides between off and on. The text stands in the free part of its track.
    """
    def __init__(self, text: str = '', parent: Widget = None, **properties) -> None:
        """A switch that is off; switched and the other properties go by name."""

class _HVFilePathLineEdit(_QWidget):
    """What fields for the path of a file have."""
    def browse(self) -> None:
        """Opens the chooser, as the button does, and does not wait for the answer."""
    def pathChanged(self, callable: Callable[[str], object]) -> None:
        """Calls `callable` with the new path whenever it changes: when the user presses Return, leaves the field,
        chooses or drops a file, or a script sets it; not with each letter.

        Raises TypeError for what can not be called.
        """
    @property
    def path(self) -> str:
        """The path of the file, with '/' between folders on every system; empty for none. It need not exist. An
        os.PathLike can be set as well. Spaces and quotes around a path are taken off, a leading '~' and a file:
        address are resolved.
        """
    @path.setter
    def path(self, value: str | os.PathLike) -> None: ...
    @property
    def placeholderText(self) -> str:
        """What an empty field shows."""
    @placeholderText.setter
    def placeholderText(self, value: str) -> None: ...
    @property
    def fileFilter(self) -> str:
        """Which files the chooser shows, 'SEG-Y files (*.sgy *.segy);;All files (*)'; empty for all."""
    @fileFilter.setter
    def fileFilter(self, value: str) -> None: ...
    @property
    def dialogTitle(self) -> str:
        """The title of the chooser; empty for the usual one."""
    @dialogTitle.setter
    def dialogTitle(self, value: str) -> None: ...
    @property
    def dialogType(self) -> FileDialogType:
        """Open chooses a file that exists. Save chooses any, asks before one is replaced and completes the suffix from
        the filter.
        """
    @dialogType.setter
    def dialogType(self, value: FileDialogType) -> None: ...

class FilePathLineEdit(_HVFilePathLineEdit):
    """FilePathLineEdit(path: str | os.PathLike = '', parent: Widget = None, **properties)

    A field for the path of a file, with a button that opens a file chooser. Files can be dragged onto it.
    """
    def __init__(self, path: str | os.PathLike = '', parent: Widget = None, **properties) -> None:
        """A field; fileFilter and the other properties go by name."""

class _HVObjectComboBox(_QComboBox):
    """What boxes with objects of the project have."""
    def updateObjects(self) -> None:
        """Lists the objects at once. Changes of the project are listed in a moment anyway.

        Raises RuntimeError when no project is open.
        """
    def objectChanged(self, callable: Callable[[str | None], object]) -> None:
        """Calls `callable` with the file of the chosen object, None for none, whenever another one is chosen: by the
        user, by a script, or because the project was closed or the object removed or renamed.

        Raises TypeError for what can not be called.
        """
    @property
    def kinds(self) -> list[ObjectId]:
        """The kinds of object to choose from, all of them at first. One ObjectId can be set as well, and None for all."""
    @kinds.setter
    def kinds(self, value: list[ObjectId] | ObjectId) -> None: ...
    @property
    def objectFilename(self) -> str | None:
        """The file of the chosen object, an absolute path, as Project.objects() has it; None when none is chosen. An
        os.PathLike can be set as well. Setting raises ValueError for what is no object to choose from, RuntimeError
        when no project is open.
        """
    @objectFilename.setter
    def objectFilename(self, value: str | None | os.PathLike) -> None: ...
    @property
    def objectId(self) -> ObjectId | None:
        """The kind of the chosen object; None when none is chosen."""
    @property
    def optional(self) -> bool:
        """Whether a first item "None" stands for no object."""
    @optional.setter
    def optional(self, value: bool) -> None: ...

class ObjectComboBox(_HVObjectComboBox):
    """ObjectComboBox(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties)

    A combo box of the open project's objects. It follows the project: the items come and go with the objects, and a
    script can not change them. An item's userData is the object's file.
    """
    def __init__(self, kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties) -> None:
        """A box of the objects of one kind, of several, or of all. Without an open project it is empty until one is
        opened.
        """

class _HVInputSelectionLineEdit(_QWidget):
    """What fields for an object of the project have."""
    def selectionChanged(self, callable: Callable[[str | None], object]) -> None:
        """Calls `callable` with the file of the chosen object, None for none, whenever another one is chosen: by the
        user, by a script, or because the project was closed or the object removed or renamed.

        Raises TypeError for what can not be called.
        """
    @property
    def kinds(self) -> list[ObjectId]:
        """The kinds of object to choose from, all of them at first. One ObjectId can be set as well, and None for all."""
    @kinds.setter
    def kinds(self, value: list[ObjectId] | ObjectId) -> None: ...
    @property
    def objectFilename(self) -> str | None:
        """The file of the chosen object, an absolute path, as Project.objects() has it; None when none is chosen. An
        os.PathLike can be set as well. Setting raises ValueError for what is no object to choose from, RuntimeError
        when no project is open.
        """
    @objectFilename.setter
    def objectFilename(self, value: str | None | os.PathLike) -> None: ...
    @property
    def objectId(self) -> ObjectId | None:
        """The kind of the chosen object; None when none is chosen."""
    @property
    def placeholderText(self) -> str:
        """What the field shows when nothing is chosen; empty for the usual text."""
    @placeholderText.setter
    def placeholderText(self, value: str) -> None: ...

class InputSelectionLineEdit(_HVInputSelectionLineEdit):
    """InputSelectionLineEdit(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties)

    A field that shows an object of the open project and opens a tree to choose it from. Objects can be dragged onto
    it.
    """
    def __init__(self, kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties) -> None:
        """A field for an object of one kind, of several, or of all; nothing is chosen."""

class _HVInputSelectionPreview(_QWidget):
    """What previews of an object of the project have."""
    def viewerChanged(self, callable: Callable[[], object]) -> None:
        """Calls `callable` whenever the viewer shows another object, or none any more.

        Raises TypeError for what can not be called.
        """
    @property
    def kinds(self) -> list[ObjectId]:
        """The kinds of object to choose from, all of them at first. One ObjectId can be set as well, and None for all."""
    @kinds.setter
    def kinds(self, value: list[ObjectId] | ObjectId) -> None: ...
    @property
    def objectFilename(self) -> str | None:
        """The file of the chosen object, an absolute path, as Project.objects() has it; None when none is chosen. An
        os.PathLike can be set as well. Setting raises ValueError for what is no object to choose from, RuntimeError
        when no project is open.
        """
    @objectFilename.setter
    def objectFilename(self, value: str | None | os.PathLike) -> None: ...
    @property
    def objectId(self) -> ObjectId | None:
        """The kind of the chosen object; None when none is chosen."""
    @property
    def selection(self) -> InputSelectionLineEdit:
        """The field above the viewer, a part of the preview."""
    @property
    def previewMouseMode(self) -> MouseMode:
        """What the mouse does in the viewer. Setting raises ValueError for MouseMode.Unknown."""
    @previewMouseMode.setter
    def previewMouseMode(self, value: MouseMode) -> None: ...

class InputSelectionPreview(_HVInputSelectionPreview):
    """InputSelectionPreview(kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties)

    A field for an object of the open project over a small viewer that shows it.
    """
    def __init__(self, kinds: ObjectId | Iterable[ObjectId] = None, parent: Widget = None, **properties) -> None:
        """A preview for an object of one kind, of several, or of all; nothing is chosen."""

class _QMainWindow(_QWidget):
    """What main windows have."""

class MainWindow(_QMainWindow):
    """The application's main window. Calls that would take it from the user raise RuntimeError."""
    def show(self, *arguments) -> None:
        """Always raises RuntimeError."""
    def hide(self, *arguments) -> None:
        """Always raises RuntimeError."""
    def close(self, *arguments) -> None:
        """Always raises RuntimeError."""
    def setLayout(self, *arguments) -> None:
        """Always raises RuntimeError."""
    def setFixedSize(self, *arguments) -> None:
        """Always raises RuntimeError."""
    def setMinimumSize(self, *arguments) -> None:
        """Always raises RuntimeError."""
    def setMaximumSize(self, *arguments) -> None:
        """Always raises RuntimeError."""
    @property
    def visible(self) -> bool:
        """Whether it is shown. Read-only."""
    @visible.setter
    def visible(self, value: bool) -> None: ...
    @property
    def enabled(self) -> bool:
        """Whether it can be used. Read-only."""
    @enabled.setter
    def enabled(self, value: bool) -> None: ...
    @property
    def parentWidget(self) -> None:
        """It is in no other widget. Read-only."""
    @parentWidget.setter
    def parentWidget(self, value: None) -> None: ...
    @property
    def layout(self) -> None:
        """The application arranges it. Read-only."""
    @layout.setter
    def layout(self, value: None) -> None: ...

class ModalProgressBarIterator:
    """The state of a loop over a ModalProgressBar. Every step of the loop hands out the same object: take its number
    with int() or value() when the number is to be kept.
    """
    def __next__(self) -> ModalProgressBarIterator:
        """One step: the bar advances by 1. The loop ends when the steps are used up or the bar was cancelled."""
    def __int__(self) -> int:
        """The current index."""
    def __index__(self) -> int:
        """The current index, so that a step can be used to index a list."""
    def __str__(self) -> str:
        """The current index as text."""
    def next(self) -> ModalProgressBarIterator:
        """One step; StopIteration at the end of the loop."""
    def value(self) -> int:
        """The current index, -1 before the first step."""

class ModalProgressBar:
    """A bar in the application's progress window, for a loop that takes its time:

        for step in ModalProgressBar('Reading lines', 1000):
            read(int(step))

    The loop ends early when the user presses Cancel. In a with statement the bar is open for as long as the
    statement lasts and increment() advances it. Bars are used on the main thread only; RuntimeError elsewhere.
    """
    def __init__(self, name: str, steps: int = 100, parent: Optional[ModalProgressBar] = None) -> None:
        """Describes a bar; nothing is shown before the loop begins. A loop over n steps runs n + 1 times, with the
        numbers 0 to n. The bar of a parent that is open when the loop begins contains this one.
        """
    def __iter__(self) -> ModalProgressBarIterator:
        """Opens a new bar. It closes at the end of the loop, however the loop is left."""
    def __enter__(self) -> ModalProgressBar:
        """Opens the bar."""
    def __exit__(self, type: Any, value: Any, traceback: Any) -> None:
        """Closes the bar."""
    def cancel(self) -> None:
        """The next step ends the loop."""
    def cancelled(self) -> bool:
        """Whether the user or cancel() ended the loop."""
    def increment(self, n: int = 1) -> bool:
        """Advances the open bar by n steps. False when it was cancelled: it is time to leave. Raises RuntimeError when
        the bar is not open, ValueError for a negative n.
        """

class ObjectId(int):
    """The kinds of object that a project holds. ObjectId(number) raises ValueError for a number that is no kind."""
    names: dict[str, ObjectId]
    values: dict[int, ObjectId]
    name: str
    Volume: ObjectId  # 1
    Layer: ObjectId  # 6
    RandomLine: ObjectId  # 7
    ColorBar: ObjectId  # 18
    Geobody: ObjectId  # 27
    Fault3d: ObjectId  # 28
    Horizon3d: ObjectId  # 29
    Survey: ObjectId  # 32
    Well: ObjectId  # 33
    ExtractionArea: ObjectId  # 35
    Model: ObjectId  # 36
    Culture: ObjectId  # 45
    Wavelet: ObjectId  # 49
    MultiZ: ObjectId  # 50
    CRS: ObjectId  # 86
    Horizon2d: ObjectId  # 88
    Fault2d: ObjectId  # 89
    RandomLineSet: ObjectId  # 91
    Polyline3d: ObjectId  # 94

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

class InterpolationMethod(int):
    """How values between the samples are made."""
    names: dict[str, InterpolationMethod]
    values: dict[int, InterpolationMethod]
    name: str
    NoInterpolation: InterpolationMethod  # 0
    Bilinear: InterpolationMethod  # 1
    Bicubic: InterpolationMethod  # 2

class SmoothingMethod(int):
    """How data are smoothed. There is no value 3."""
    names: dict[str, SmoothingMethod]
    values: dict[int, SmoothingMethod]
    name: str
    NoSmoothing: SmoothingMethod  # 0
    Median: SmoothingMethod  # 1
    Gaussian: SmoothingMethod  # 2
    StructureOriented: SmoothingMethod  # 4

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
    @staticmethod
    def _fromState(description: bytes) -> Crs:
        """For pickle and copy."""
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

class Project:
    """The open project: a folder with a folder of files for each kind of object. getProject() gives it.

    An object's name is its file's name without folder and suffix. After the project was closed, and on another
    thread than the main one, every use raises RuntimeError.
    """
    @property
    def path(self) -> str:
        """The project's folder, an absolute path. Read-only."""
    @property
    def crs(self) -> Crs | None:
        """The reference system of the project's map coordinates; None when it has none.

        Setting raises TypeError for anything but a Crs or None, RuntimeError when it can not be stored.
        """
    @crs.setter
    def crs(self, value: Crs | None) -> None: ...
    def hasCrs(self) -> bool:
        """Whether the project has a reference system."""
    @overload
    def objects(self) -> list[str]:
        """The file names of all objects of the project, kind by kind, in the order of their names."""
    @overload
    def objects(self, kind: ObjectId, /) -> list[str]:
        """The file names of the project's objects of one kind, in the order of their names."""
    def getFilename(self, kind: ObjectId, name: str, /) -> str:
        """The file name of the object of a name, whether it exists or not.

        Raises ValueError when name is not possible: empty, too long, with a slash or a control character.
        """
    def getNewFilename(self, kind: ObjectId, name: str = ..., /) -> str:
        """A file name that no object has yet, in a folder that exists: of name, or of 'name 2', 'name 3' and so on.
        Without a name that of the kind is taken.

        Raises ValueError when name is not possible, RuntimeError when the folder can not be made.
        """
    def icon(self, kind: ObjectId, /) -> Icon:
        """The icon of a kind, as the project browser shows it."""
    def addVirtualDirectory(self, kind: ObjectId, name: str, parent: str | None = None, /) -> None:
        """Makes a virtual directory for objects of a kind. parent is the directory of the same kind that it is put
        into; '' and None make it a top-level one.

        Raises RuntimeError when the kind has a directory of this name already, when the parent is not there, and
        when the name is impossible or can not be stored; the cause says which.
        """
    def removeVirtualDirectory(self, kind: ObjectId, name: str, /) -> None:
        """Removes a virtual directory. What is in it moves to its parent; of a top-level directory the objects are in
        none then. No file is touched.

        Raises RuntimeError when there is no such directory.
        """
    def getVirtualDirectories(self) -> list[str]:
        """The names of the virtual directories of all kinds, each name once."""
    def setObjectsInVirtualDirectory(self, objects: Sequence[str], kind: ObjectId, name: str, /) -> None:
        """Files objects, given by their file names, into a virtual directory. An object is in one directory at most.
        Objects need not exist yet.

        Raises TypeError when an element is not a str, RuntimeError when objects is empty, when there is no such
        directory and when it can not be stored; the cause says which.
        """
    def setObjectInVirtualDirectory(self, object: str, kind: ObjectId, name: str, /) -> None:
        """Files one object; see setObjectsInVirtualDirectory()."""
    def removeObjectsFromVirtualDirectory(self, objects: Sequence[str], kind: ObjectId, /) -> None:
        """Takes objects, given by their file names, out of their virtual directory.

        Raises TypeError when an element is not a str, RuntimeError when a file is not there.
        """
    def removeObjectFromVirtualDirectory(self, object: str, kind: ObjectId, /) -> None:
        """Takes one object out; see removeObjectsFromVirtualDirectory()."""
    def getObjectsInVirtualDirectory(self, kind: ObjectId, name: str, /) -> list[str]:
        """The file names of the objects in a virtual directory, in the order of their names; empty when there is no
        such directory. An object without a file in the project is listed with the file name that it would have.
        """
    def change(self, name: str, /) -> _ProjectChange:
        """Makes one step of the changes in a with block: Edit > Undo shows name and takes all of them back. Blocks
        within it join it.

        Without it all that one run of a script changes, or one call of a callback, is one step.

        Raises ValueError when name is empty.
        """
    def onChanged(self, object: str, callable: Callable[[str], object], /) -> Callable[[], None]:
        """Calls callable when the object that is given by its file name is changed, renamed, removed or there again,
        whoever does it. It is called on the main thread, once the script has returned to the application, and gets
        the object's file name at that time. Several changes until then are one call. An exception in it is printed.

        The function that is returned ends this; so does closing the project.

        Raises RuntimeError when there is no such object, TypeError when callable can not be called.
        """
    def __eq__(self, other: object) -> bool:
        """Whether both stand for the same open project."""

class _ProjectChange:
    """A block of changes that Undo takes back together; Project.change() gives it."""
    def __enter__(self) -> _ProjectChange:
        """Begins the block."""
    def __exit__(self, type: object, value: object, traceback: object, /) -> bool:
        """Ends it; what was changed until an exception stays changed and can be taken back."""

class _HVImageBaseFloat:
    """What Image2d and Image3d have in common: pixels of 32-bit floats, stored row by row.

    A pixel of NO_VALUE (-9999.0) or not-a-number holds no value and is left out of the statistics.
    """
    def average(self) -> float:
        """Mean of the pixels that hold a value; not-a-number when there is none. Reads every pixel at each call."""
    def standardDeviation(self) -> float:
        """Population standard deviation (divided by the count) of the pixels that hold a value; not-a-number when there
        is none. Reads every pixel at each call.
        """
    @overload
    def fill(self, value: float) -> None:
        """Sets every pixel.

        Raises TypeError when value is neither a number nor a buffer.
        """
    @overload
    def fill(self, buffer: Buffer) -> None:
        """Copies the pixels, x fastest, from an object with the buffer protocol: one row of as many items (FloatArray,
        array.array, a NumPy array of shape (size,)), or a NumPy array of shape (height, width), for an Image3d
        (length, height, width). Integers, bool and floats of any width, byte order and memory layout are converted;
        bytes are numbers from 0 to 255.

        Raises RuntimeError when the count or the shape differs or the items are no real numbers; the image then
        keeps its pixels.
        """
    @property
    def minValue(self) -> float:
        """Smallest pixel that holds a value; NO_VALUE when there is none. Reads every pixel at each use, so a loop
        keeps it in a variable. Read-only.
        """
    @property
    def maxValue(self) -> float:
        """Largest pixel that holds a value; NO_VALUE when there is none. Reads every pixel at each use, so a loop keeps
        it in a variable. Read-only.
        """
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

class ColorSpace(int):
    """The way from one colour to another: RGB straight in red, green and blue; HSV by hue, the shorter way round the
    circle; Lab in steps that look equal (CIE L*a*b*); Diverging through white when the hues differ; Step without a
    transition.
    """
    names: dict[str, ColorSpace]
    values: dict[int, ColorSpace]
    name: str
    RGB: ColorSpace  # 0
    HSV: ColorSpace  # 1
    Lab: ColorSpace  # 2
    Diverging: ColorSpace  # 3
    Step: ColorSpace  # 4

class ColorBarType(int):
    """The predefined palettes. Green and GreenYellowRed are the same value."""
    names: dict[str, ColorBarType]
    values: dict[int, ColorBarType]
    name: str
    GreyScale: ColorBarType  # 0
    RedWhiteBlack: ColorBarType  # 1
    RedWhiteBlack_2: ColorBarType  # 2
    RedWhiteBlue: ColorBarType  # 3
    Seismic: ColorBarType  # 4
    Seismic_2: ColorBarType  # 5
    Seismic_3: ColorBarType  # 6
    Rainbow: ColorBarType  # 8
    GeoModel: ColorBarType  # 9
    Red: ColorBarType  # 10
    Green: ColorBarType  # 11
    GreenYellowRed: ColorBarType  # 11
    Blue: ColorBarType  # 12
    Horizon: ColorBarType  # 13
    Thinning: ColorBarType  # 14
    AI: ColorBarType  # 15
    Curvature: ColorBarType  # 16
    Envelope: ColorBarType  # 17
    Energy: ColorBarType  # 18
    Gradient: ColorBarType  # 19
    Velocity: ColorBarType  # 20
    Density: ColorBarType  # 21
    Azimuth: ColorBarType  # 22
    Porosity: ColorBarType  # 23
    Sand: ColorBarType  # 24
    Shale: ColorBarType  # 25
    Dip: ColorBarType  # 26
    Throw: ColorBarType  # 27
    Phase: ColorBarType  # 28
    Frequency: ColorBarType  # 29
    GreyBlue: ColorBarType  # 30
    Cyan: ColorBarType  # 31
    Magenta: ColorBarType  # 32
    Yellow: ColorBarType  # 33
    BlueWhiteRed: ColorBarType  # 34
    DipBrown: ColorBarType  # 35
    GeoModelRainbow: ColorBarType  # 36
    GeoModelCold: ColorBarType  # 37
    GeoModelDark: ColorBarType  # 38
    GeoModelWarm: ColorBarType  # 39
    SandProbability: ColorBarType  # 40
    AvoContrast: ColorBarType  # 41
    BluePurpleYellow: ColorBarType  # 43
    CoarseExtraction: ColorBarType  # 45
    Surface: ColorBarType  # 46
    DipAzimuth: ColorBarType  # 47
    Elevation: ColorBarType  # 48
    ReflectionStrength: ColorBarType  # 49
    Rotary: ColorBarType  # 50
    Spectrum: ColorBarType  # 51
    Structural: ColorBarType  # 52
    Tropic: ColorBarType  # 53
    Variance: ColorBarType  # 54
    Velocity2: ColorBarType  # 55
    WhiteBlueGreen: ColorBarType  # 56
    Channels: ColorBarType  # 57
    Colors256: ColorBarType  # 58

class ColorBar:
    """Maps values to colours by 256 entries that span the values from minimum to maximum. A colour is a tuple of red,
    green, blue and alpha, each 0 to 255; where one is expected, alpha may be left out (255). Entries are counted
    from 0.
    """
    def __init__(self) -> None:
        """A grey scale from black to white over [0, 1]."""
    @staticmethod
    def fromFile(filename: str | os.PathLike, name: str = '') -> ColorBar:
        """Reads a ParaView colour map (.json) or a GMT colour palette table (.cpt). name picks one of several colour
        maps in a file.

        Raises FileNotFoundError, or IOError that tells what is wrong and in which line.
        """
    @overload
    @staticmethod
    def named(palette: str) -> ColorBar:
        """A copy of a predefined palette by its identifier ('SEISMIC', see paletteNames()).

        Raises ValueError when there is no such palette.
        """
    @overload
    @staticmethod
    def named(palette: ColorBarType) -> ColorBar:
        """By its type. The number 11 gives 'GREEN'; ColorBarType.AI gives 'VELOCITY'.

        Raises ValueError for a number without a palette.
        """
    @staticmethod
    def paletteNames() -> list[str]:
        """The identifiers of the predefined palettes, in the catalogue's order."""
    def __len__(self) -> int:
        """256."""
    def __getitem__(self, index: int) -> tuple[int, int, int, int]:
        """The colour of one entry. Raises IndexError outside [0, 256)."""
    def __setitem__(self, index: int, color: Sequence[int]) -> None:
        """Sets the colour of one entry. Raises IndexError outside [0, 256)."""
    def setRange(self, minimum: float, maximum: float) -> None:
        """Sets the values that the first and the last entry stand for. Raises ValueError unless minimum < maximum."""
    def colorOf(self, value: float) -> tuple[int, int, int, int]:
        """The colour of a data value: not-a-number and NO_VALUE give noValueColor, values outside the range belowColor
        and aboveColor.
        """
    @overload
    def interpolate(self, first: int, last: int, space: ColorSpace = ColorSpace.RGB) -> None:
        """Replaces the entries between two others by the way from the one to the other, straight in the given colour
        space.

        Raises ValueError unless 0 <= first < last < 256.
        """
    @overload
    def interpolate(self) -> None:
        """Between the two entries of bounds, in RGB."""
    @overload
    def stretch(self, first: int, last: int) -> None:
        """Spreads the entries first to last over the whole bar. Every new entry is one of the old ones, nothing is
        blended.

        Raises ValueError unless 0 <= first < last < 256.
        """
    @overload
    def stretch(self) -> None:
        """The entries between the two of bounds."""
    def save(self, filename: str | os.PathLike) -> None:
        """Writes a new file: a GMT colour palette table when the suffix is .cpt, otherwise a ParaView colour map
        (JSON). The name becomes the file's base name, with a RuntimeWarning when it was another.

        Raises FileExistsError when there is a file already, IOError when it can not be written; its cause says why.
        """
    @property
    def name(self) -> str:
        """The name; the base name of the file that the bar was read from or saved to."""
    @name.setter
    def name(self, value: str) -> None: ...
    @property
    def colors(self) -> list[tuple[int, int, int, int]]:
        """A copy of the 256 entries. Fewer may be assigned: each then fills an equal part of the bar."""
    @colors.setter
    def colors(self, value: list[tuple[int, int, int, int]]) -> None: ...
    @property
    def filename(self) -> str:
        """The file that the bar was read from or saved to; empty when there is none. Read-only."""
    @property
    def minimum(self) -> float:
        """The value that the first entry stands for. Read-only."""
    @property
    def maximum(self) -> float:
        """The value that the last entry stands for. Read-only."""
    @property
    def bounds(self) -> tuple[int, int]:
        """Two marked entries, first < last; (0, 255) at first."""
    @bounds.setter
    def bounds(self, value: tuple[int, int]) -> None: ...
    @property
    def noValueColor(self) -> tuple[int, int, int, int]:
        """For samples without a value; transparent at first."""
    @noValueColor.setter
    def noValueColor(self, value: tuple[int, int, int, int]) -> None: ...
    @property
    def belowColor(self) -> tuple[int, int, int, int] | None:
        """For values below minimum; None takes the first entry."""
    @belowColor.setter
    def belowColor(self, value: tuple[int, int, int, int] | None) -> None: ...
    @property
    def aboveColor(self) -> tuple[int, int, int, int] | None:
        """For values above maximum; None takes the last entry."""
    @aboveColor.setter
    def aboveColor(self, value: tuple[int, int, int, int] | None) -> None: ...

class ContouringMode(int):
    """What contour lines connect: equal data values or equal Z values."""
    names: dict[str, ContouringMode]
    values: dict[int, ContouringMode]
    name: str
    Data: ContouringMode  # 0
    ZValue: ContouringMode  # 1

class Contouring:
    """The contour-line settings of a map view. The view redraws its lines after every assignment; limits and step are
    in the unit of the contoured values.
    """
    def __init__(self) -> None:
        """Settings that no view shows yet: hidden, step 1."""
    @property
    def visible(self) -> bool:
        """Whether contours are shown."""
    @visible.setter
    def visible(self, value: bool) -> None: ...
    @property
    def withLimits(self) -> bool:
        """Whether contours are restricted to [min, max]."""
    @withLimits.setter
    def withLimits(self, value: bool) -> None: ...
    @property
    def min(self) -> float:
        """Lower contour limit."""
    @min.setter
    def min(self, value: float) -> None: ...
    @property
    def max(self) -> float:
        """Upper contour limit."""
    @max.setter
    def max(self, value: float) -> None: ...
    @property
    def contouringMode(self) -> ContouringMode:
        """What is contoured, the data values or the Z values."""
    @contouringMode.setter
    def contouringMode(self, value: ContouringMode) -> None: ...
    @property
    def step(self) -> float:
        """The contour interval. Raises ValueError unless it is greater than 0."""
    @step.setter
    def step(self, value: float) -> None: ...
    @property
    def pen(self) -> Pen:
        """The line style of the contours. Reading gives a copy; assign it to change the contours."""
    @pen.setter
    def pen(self, value: Pen) -> None: ...
    @property
    def minValue(self) -> float:
        """The smallest of the contoured values. Read-only."""
    @property
    def maxValue(self) -> float:
        """The largest of the contoured values. Read-only."""

class VolumeStatistics:
    """Of the samples of a volume that hold a value and are numbers."""
    def percentile(self, percent: float) -> float:
        """The value that this many per cent of the samples do not exceed, between the kept ones on a straight line. Of
        large volumes from an even choice of their rows, with a relative error below 1 %.

        Raises ValueError outside of 0 to 100, RuntimeError when no sample has a value.
        """
    @property
    def count(self) -> int:
        """How many samples have a value. Read-only."""
    @property
    def mean(self) -> float:
        """Their mean; 0 when there are none. Read-only."""
    @property
    def standardDeviation(self) -> float:
        """Read-only."""
    @property
    def minimum(self) -> float:
        """The smallest. Read-only."""
    @property
    def maximum(self) -> float:
        """The largest. Read-only."""

class Volume:
    """Samples on a grid of inlines, crosslines and vertical samples, in a file. Frames are read, changed in memory and
    written one by one; volume[i0:i1, j0:j1, k0:k1] reads and writes regions as arrays of 32-bit floats, and
    numpy.asarray(volume) is a read-only view of the whole file without a copy.

    Indices count from 0 along inlines, crosslines and samples; blockSpace converts them to line numbers and map
    coordinates. A volume stands for its file also when the project is closed. It is used on the main thread; arrays
    and views may be used on any.
    """
    def getFrame(self, index: int) -> Image2d:
        """A copy of one frame of the scan orientation, as it was set in memory or else as the file has it. An inline
        has crosslines to the right and samples down, a crossline inlines to the right and samples down, a time slice
        crosslines to the right and inlines down.

        Raises IndexError outside of minFrameIndex to maxFrameIndex, IOError when the file can not be read,
        MemoryError when memory is short.
        """
    def setFrame(self, index: int, image: Image2d) -> None:
        """Replaces a frame in memory; the file stays as it is. Where frames of different orientations cross, the one
        that was set last counts.

        Raises IndexError outside of minFrameIndex to maxFrameIndex, RuntimeError when the image has another size,
        MemoryError when memory is short.
        """
    def currentFrame(self) -> Image2d:
        """The frame frameIndex, as getFrame() gives it."""
    def writeFrame(self, index: int, image: Image2d) -> None:
        """Writes a frame into the file. Undo takes it back in a project.

        Raises IndexError outside of minFrameIndex to maxFrameIndex, RuntimeError when the image has another size,
        IOError with the system's error number when the file can not be written.
        """
    @property
    def minFrameIndex(self) -> int:
        """The first frame of the scan orientation, 0. Read-only."""
    @property
    def maxFrameIndex(self) -> int:
        """The last frame of the scan orientation. Read-only."""
    @property
    def scanOrientation(self) -> ScanOrientation:
        """The axis that frames are cut across; Inline at first."""
    @scanOrientation.setter
    def scanOrientation(self, value: ScanOrientation) -> None: ...
    @property
    def frameIndex(self) -> int:
        """The current frame. Raises IndexError outside of minFrameIndex to maxFrameIndex."""
    @frameIndex.setter
    def frameIndex(self, value: int) -> None: ...
    def createFile(self, filename: str | os.PathLike | None = None) -> bool:
        """Makes the volume's file, with the samples as they are in memory or else in the file that was read; what is in
        neither has no value. From then on it is what the volume reads and writes. In the project's folder of
        volumes, getNewFilename() gives such a path, it becomes an object of the project. None takes filename.

        False when it could not be made; the reason is told as a message of the application. Raises FileExistsError
        when there is a file already, TypeError when filename is no text.
        """
    def flush(self) -> None:
        """Brings to the disk what was written, renews the further orders of the file and tells the project. That is
        done by itself once the script has returned to the application, or the volume is dropped.

        Raises IOError when the file can not be written.
        """
    @staticmethod
    def fromFile(filename: str | os.PathLike) -> Volume:
        """Opens a volume file by its path, in the project or elsewhere: a SeismicVolume, or a Volume when its samples
        are a property of the rock.

        Raises FileNotFoundError, or IOError that tells what is wrong with it.
        """
    @property
    def filename(self) -> str:
        """The full path of the file; empty when there is none. Setting it moves nothing on the disk: it is where the
        next frame is written to.
        """
    @filename.setter
    def filename(self, value: str) -> None: ...
    @property
    def name(self) -> str:
        """The file's name without folder and suffix. Setting it makes filename that of the same folder and suffix;
        nothing is moved on the disk.
        """
    @name.setter
    def name(self, value: str) -> None: ...
    @property
    def transposed(self) -> bool:
        """Whether the file has further orders of its samples, which read crosslines and time slices as fast as inlines.
        Setting it decides what createFile() makes; it then reads as True once the file has them.
        """
    @transposed.setter
    def transposed(self, value: bool) -> None: ...
    @property
    def datasize(self) -> int:
        """Bytes of the samples, once: 4 for each. Read-only."""
    @property
    def blockSpace(self) -> BlockSpace:
        """A copy of extents and place, with scan orientation and current frame. Set it to give a volume without a file
        its extents; frames that were set in memory are dropped when those change. Of a volume with a file only
        orientation and frame can be set.

        Setting raises RuntimeError for another place than the file's, and for extents that no file can hold.
        """
    @blockSpace.setter
    def blockSpace(self, value: BlockSpace) -> None: ...
    @property
    def crs(self) -> Crs | None:
        """The reference system of the world's x and y; None when it is not known.

        This and the following are written into the file at once, if there is one; setting raises RuntimeError when
        that fails.
        """
    @crs.setter
    def crs(self, value: Crs | None) -> None: ...
    @property
    def domain(self) -> Domain:
        """What the vertical axis measures."""
    @domain.setter
    def domain(self, value: Domain) -> None: ...
    @property
    def horizontalUnit(self) -> Unit:
        """That of the world's x and y."""
    @horizontalUnit.setter
    def horizontalUnit(self, value: Unit) -> None: ...
    @property
    def verticalUnit(self) -> Unit:
        """That of the vertical axis and of sampleInterval."""
    @verticalUnit.setter
    def verticalUnit(self, value: Unit) -> None: ...
    @property
    def quantity(self) -> str:
        """What the samples are, for people: 'Amplitude'."""
    @quantity.setter
    def quantity(self, value: str) -> None: ...
    @property
    def noValue(self) -> float:
        """Stands where nothing was measured; NO_VALUE unless the file says otherwise. Read-only."""
    @property
    def sampleInterval(self) -> float:
        """From one sample of a trace to the next, in verticalUnit. Read-only."""
    @property
    def statistics(self) -> VolumeStatistics | None:
        """Of the samples in the file, kept in it; None when they are not known: there is no file, or parts of a large
        one were written anew. Read-only.
        """
    def makeStatistics(self) -> VolumeStatistics:
        """Reads all samples of the file and keeps their statistics in it. Other Python threads run meanwhile.

        Raises RuntimeError without a file, IOError when it can not be read or written.
        """
    @property
    def history(self) -> list[tuple[str, str]]:
        """What was done to make the volume what it is: time (UTC, ISO 8601) and text, the oldest first. Read-only."""
    def note(self, what: str) -> None:
        """Adds to the history."""
    def __getitem__(self, index: int | slice | tuple) -> numpy.ndarray | float:
        """Samples of the file as a new array of 32-bit floats, by NumPy's rules for ints, slices with steps, indices
        from the end and '...'; one sample as a float. Other Python threads run meanwhile. Frames that were set in
        memory are not in it until they are written.

        Raises IndexError outside the volume, TypeError for another kind of index, RuntimeError without a file,
        IOError when it can not be read, MemoryError when memory is short.
        """
    def __setitem__(self, index: int | slice | tuple, value: ArrayLike) -> None:
        """Writes samples into the file; value is spread to the shape of the region by NumPy's rules. Other Python
        threads run meanwhile. Undo takes it back in a project, unless it is too large to be kept, which a warning
        tells.

        Raises ValueError for another shape, IndexError outside the volume, RuntimeError without a file, IOError when
        it can not be written: inlines before the one that failed are written then.
        """
    def __array__(self, dtype: object = None, copy: object = None) -> numpy.ndarray:
        """For numpy.asarray() of a volume without a file: raises RuntimeError."""
    def __len__(self) -> int:
        """The number of inlines."""
    @property
    def shape(self) -> tuple[int, int, int]:
        """Numbers of inlines, crosslines and samples: the shape of the volume as an array. Read-only."""
    @property
    def ndim(self) -> int:
        """3. Read-only."""
    @property
    def dtype(self) -> numpy.dtype:
        """That of 32-bit floats. Read-only."""
    def toImage3d(self, inlines: slice | int | None = None, crosslines: slice | int | None = None, samples: slice | int | None = None) -> Image3d:
        """A copy of a region of the file as an image, with the block space that places it in the survey and in the
        world. None is a whole axis; x of the image counts crosslines, y inlines and z samples.

        Raises IndexError for an empty region, RuntimeError without a file, IOError when it can not be read,
        MemoryError when memory is short.
        """
    def pieces(self, halo: int = 0, inlines: int = 0) -> Iterator[VolumePiece]:
        """Walks the file in pieces of whole inlines, for work on volumes that are larger than memory: for piece in
        volume.pieces(halo=2). Each has so many inlines, 0 takes as many as make about 64 MB, and halo more on either
        side, fewer at the ends of the volume. The halo has the samples as they were before the piece beside it was
        written.

        Raises ValueError when a number is negative, RuntimeError without a file.
        """

class VolumePiece:
    """Some inlines of a volume with the halo on either side; Volume.pieces() gives one after the other."""
    def write(self, values: ArrayLike | None = None, to: Volume | None = None) -> None:
        """Writes the piece without its halo into its volume, or into another one of the same shape. values are of the
        shape of array, whose halo is left out, or have the inlines of the piece only; None is array.

        Raises what assigning to a region of the volume raises.
        """
    @property
    def array(self) -> numpy.ndarray:
        """The samples with the halo as 32-bit floats of shape (inline, crossline, sample): a copy, which may be
        changed. Read-only.
        """
    @property
    def inner(self) -> slice:
        """The inlines of array that are no halo. Read-only."""
    @property
    def region(self) -> slice:
        """The inlines of the volume that the piece stands for. Read-only."""

class _VolumePieces:
    """What Volume.pieces() gives: an iterator."""
    def __iter__(self) -> _VolumePieces:
        """Itself."""
    def __next__(self) -> VolumePiece:
        """The next piece."""

class SeismicVolume(Volume):
    """A volume of seismic amplitudes, or of what was computed from them."""
    @overload
    def __init__(self) -> None:
        """A volume without a file, of one cell: give it a blockSpace, then createFile(). Reference system, units and
        domain are those of the project.
        """
    @overload
    def __init__(self, name: str) -> None:
        """Opens the volume of the current project that has this name.

        Raises RuntimeError when there is none, when its samples are a property of the rock, and when its file can
        not be read.
        """

class RandomLineSection:
    """A vertical section of a volume along a random line: a row of traces, and where each of them lies.
    RandomLine.section() gives it.
    """
    @property
    def image(self) -> Image2d:
        """As wide as there are traces, samples downwards; numpy.asarray(image) is of shape (sample, trace). The
        volume's noValue where the line is outside of it. Read-only.
        """
    @property
    def distances(self) -> DoubleArray:
        """The distance of each trace from the first node along the line, in the unit of the volume's map coordinates.
        Read-only.
        """
    @property
    def inlines(self) -> DoubleArray:
        """The inline number of each trace, not rounded. Read-only."""
    @property
    def crosslines(self) -> DoubleArray:
        """The crossline number of each trace, not rounded. Read-only."""
    @property
    def x(self) -> DoubleArray:
        """Map x of each trace. Read-only."""
    @property
    def y(self) -> DoubleArray:
        """Map y of each trace. Read-only."""
    def __len__(self) -> int:
        """The number of traces."""

class RandomLine:
    """A line on the map along which sections of volumes are cut, straight from node to node. What a script changes is
    its own until save().
    """
    @overload
    def __init__(self) -> None:
        """A line without nodes and without a file."""
    @overload
    def __init__(self, filename: str | os.PathLike) -> None:
        """Opens a random line's file.

        Raises FileNotFoundError, or RuntimeError, whose cause tells what is wrong with the file.
        """
    @property
    def filename(self) -> str:
        """The file that the line was read from or saved to; empty when there is none. Read-only."""
    @property
    def name(self) -> str:
        """The file's name without folder and suffix. Read-only."""
    @property
    def nodes(self) -> list[vec2]:
        """A copy of the nodes: map x and y, or inline and crossline numbers, as frame says. Anything with points of two
        or three numbers can be assigned: tuples, vec2, vec3, a Vec3Array, an array of shape (n, 2) or (n, 3), whose
        third number is left out.

        Setting raises ValueError for fewer than two nodes and for numbers that are not finite, TypeError for what is
        no point.
        """
    @nodes.setter
    def nodes(self, value: list[vec2]) -> None: ...
    @property
    def frame(self) -> ScaleType:
        """What the nodes are: ScaleType.World, map x and y (at first), or ScaleType.Survey, inline and crossline
        numbers. Setting it converts nothing; other values raise ValueError.
        """
    @frame.setter
    def frame(self, value: ScaleType) -> None: ...
    @property
    def crs(self) -> Crs | None:
        """The reference system of nodes in map coordinates; None when it is not stated."""
    @crs.setter
    def crs(self, value: Crs | None) -> None: ...
    def save(self, filename: str | os.PathLike | None = None) -> None:
        """Writes the line into a new file, or anew into its own, which None is. In the project's folder of random
        lines, getNewFilename() gives such a path, it becomes an object of the project.

        Raises FileExistsError when there is another file already, RuntimeError for a line without nodes, ValueError
        when no file is named, IOError when it can not be written.
        """
    def section(self, volume: Volume, interpolation: InterpolationMethod = InterpolationMethod.Bilinear, spacing: float = 0.0) -> RandomLineSection:
        """The section of a volume's file along the line. NoInterpolation takes the trace of the nearest bin, Bilinear
        makes it of the four around it, of which those without a value do not count. spacing is the distance of the
        traces in the unit of the map coordinates; 0 takes one for every bin that is crossed. Nodes in map
        coordinates are those of the volume: nothing is transformed between reference systems. Other Python threads
        run meanwhile.

        Raises RuntimeError for a line without nodes, a volume without a file, and when it can not be read;
        ValueError for another interpolation or a negative spacing.
        """

def pluginDirectory() -> str | None:
    """The folder of the plug-in whose code calls; None outside a plug-in."""

def version() -> tuple[int, int]:
    """The application's version: major, minor."""

def mainWindow() -> MainWindow:
    """The application's main window; None when there is none."""

def hasProject() -> bool:
    """Whether a project is open."""

def getProject() -> Project | None:
    """The open project; None when there is none."""

def showDialogBox(message: str) -> None:
    """Shows a message and waits until the user has seen it. Under `strativo run` the message goes to standard error.

    Raises TypeError when message is not a str.
    """

def showQuestionBox(message: str, title: str = None) -> bool:
    """Asks the user; True for Yes. Under `strativo run` the question goes to standard error and the answer is No.

    Raises TypeError when message or title is not a str.
    """

def addSubWindow(widget: Widget) -> SubWindow:
    """Shows the widget in the main window's document area, which owns it from then on; closing it there destroys it.

    Raises TypeError for anything but a widget, RuntimeError when there is no document area, ValueError for a widget
    that is in a layout or container.
    """

def addMainWindowMenu(title: str) -> Menu:
    """The menu with that title in the main window's menu bar, made when there is none yet. Plug-ins only.

    Raises RuntimeError outside a plug-in and for the names of the application's own menus.
    """

def getMainWindowMenu(title: str) -> Menu | None:
    """The menu with that title; None when there is none.

    Raises RuntimeError for the names of the application's own menus.
    """

def removeMainWindowMenu(title: str) -> bool:
    """Takes the menu out of the menu bar; False when there is none. Plug-ins only.

    Raises RuntimeError outside a plug-in and for the names of the application's own menus.
    """

def addMainWindowToolBar(name: str) -> ToolBar:
    """A new tool bar with that title. Plug-ins only.

    Raises ValueError for an empty name and for one that begins with 'strativo:', RuntimeError outside a plug-in and
    when there is a tool bar of that name.
    """

def removeMainWindowToolBar(name: str) -> bool:
    """Takes the tool bar away; False when there is none. Plug-ins only.

    Raises RuntimeError outside a plug-in.
    """

def getDirectory(text: str | None) -> str:
    """Lets the user choose a folder; `text` is the dialog's title. Empty when the user chose none, and always under
    `strativo run`.

    Raises TypeError.
    """

def getFile(text: str | None) -> str:
    """Lets the user choose a file; `text` is the dialog's title. Empty when the user chose none, and always under
    `strativo run`.

    Raises TypeError.
    """

def getFiles(text: str | None) -> list[str]:
    """Lets the user choose several files; `text` is the dialog's title. Empty when the user chose none, and always
    under `strativo run`.

    Raises TypeError.
    """

def updateProject(objectType: ObjectId = None) -> None:
    """Lets the application show the project's objects of that kind, or all, as they are now.

    Raises TypeError, RuntimeError on a thread of the script's own.
    """

def updatePaletteList() -> None:
    """Lets the application read its list of colour bars anew.

    Raises RuntimeError on a thread of the script's own.
    """

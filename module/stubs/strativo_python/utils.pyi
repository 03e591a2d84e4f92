"""Conversion of points between block, survey and world coordinates."""
# Written by module/stubs/generate.py; do not edit.
from typing import overload
from strativo_python import BlockSpace, Vec3Array, vec3

@overload
def blockToSurvey(point: vec3, blockSpace: BlockSpace) -> vec3:
    """Converts block coordinates to survey coordinates; an array of points is converted at once into a new array. A
    sequence of vec3 or a numpy array of shape (n, 3) is taken for an array.

    Block coordinates are (x, y, z) in cells, survey coordinates (inline, crossline, sample), world coordinates map
    x, map y and depth or time.

    Raises TypeError for other arguments.
    """
@overload
def blockToSurvey(x: float, y: float, z: float, blockSpace: BlockSpace) -> vec3: ...
@overload
def blockToSurvey(points: Vec3Array, blockSpace: BlockSpace) -> Vec3Array: ...

@overload
def blockToWorld(point: vec3, blockSpace: BlockSpace) -> vec3:
    """Converts block coordinates to world coordinates; an array of points is converted at once into a new array. A
    sequence of vec3 or a numpy array of shape (n, 3) is taken for an array.

    Block coordinates are (x, y, z) in cells, survey coordinates (inline, crossline, sample), world coordinates map
    x, map y and depth or time.

    Raises TypeError for other arguments.
    """
@overload
def blockToWorld(x: float, y: float, z: float, blockSpace: BlockSpace) -> vec3: ...
@overload
def blockToWorld(points: Vec3Array, blockSpace: BlockSpace) -> Vec3Array: ...

@overload
def surveyToWorld(point: vec3, blockSpace: BlockSpace) -> vec3:
    """Converts survey coordinates to world coordinates; an array of points is converted at once into a new array. A
    sequence of vec3 or a numpy array of shape (n, 3) is taken for an array.

    Block coordinates are (x, y, z) in cells, survey coordinates (inline, crossline, sample), world coordinates map
    x, map y and depth or time.

    Raises TypeError for other arguments.
    """
@overload
def surveyToWorld(x: float, y: float, z: float, blockSpace: BlockSpace) -> vec3: ...
@overload
def surveyToWorld(points: Vec3Array, blockSpace: BlockSpace) -> Vec3Array: ...

@overload
def worldToBlock(point: vec3, blockSpace: BlockSpace) -> vec3:
    """Converts world coordinates to block coordinates; an array of points is converted at once into a new array. A
    sequence of vec3 or a numpy array of shape (n, 3) is taken for an array.

    Block coordinates are (x, y, z) in cells, survey coordinates (inline, crossline, sample), world coordinates map
    x, map y and depth or time.

    Raises TypeError for other arguments.
    """
@overload
def worldToBlock(x: float, y: float, z: float, blockSpace: BlockSpace) -> vec3: ...
@overload
def worldToBlock(points: Vec3Array, blockSpace: BlockSpace) -> Vec3Array: ...

@overload
def worldToSurvey(point: vec3, blockSpace: BlockSpace) -> vec3:
    """Converts world coordinates to survey coordinates; an array of points is converted at once into a new array. A
    sequence of vec3 or a numpy array of shape (n, 3) is taken for an array.

    Block coordinates are (x, y, z) in cells, survey coordinates (inline, crossline, sample), world coordinates map
    x, map y and depth or time.

    Raises TypeError for other arguments.
    """
@overload
def worldToSurvey(x: float, y: float, z: float, blockSpace: BlockSpace) -> vec3: ...
@overload
def worldToSurvey(points: Vec3Array, blockSpace: BlockSpace) -> Vec3Array: ...

@overload
def surveyToBlock(point: vec3, blockSpace: BlockSpace) -> vec3:
    """Converts survey coordinates to block coordinates; an array of points is converted at once into a new array. A
    sequence of vec3 or a numpy array of shape (n, 3) is taken for an array.

    Block coordinates are (x, y, z) in cells, survey coordinates (inline, crossline, sample), world coordinates map
    x, map y and depth or time.

    Raises TypeError for other arguments.
    """
@overload
def surveyToBlock(x: float, y: float, z: float, blockSpace: BlockSpace) -> vec3: ...
@overload
def surveyToBlock(points: Vec3Array, blockSpace: BlockSpace) -> Vec3Array: ...

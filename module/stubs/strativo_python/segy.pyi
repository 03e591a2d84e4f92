"""Seismic volumes from SEG-Y files and into them."""
# Written by module/stubs/generate.py; do not edit.
import os
from strativo_python import Crs, Domain, SeismicVolume

class Exporter:
    """Writes seismic volumes to SEG-Y files of revision 1."""
    def __init__(self) -> None:
        """An exporter without a textual header."""
    def export(self, filename: str | os.PathLike, volume: SeismicVolume) -> bool:
        """Writes a volume, with the frames that were set in memory, as a new SEG-Y file: inline by inline, numbers of
        the lines at bytes 189 and 193, map coordinates at 181 and 185 of the trace headers, samples without a value
        as 0.

        False when writing failed; the reason is told as a message of the application, and what was written stays.
        Raises RuntimeError without a volume and when the disk has not the room, FileExistsError when there is a file
        already.
        """
    @property
    def textualHeader(self) -> str:
        """The text at the beginning of the file, 40 rows of 80 characters: lines become rows, a longer one goes on in
        the next. Empty, as at first: name, corners and reference system of the volume.
        """
    @textualHeader.setter
    def textualHeader(self, value: str) -> None: ...
    @property
    def sampleFormat(self) -> str:
        """'IBM' (at first) or 'IEEE'. Other values raise ValueError."""
    @sampleFormat.setter
    def sampleFormat(self, value: str) -> None: ...
    @property
    def encoding(self) -> str:
        """Of the textual header, 'EBCDIC' (at first) or 'ASCII'. Other values raise ValueError."""
    @encoding.setter
    def encoding(self, value: str) -> None: ...

def importVolume(filename: str | os.PathLike, target: str | os.PathLike, inlineByte: int | str | None = None, crosslineByte: int | str | None = None, xByte: int | str | None = None, yByte: int | str | None = None, domain: Domain | None = None, crs: Crs | None = None) -> SeismicVolume:
    """Makes a volume of a SEG-Y file of revision 0 to 2. target is the volume's new file; one that getNewFilename()
    gives becomes an object of the project. Positions are bytes of the trace header, counted from 1, '189:2' for a
    number of two bytes; None finds them out. domain is time unless it is said, crs the reference system of the
    coordinates. What was found and assumed stands in the volume's history. Other Python threads run meanwhile.

    Raises FileNotFoundError, FileExistsError when target is there already, ValueError for an impossible position,
    IOError when the file can not be imported, and leaves nothing behind then.
    """

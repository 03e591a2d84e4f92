"""Draws all predefined palettes into one picture: strativo run palette_sheet.py sheet.svg"""
import base64
import struct
import sys
import zlib

from strativo_python import ColorBar

COLUMNS, WIDTH, HEIGHT, LABEL = 3, 190, 18, 165


def png(colors):
    """A picture of one row of pixels."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    pixels = b"\0" + bytes(component for color in colors for component in color)
    header = struct.pack(">IIBBBBB", len(colors), 1, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(pixels, 9))
            + chunk(b"IEND", b""))


names = ColorBar.paletteNames()
rows = -(-len(names) // COLUMNS)
lines = ['<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="%d" height="%d" '
         'font-family="sans-serif" font-size="11">' % (COLUMNS * (LABEL + WIDTH + 15), rows * (HEIGHT + 6) + 6),
         '<rect width="100%" height="100%" fill="white"/>']
for index, name in enumerate(names):
    x = index // rows * (LABEL + WIDTH + 15) + 8
    y = index % rows * (HEIGHT + 6) + 6
    data = base64.b64encode(png(ColorBar.named(name).colors)).decode()
    lines.append('<text x="%d" y="%d">%s</text>' % (x, y + 13, name))
    lines.append('<image x="%d" y="%d" width="%d" height="%d" preserveAspectRatio="none" image-rendering="pixelated" '
                 'xlink:href="data:image/png;base64,%s"/>' % (x + LABEL, y, WIDTH, HEIGHT, data))
    lines.append('<rect x="%d" y="%d" width="%d" height="%d" fill="none" stroke="#808080" stroke-width="0.5"/>'
                 % (x + LABEL, y, WIDTH, HEIGHT))
lines.append("</svg>\n")
with open(sys.argv[1], "w", encoding="ascii") as sheet:
    sheet.write("\n".join(lines))

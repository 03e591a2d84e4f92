"""The textual and the binary header of a SEG-Y file (SEG Technical Standards, SEG-Y revision 1, 2002)."""
import struct

TEXT_BYTES = 3200
CARD_BYTES = 80
BINARY_BYTES = 400
FORMATS = {1: "IBM float", 2: "32-bit integer", 3: "16-bit integer", 5: "IEEE float", 8: "8-bit integer"}


class NotSegy(ValueError):
    """The file is too short or its headers make no sense."""


def decode_text(block):
    """The 40 lines; EBCDIC as the standard asks, or ASCII as many programs write."""
    # A blank is 0x40 in EBCDIC and 0x20 in ASCII, and most of a textual header is blank.
    encoding = "cp037" if block.count(0x40) > block.count(0x20) else "ascii"
    text = block.decode(encoding, errors="replace")
    lines = [text[i:i + CARD_BYTES] for i in range(0, TEXT_BYTES, CARD_BYTES)]
    return ["".join(c if c.isprintable() else " " for c in line).rstrip() for line in lines]


def read(path):
    """(lines of the textual header, fields of the binary header)"""
    with open(path, "rb") as file:
        text, binary = file.read(TEXT_BYTES), file.read(BINARY_BYTES)
    if len(binary) < BINARY_BYTES:
        raise NotSegy("a SEG-Y file has at least %d bytes of headers" % (TEXT_BYTES + BINARY_BYTES))
    interval, = struct.unpack_from(">H", binary, 16)
    samples, = struct.unpack_from(">H", binary, 20)
    code, = struct.unpack_from(">h", binary, 24)
    if code not in FORMATS:
        raise NotSegy("the sample format code is %d, which no SEG-Y file has" % code)
    fields = {"Sample interval (us)": interval, "Samples per trace": samples, "Sample format": FORMATS[code],
              "Revision": "%d.%d" % tuple(binary[300:302])}
    return decode_text(text), fields


def report(path):
    lines, fields = read(path)
    facts = ["%-22s%s" % item for item in fields.items()]
    return "\n".join(facts + [""] + lines) + "\n"

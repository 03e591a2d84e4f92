"""What Qt complains about while a test runs: the program itself keeps it quiet."""
import contextlib
import ctypes

import strativo_python

_HANDLER = ctypes.CFUNCTYPE(None, ctypes.c_int, ctypes.c_void_p, ctypes.POINTER(ctypes.c_void_p))
_install = ctypes.CDLL("libQt5Core.so.5")["_Z22qInstallMessageHandlerPFv9QtMsgTypeRK18QMessageLogContextRK7QStringE"]
_install.restype = ctypes.c_void_p
_install.argtypes = [ctypes.c_void_p]

strativo_python.Widget()  # what Qt says while it starts is not about the test


def _text(string):
    """A QString of Qt 5: a pointer to its header, whose fields are reference count, length, flags and the offset of
    the UTF-16 text."""
    header = string[0]
    length = ctypes.c_int.from_address(header + 4).value
    offset = ctypes.c_ssize_t.from_address(header + 16).value
    return ctypes.string_at(header + offset, 2 * length).decode("utf-16-le")


@contextlib.contextmanager
def collected(lines):
    def note(kind, context, string):
        line = _text(string)
        if not line.startswith("This plugin does not support"):  # of the screen that is none
            lines.append(line)

    handler = _HANDLER(note)
    before = _install(ctypes.cast(handler, ctypes.c_void_p))
    try:
        yield
    finally:
        _install(before)

#pragma once

/// Stands in for sys.stdout or sys.stderr: each write becomes one message on the event bus, exactly as written.
/// Python sees it through a class named "__HVPythonStreamCapture" in `__main__` (see StreamCaptureBinding.cpp).
struct HVPythonStreamCapture
{
    bool isStdout;
};

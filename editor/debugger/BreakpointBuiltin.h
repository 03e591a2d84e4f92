#pragma once

namespace debugger {

class Engine;

/// Makes the built-in breakpoint() stop in this engine instead of asking on the terminal, which a windowed program may
/// not have; while the engine is off it only says so on the event bus. Null gives Python's own behaviour back. Needs
/// the interpreter lock.
void setBreakpointBuiltin(Engine* engine);

} // namespace debugger

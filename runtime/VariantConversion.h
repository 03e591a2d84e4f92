#pragma once

/// Host variants and Python int, bool, float and str.
///
/// bool is an int to Python and arrives as the integers 1 and 0. Every other type raises TypeError. Integers that do
/// not fit 32 bits become 64-bit variants; beyond 64 bits they raise OverflowError.
namespace python {

/// Registers both directions with the binding layer. Needs the interpreter lock.
void registerVariantConversion();

} // namespace python

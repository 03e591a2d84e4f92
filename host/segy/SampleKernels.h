#pragma once

#include <cstddef>
#include <cstdint>

/// The loops of SampleFormat.h, compiled for several instruction sets. `swap` exchanges the bytes of a number.
namespace hv::segy::kernels {

/// Numbers in a file lie at any address.
using Bits32 = std::uint32_t __attribute__((aligned(1), may_alias));
using Bits16 = std::uint16_t __attribute__((aligned(1), may_alias));
using Bits64 = std::uint64_t __attribute__((aligned(1), may_alias));
using Bits8 = std::uint8_t;

void fromIbm(const Bits32* source, float* target, std::size_t count, bool swap);
void fromIeee(const Bits32* source, float* target, std::size_t count, bool swap);
void fromIeee64(const Bits64* source, float* target, std::size_t count, bool swap);
void fromInt32(const Bits32* source, float* target, std::size_t count, bool swap);
void fromUInt32(const Bits32* source, float* target, std::size_t count, bool swap);
void fromInt16(const Bits16* source, float* target, std::size_t count, bool swap);
void fromUInt16(const Bits16* source, float* target, std::size_t count, bool swap);
void fromInt8(const Bits8* source, float* target, std::size_t count);
void fromUInt8(const Bits8* source, float* target, std::size_t count);

void toIbm(const float* source, Bits32* target, std::size_t count);
void toIeee(const float* source, Bits32* target, std::size_t count);

} // namespace hv::segy::kernels

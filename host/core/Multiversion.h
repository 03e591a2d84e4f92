#pragma once

/// HV_MULTIVERSION before a function compiles it for several instruction sets; the processor's best is picked when the
/// library is loaded. The programs run on any 64-bit x86 processor and still use the wide registers of the present one.
///
/// HV_TARGET_V4, HV_TARGET_V3 and HV_TARGET_DEFAULT mark versions of one function that are written apart, because they
/// use registers of different widths (64, 32 and 16 bytes); only the last exists where there is no choice at loading.
///
/// A function with HV_MULTIVERSION must be free (no template, no lambda that would have to be inlined across
/// instruction sets) and long enough to be worth an indirect call. Instrumented builds keep the plain version: the
/// sanitizers' run-time part is not ready yet when the choice is made.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__)
#define HV_MULTIVERSION __attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default")))
#define HV_TARGET_V4 __attribute__((target("arch=x86-64-v4")))
#define HV_TARGET_V3 __attribute__((target("arch=x86-64-v3")))
#define HV_TARGET_DEFAULT __attribute__((target("default")))
#else
#define HV_MULTIVERSION
#define HV_TARGET_DEFAULT
#endif

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** Compiles a function twice, once for processors with 256-bit vectors; the loader picks the one that fits.

    For plain loops over samples, without a call out of them. Both give the same result to the bit. The sanitizers' run
    time is not there yet when the loader asks, so their builds have the portable one alone; so has clang's, which makes
    the fuzzers. */
#if defined(__x86_64__) && ! defined(__clang__) && ! defined(__SANITIZE_ADDRESS__) && ! defined(__SANITIZE_THREAD__)
    #define DUO_VECTORISED [[gnu::target_clones ("avx2", "default")]]
#else
    #define DUO_VECTORISED
#endif

#pragma once

/// Before a function: it is compiled a second time for processors with wider vectors, which is chosen when
/// the program starts. The results are the same: no operations are contracted. Not under a sanitizer, which
/// is not ready yet when that choice is made.
#if defined(__x86_64__) && defined(__gnu_linux__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define NESTRIX_VECTOR_CLONES __attribute__((target_clones("arch=x86-64-v3", "default")))
#else
#define NESTRIX_VECTOR_CLONES
#endif

// SPDX-License-Identifier: MIT
#include "tests/support/BytesInUse.h"

#ifdef __SANITIZE_ADDRESS__
// Declared here, because Debian's GCC brings the sanitizer's library without its headers.
extern "C" size_t __sanitizer_get_current_allocated_bytes();

size_t BytesInUse()
{
    return __sanitizer_get_current_allocated_bytes();
}
#else
#include <malloc.h>

size_t BytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}
#endif

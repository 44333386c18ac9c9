// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/FreeMemory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace elmworth {

void returnFreeMemory() noexcept {
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

}  // namespace elmworth

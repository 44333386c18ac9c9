# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# What people run ends at a mistake in memory instead of being led on by it: stack protectors, checked calls of the C
# library and of containers, nothing that is both writable and executable, and no table of functions that can be written
# once the program has started. The sanitizers find more, and stand alone. tests/checks/hardening looks at the programs.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

if(CMAKE_BUILD_TYPE STREQUAL "Release")
    # A distribution may have set a lower level, and redefining it without taking it back is a warning.
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -D_GLIBCXX_ASSERTIONS)
    foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
        string(MAKE_C_IDENTIFIER "has${flag}" known)
        # The last is x86's alone, and counts where the C library's start files have it too; Debian 12's do not.
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            add_compile_options(${flag})
        endif()
    endforeach()
    # No path of the machine that builds stands in what it makes, in whichever folder that happens.
    add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=build)
    add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
    # All libraries are the system's. CMake's padding, for a path that an installation would have, means the folder in
    # which somebody happens to work.
    set(CMAKE_SKIP_RPATH ON)
endif()

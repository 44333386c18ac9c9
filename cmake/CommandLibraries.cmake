# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Status bars and key bindings start the command again and again, and binding what it calls of ICU, SQLite and the C++
# library takes longer than most of its work, as loading what libdbus needs takes longer than a call over the bus. So it
# holds them, where the system has their archives; ICU's data, 30 MB, stay shared (SharedICUData.cpp), and libdbus goes
# without libsystemd (NoServedSockets.cpp). Everything else, the application first, links the shared libraries, which Qt
# loads too.
#
# Rooms link Libraries::icu, ::sqlite, ::sodium and ::dbus; these are archives for a target that
# elmworth_hold_libraries() names.

option(ELMWORTH_HOLD_LIBRARIES "Let the command hold ICU, SQLite, libsodium, libdbus and the C++ library, so that it starts sooner" ON)
mark_as_advanced(ICU_I18N_ARCHIVE ICU_UC_ARCHIVE SQLITE_ARCHIVE SODIUM_ARCHIVE DBUS_ARCHIVE)
find_library(ICU_I18N_ARCHIVE libicui18n.a)
find_library(ICU_UC_ARCHIVE libicuuc.a)
find_library(SQLITE_ARCHIVE libsqlite3.a)
find_library(SODIUM_ARCHIVE libsodium.a)
find_library(DBUS_ARCHIVE libdbus-1.a)

set(ELMWORTH_HOLDS_LIBRARIES FALSE)
if(ELMWORTH_HOLD_LIBRARIES AND CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT ELMWORTH_SANITIZE
        AND ICU_I18N_ARCHIVE AND ICU_UC_ARCHIVE AND SQLITE_ARCHIVE AND SODIUM_ARCHIVE AND DBUS_ARCHIVE)
    set(ELMWORTH_HOLDS_LIBRARIES TRUE)
endif()

# elmworth_library(<name> <archives> <shared targets>)
function(elmworth_library name archives shared)
    set(holds "$<BOOL:$<TARGET_PROPERTY:ELMWORTH_HOLDS_LIBRARIES>>")
    add_library(Libraries::${name} INTERFACE IMPORTED GLOBAL)
    set_target_properties(Libraries::${name} PROPERTIES
        INTERFACE_LINK_LIBRARIES "$<${holds}:${archives}>;$<$<NOT:${holds}>:${shared}>")
endfunction()
elmworth_library(icu "${ICU_I18N_ARCHIVE};${ICU_UC_ARCHIVE}" "ICU::i18n;ICU::uc")
elmworth_library(sqlite "${SQLITE_ARCHIVE};m;${CMAKE_DL_LIBS}" SQLite::SQLite3)
elmworth_library(sodium "${SODIUM_ARCHIVE}" PkgConfig::sodium)
elmworth_library(dbus "${DBUS_ARCHIVE}" PkgConfig::dbus)

# elmworth_hold_libraries(<executable>)
function(elmworth_hold_libraries target)
    if(NOT ELMWORTH_HOLDS_LIBRARIES)
        return()
    endif()
    set_target_properties(${target} PROPERTIES ELMWORTH_HOLDS_LIBRARIES TRUE)
    target_sources(${target} PRIVATE
        ${PROJECT_SOURCE_DIR}/src/platform/linux/SharedICUData.cpp
        ${PROJECT_SOURCE_DIR}/src/platform/linux/NoServedSockets.cpp)
    target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc LINKER:--gc-sections,--exclude-libs,ALL)
    # ICU's data are needed without a name of theirs being used.
    target_link_options(${target} PRIVATE
        LINKER:--push-state,--no-as-needed ${ICU_DATA_LIBRARY} LINKER:--pop-state)
endfunction()

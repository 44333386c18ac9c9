# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# One folder is one library. A room sees the headers of all rooms, but links only what it names
# here, so that a call against the direction of the architecture ends in a link error.

# The code that Qt's QML compiler writes does not pass these; sources beside it get them one by one.
set(strict_warnings -Wconversion -Wsign-conversion -Wshadow)

add_library(elmworth_options INTERFACE)
target_include_directories(elmworth_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(elmworth_options INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor
    "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:ELMWORTH_HAS_QML>>>:${strict_warnings}>"
    -Wold-style-cast -Woverloaded-virtual -Wcast-align -Wformat=2 -Wimplicit-fallthrough
    $<$<BOOL:${ELMWORTH_WERROR}>:-Werror>)
if(ELMWORTH_SANITIZE)
    # Not optimized: that would cost more time to compile than the tests save.
    target_compile_options(elmworth_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all
        -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/tests/support/sanitizers-ignore.txt
        -fno-omit-frame-pointer -g1 -O0
        -D_GLIBCXX_ASSERTIONS)  # what they don't see: an empty optional that is read, or an index beyond the end
    target_link_options(elmworth_options INTERFACE -fsanitize=address,undefined)
endif()
if(ELMWORTH_COVERAGE)
    target_compile_options(elmworth_options INTERFACE -fprofile-instr-generate -fcoverage-mapping -g0 -O0)
    target_link_options(elmworth_options INTERFACE -fprofile-instr-generate)
endif()
if(ELMWORTH_FUZZ)
    target_compile_options(elmworth_options INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
        -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/tests/support/sanitizers-ignore.txt
        -fno-omit-frame-pointer -gline-tables-only -O1)
    target_link_options(elmworth_options INTERFACE -fsanitize=address,undefined)
endif()
target_link_options(elmworth_options INTERFACE -Wl,--as-needed)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_link_options(elmworth_options INTERFACE -fuse-ld=lld)  # dozens of large tests are linked
endif()
# QStringLiteral everywhere and no silent conversions between texts.
target_compile_definitions(elmworth_options INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
    ELMWORTH_VERSION="${PROJECT_VERSION}")

# What the tests labelled "outside" need: the programs, and a link of each room by itself.
add_custom_target(outside)

# Precompiles the headers that most sources with Qt read, and those named beside. Made with the definitions
# of Qt6::Core alone, because a compiler takes such a file only for sources that have all of its
# definitions; they may have more.
function(elmworth_qt_header_target target)
    target_link_libraries(${target} PRIVATE elmworth_options Qt6::Core)
    foreach(module Gui Network OpenGL Qml QmlIntegration QmlModels Quick)
        target_include_directories(${target} SYSTEM PRIVATE
            $<TARGET_PROPERTY:Qt6::${module},INTERFACE_INCLUDE_DIRECTORIES>)
    endforeach()
    target_precompile_headers(${target} PRIVATE
        <algorithm> <chrono> <filesystem> <functional> <map> <memory> <optional> <string> <vector>
        <QAbstractListModel> <QColor> <QFont> <QGuiApplication> <QPainter> <QQmlEngine>
        <QQuickPaintedItem> <QQuickWindow> <QtQmlIntegration> ${ARGN})
endfunction()

# The preset dev compiles each file with what it includes itself, and so does tests/checks/tidy: a missing include is found.
set(share_headers FALSE)
if(ELMWORTH_SANITIZE OR ELMWORTH_COVERAGE OR ELMWORTH_FUZZ OR CMAKE_BUILD_TYPE STREQUAL "Release")
    set(share_headers TRUE)
endif()
if(share_headers)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/headers.cpp CONTENT "// Nothing but the headers.\n")
    add_library(elmworth_headers OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/headers.cpp)
    target_link_libraries(elmworth_headers PRIVATE elmworth_options)
    target_precompile_headers(elmworth_headers PRIVATE
        <algorithm> <array> <chrono> <cmath> <cstdint> <filesystem> <functional> <memory> <optional>
        <span> <string> <string_view> <unordered_map> <utility> <vector>)
    add_library(elmworth_qt_headers OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/headers.cpp)
    elmworth_qt_header_target(elmworth_qt_headers)
    # Static plugins read the same headers another way.
    add_library(elmworth_qml_plugin_headers OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/headers.cpp)
    target_link_libraries(elmworth_qml_plugin_headers PRIVATE elmworth_options Qt6::Qml)
    target_compile_definitions(elmworth_qml_plugin_headers PRIVATE QT_PLUGIN QT_STATICPLUGIN)
    target_precompile_headers(elmworth_qml_plugin_headers PRIVATE <QtPlugin> <QtQml/qqmlextensionplugin.h>)
endif()

# elmworth_reuse_headers(<target> <linked target>...)
function(elmworth_reuse_headers target)
    if(NOT share_headers)
        return()
    endif()
    if("${ARGN}" MATCHES "Qt6::(Gui|DBus|Quick)")
        target_precompile_headers(${target} REUSE_FROM elmworth_qt_headers)
    else()
        target_precompile_headers(${target} REUSE_FROM elmworth_headers)
    endif()
endfunction()

# elmworth_room(NAME <target> SOURCES <file>... LINKS <target>... [PRIVATE_LINKS <target>...])
function(elmworth_room)
    cmake_parse_arguments(PARSE_ARGV 0 ROOM "MOC" "NAME" "SOURCES;LINKS;PRIVATE_LINKS")
    add_library(${ROOM_NAME} STATIC ${ROOM_SOURCES})
    target_link_libraries(${ROOM_NAME} PUBLIC elmworth_options ${ROOM_LINKS}
        PRIVATE ${ROOM_PRIVATE_LINKS})
    set_target_properties(${ROOM_NAME} PROPERTIES AUTOMOC ${ROOM_MOC} LINKER_LANGUAGE CXX)
    elmworth_reuse_headers(${ROOM_NAME} ${ROOM_LINKS} ${ROOM_PRIVATE_LINKS})
    elmworth_check_arrows(${ROOM_NAME})
endfunction()

# A static library would link with anything. This links the whole room with what it names, and no more.
function(elmworth_check_arrows room)
    if(NOT ELMWORTH_OUTSIDE)
        return()
    endif()
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${room}_arrows.cpp CONTENT "// The room itself is all there is to link.\n")
    add_library(${room}_arrows MODULE ${CMAKE_CURRENT_BINARY_DIR}/${room}_arrows.cpp)
    target_link_libraries(${room}_arrows PRIVATE $<LINK_LIBRARY:WHOLE_ARCHIVE,${room}>)
    target_link_options(${room}_arrows PRIVATE -Wl,--no-undefined)
    add_dependencies(outside ${room}_arrows)
endfunction()

# elmworth_test(NAME <target> SOURCES <file>... LINKS <target>... [TIMEOUT <seconds>] [OUTSIDE])
# Every test case becomes a test of CTest's, in a fixed time zone and locale unless it sets its own. Under the
# sanitizers, and where lines are counted, the whole program is one test: its start is dear, and there are thousands of
# cases.
function(elmworth_test)
    cmake_parse_arguments(PARSE_ARGV 0 TEST "OUTSIDE" "NAME;TIMEOUT" "SOURCES;LINKS")
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 120)
    endif()
    add_executable(${TEST_NAME} ${TEST_SOURCES})
    target_link_libraries(${TEST_NAME} PRIVATE ${TEST_LINKS} elmworth_test_support
        GTest::gmock GTest::gtest_main)
    target_include_directories(${TEST_NAME} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${TEST_NAME} PRIVATE
        ELMWORTH_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
    # The headers that nearly all tests read, once; with Qt's definitions or without them.
    if("${TEST_LINKS}" MATCHES "Qt6::|gui_test|application|logo|fonts|theme|_ui|_pdf|_tray")
        target_precompile_headers(${TEST_NAME} REUSE_FROM elmworth_qt_test_headers)
    else()
        target_precompile_headers(${TEST_NAME} REUSE_FROM elmworth_test_headers)
    endif()
    set(environment "LC_ALL=en_US.UTF-8;TZ=UTC;QT_QPA_PLATFORM=offscreen;UBSAN_OPTIONS=print_stacktrace=1")
    if(ELMWORTH_SANITIZE OR ELMWORTH_COVERAGE)
        add_test(NAME ${TEST_NAME} COMMAND ${TEST_NAME} --gtest_brief=1)
        set_tests_properties(${TEST_NAME} PROPERTIES TIMEOUT 900 ENVIRONMENT "${environment}")
        return()
    endif()
    set(labels)
    if(TEST_OUTSIDE)
        set(labels LABELS outside)
        add_dependencies(outside ${TEST_NAME})
    endif()
    gtest_discover_tests(${TEST_NAME} NO_PRETTY_VALUES DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT ${TEST_TIMEOUT} ${labels}
        ENVIRONMENT "${environment}")
endfunction()

# Most of what Qt writes for a QML module is small and reads the same large headers.
function(elmworth_compile_generated_together room)
    get_target_property(sources ${room} SOURCES)
    list(FILTER sources INCLUDE REGEX "/qmlcache/|_qmltyperegistrations.cpp$")
    list(APPEND sources ${CMAKE_CURRENT_BINARY_DIR}/${room}_autogen/mocs_compilation.cpp)
    set_source_files_properties(${sources} PROPERTIES UNITY_GROUP qml)
    set_target_properties(${room} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    foreach(target ${room}_qmlcache ${room}_resources_1 ${room}_resources_2 ${room}plugin_init)
        if(TARGET ${target})
            set_target_properties(${target} PROPERTIES AUTOMOC OFF)
        endif()
    endforeach()
    foreach(target ${room} ${room}_qmlcache)
        if(TARGET ${target})
            elmworth_reuse_headers(${target} Qt6::Quick)
        endif()
    endforeach()
    if(share_headers)
        foreach(target ${room}plugin ${room}plugin_init)
            target_precompile_headers(${target} REUSE_FROM elmworth_qml_plugin_headers)
        endforeach()
    endif()
endfunction()

# elmworth_qml_room(NAME <target> URI <uri> QML_FILES <file>... [SINGLETONS <file>...]
#                   [SOURCES <file>...] [LINKS <target>...])
# The views of a room with their models, as a static QML module.
function(elmworth_qml_room)
    cmake_parse_arguments(PARSE_ARGV 0 ROOM "" "NAME;URI" "SINGLETONS;IMPORTS;QML_FILES;SOURCES;LINKS")
    if(ROOM_SINGLETONS)
        set_source_files_properties(${ROOM_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    endif()
    string(REPLACE "." "/" module_folder ${ROOM_URI})
    # Byte code where people run it; C++ would take longer than all other compiling of a view.
    set(cachegen NO_CACHEGEN)
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
        set(cachegen)
    endif()
    set(CMAKE_AUTOMOC ON)
    qt_add_qml_module(${ROOM_NAME} STATIC URI ${ROOM_URI} VERSION 1.0
        RESOURCE_PREFIX /qt-project.org/imports
        DEPENDENCIES QtQuick ${ROOM_IMPORTS}
        ${cachegen}
        IMPORT_PATH ${CMAKE_BINARY_DIR}/qml
        OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml/${module_folder}
        QML_FILES ${ROOM_SINGLETONS} ${ROOM_QML_FILES} SOURCES ${ROOM_SOURCES})
    target_link_libraries(${ROOM_NAME} PUBLIC elmworth_options ${ROOM_LINKS} Qt6::Quick)
    set_target_properties(${ROOM_NAME} PROPERTIES
        ELMWORTH_HAS_QML TRUE
        QT_QMLCACHEGEN_ARGUMENTS --only-bytecode)
    elmworth_compile_generated_together(${ROOM_NAME})
    set_source_files_properties(${ROOM_SOURCES} PROPERTIES COMPILE_OPTIONS "${strict_warnings}")
endfunction()

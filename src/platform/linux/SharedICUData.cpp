// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// For programs that hold ICU's code (cmake/CommandLibraries.cmake): gives it the data of the shared
// library, which lie in the memory of whatever else runs ICU.

#include <dlfcn.h>
#include <unicode/udata.h>
#include <unicode/utypes.h>

#include <cstdint>

#include "platform/SystemLog.h"

namespace {

constexpr std::uint16_t headerSize = 32;

/// A package of data without any, as ICU asks of programs that bring theirs later. The code would
/// otherwise name the library's own, and the linker would copy all of them into the program.
struct NoData {
    std::uint16_t size;
    std::uint8_t magic1;
    std::uint8_t magic2;
    UDataInfo info;
    char padding[headerSize - 4 - sizeof(UDataInfo)];
    std::uint32_t count;
    std::uint32_t reserved;
};

#define ELMWORTH_NAME(symbol) #symbol
#define ELMWORTH_EXPANDED_NAME(symbol) ELMWORTH_NAME(symbol)
constexpr const char* dataSymbol = ELMWORTH_EXPANDED_NAME(U_ICUDATA_ENTRY_POINT);

}  // namespace

extern "C" __attribute__((visibility("hidden"))) const NoData U_ICUDATA_ENTRY_POINT;
const NoData U_ICUDATA_ENTRY_POINT{.size = headerSize,
                                   .magic1 = 0xda,
                                   .magic2 = 0x27,
                                   .info = {.size = sizeof(UDataInfo),
                                            .reservedWord = 0,
                                            .isBigEndian = U_IS_BIG_ENDIAN,
                                            .charsetFamily = U_CHARSET_FAMILY,
                                            .sizeofUChar = sizeof(UChar),
                                            .reservedByte = 0,
                                            .dataFormat = {'T', 'o', 'C', 'P'},
                                            .formatVersion = {1, 0, 0, 0},
                                            .dataVersion = {}},
                                   .padding = {},
                                   .count = 0,
                                   .reserved = 0};

namespace {

/// Before main, so that no use of ICU comes first.
[[gnu::constructor]] void useSharedData() {
    UErrorCode error = U_ZERO_ERROR;
    const void* data = ::dlsym(RTLD_DEFAULT, dataSymbol);
    if (data) udata_setCommonData(data, &error);
    if (!data || U_FAILURE(error)) elmworth::fatalError("The library of ICU's data has none.");
}

}  // namespace

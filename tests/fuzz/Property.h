// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace elmworth::fuzz {

/// Ends the process unless the law `holds`; the fuzzer then keeps the input that broke it.
inline void require(bool holds, std::string_view law) {
    if (holds) return;
    std::cerr << "broken: " << law << '\n';
    std::abort();
}

/// The bytes of an input as text, which need not be UTF-8.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace elmworth::fuzz

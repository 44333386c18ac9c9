// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/PersistentID.h"

#include <chrono>
#include <random>

namespace elmworth {

namespace {

/// Counts up in quarters of a microsecond or so, never standing still, so that the identifiers of
/// one process keep the order in which they were made.
std::uint64_t nextTimestamp() {
    using namespace std::chrono;
    static std::uint64_t last = 0;
    const auto now = system_clock::now().time_since_epoch();
    const auto milliseconds = duration_cast<std::chrono::milliseconds>(now).count();
    const auto fresh = static_cast<std::uint64_t>(milliseconds) << 12;
    last = fresh > last ? fresh : last + 1;
    return last;
}

}  // namespace

PersistentID PersistentID::make() {
    static std::mt19937_64 random{[] {
        std::random_device device;
        std::seed_seq seed{device(), device(), device(), device(), device(), device()};
        return std::mt19937_64(seed);
    }()};
    const std::uint64_t timestamp = nextTimestamp();
    const std::uint64_t high =
        ((timestamp >> 12) << 16) | 0x7000U | (timestamp & 0xFFFU);  // version 7
    const std::uint64_t low = (random() & 0x3FFF'FFFF'FFFF'FFFFU) | 0x8000'0000'0000'0000U;

    PersistentID id;
    for (std::size_t i = 0; i < 8; ++i) {
        id.bytes[i] = static_cast<std::uint8_t>(high >> (56 - 8 * i));
        id.bytes[8 + i] = static_cast<std::uint8_t>(low >> (56 - 8 * i));
    }
    return id;
}

std::string PersistentID::string() const {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(36);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0xF];
    }
    return text;
}

}  // namespace elmworth

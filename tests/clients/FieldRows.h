// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "records/FieldText.h"

namespace elmworth::test {

/// A text as typed, and what it means.
template <class T>
struct FieldRow {
    const char* name;
    std::string text;
    T value;
};

/// The sentence that says why `parsed` can't be taken; empty when it can.
template <class T>
std::string refusal(const Parsed<T>& parsed) {
    try {
        (void)parsed.value();
        return {};
    } catch (const Refused& why) {
        return why.what();
    }
}

}  // namespace elmworth::test

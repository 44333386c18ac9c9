// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace elmworth::test {

/// Compares `text` with the file `name` in the folder of test data. With ELMWORTH_UPDATE_GOLDEN set
/// in the environment the file is written instead; read the difference before committing it.
inline void expectGolden(const std::string& text, const std::string& name) {
    const std::string file = std::string(ELMWORTH_TEST_DATA) + "/" + name;
    if (std::getenv("ELMWORTH_UPDATE_GOLDEN") != nullptr) std::ofstream(file) << text;
    std::ifstream stream(file);
    std::ostringstream expected;
    expected << stream.rdbuf();
    EXPECT_TRUE(stream.is_open()) << file;
    EXPECT_EQ(text, expected.str()) << file;
}

}  // namespace elmworth::test

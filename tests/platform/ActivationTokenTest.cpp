// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ActivationToken.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/Rows.h"

namespace elmworth {
namespace {

struct TokenRow {
    const char* name;
    std::string token;
    bool isTaken;
};

class ActivationToken : public testing::TestWithParam<TokenRow> {
 protected:
    ActivationToken() { ::setenv("XDG_ACTIVATION_TOKEN", "former", 1); }
    ~ActivationToken() override { ::unsetenv("XDG_ACTIVATION_TOKEN"); }
};

TEST_P(ActivationToken, isTakenWhenProgramsThatAreStartedCanInheritIt) {
    takeActivationToken(GetParam().token);
    EXPECT_EQ(std::getenv("XDG_ACTIVATION_TOKEN"),
              GetParam().isTaken ? GetParam().token : std::string("former"));
}

INSTANTIATE_TEST_SUITE_P(
    Others, ActivationToken,
    testing::Values(TokenRow{"ofGNOME", "gnome-shell/Elmworth/1234-5-host_TIME67890", true},
                    TokenRow{"ofSway", "0b2c7d1e9f", true}, TokenRow{"none", "", false},
                    TokenRow{"theLongest", std::string(255, 'a'), true},
                    TokenRow{"tooLong", std::string(256, 'a'), false},
                    // No program can be started with a variable of this length.
                    TokenRow{"endless", std::string(200'000, 'a'), false},
                    TokenRow{"ofTwoLines", "a\nb", false}, TokenRow{"withABlank", "a b", false},
                    TokenRow{"withNothingInIt", std::string("a\0b", 3), false},
                    TokenRow{"ofOtherLetters", "ä", false}),
    test::rowName);

}  // namespace
}  // namespace elmworth

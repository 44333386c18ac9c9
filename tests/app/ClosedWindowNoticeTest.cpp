// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ClosedWindowNotice.h"

#include <gmock/gmock.h>

#include <vector>

namespace elmworth {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ClosedWindow : public testing::Test {
 protected:
    bool hasTray = false;
    bool runs = false;
    std::vector<std::string> titles;
    std::string text;
    ClosedWindowNotice notice{{[this] { return hasTray; }, [this] { return runs; },
                               [this](const ClosedWindowNotice::Sentence& sentence) {
                                   titles.push_back(sentence.title);
                                   text = sentence.text;
                               }}};
};

TEST_F(ClosedWindow, whereATrayShowsTheProgramNothingIsSaid) {
    hasTray = true;
    notice.windowClosed();
    EXPECT_THAT(titles, IsEmpty());
}

TEST_F(ClosedWindow, withoutATrayItIsSaidHowTheWindowComesBack) {
    notice.windowClosed();
    EXPECT_THAT(titles, ElementsAre("Elmworth goes on"));
    EXPECT_THAT(text, HasSubstr("Start Elmworth again"));
}

TEST_F(ClosedWindow, aTimerThatRunsIsNamed) {
    runs = true;
    notice.windowClosed();
    EXPECT_THAT(titles, ElementsAre("The timer goes on"));
}

TEST_F(ClosedWindow, itIsSaidOnce) {
    notice.windowClosed();
    notice.windowClosed();
    EXPECT_EQ(titles.size(), 1U);
}

TEST_F(ClosedWindow, aTrayThatGoesAwayLaterIsNoticedThen) {
    hasTray = true;
    notice.windowClosed();
    hasTray = false;
    notice.windowClosed();
    EXPECT_EQ(titles.size(), 1U);
}

}  // namespace
}  // namespace elmworth

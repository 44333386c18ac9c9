// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/StepRule.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "store/Record.h"
#include "store/Schema.h"

namespace elmworth {

namespace {

std::vector<const UnitOfWork*> heldToIt;
int exemptions = 0;
StepRule::Handler handler = nullptr;

}  // namespace

StepRule::StepRule(const UnitOfWork& context) : context_(context) {
    heldToIt.push_back(&context);
}

StepRule::~StepRule() {
    heldToIt.erase(std::find(heldToIt.begin(), heldToIt.end(), &context_));
}

StepRule::Handler StepRule::setHandler(Handler next) noexcept {
    return std::exchange(handler, next);
}

void StepRule::check(const UnitOfWork& context, const Record& record, std::string_view what) {
    if (exemptions > 0) return;
    if (std::find(heldToIt.begin(), heldToIt.end(), &context) == heldToIt.end()) return;
    const std::string sentence = std::string(record.recordSchema().name) + ": " +
                                 std::string(what) +
                                 " outside of a step. People's changes go through UndoHistory; "
                                 "what else must change is named by OutsideSteps.";
    if (handler) return handler(sentence);
    std::fprintf(stderr, "%s\n", sentence.c_str());
    std::abort();
}

OutsideSteps::OutsideSteps() noexcept {
    ++exemptions;
}

OutsideSteps::~OutsideSteps() {
    --exemptions;
}

}  // namespace elmworth

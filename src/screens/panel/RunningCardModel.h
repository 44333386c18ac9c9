// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "screens/panel/AwayPromptModel.h"
#include "screens/panel/BudgetChipModel.h"
#include "screens/panel/LongRunningWarningModel.h"
#include "screens/panel/RunningEntryModel.h"

namespace elmworth {

/// The entry that runs, as the panel shows it: with what is to be said and asked about it. The
/// panel's model calls `update` and `tick`.
class RunningCardModel final : public elmworth::RunningEntryModel {  // so spelt for qmllint
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel's model has it")
    Q_PROPERTY(elmworth::BudgetChipModel* budget READ budget CONSTANT FINAL)
    Q_PROPERTY(elmworth::LongRunningWarningModel* warning READ warning CONSTANT FINAL)
    Q_PROPERTY(elmworth::AwayPromptModel* away READ away CONSTANT FINAL)

 public:
    explicit RunningCardModel(const AppServices& services);

    [[nodiscard]] BudgetChipModel* budget() noexcept { return &budget_; }
    [[nodiscard]] LongRunningWarningModel* warning() noexcept { return &warning_; }
    [[nodiscard]] AwayPromptModel* away() noexcept { return &away_; }

    void setNotes(const QString& notes) override;
    /// True while others are told of typed notes, which change nothing else here.
    [[nodiscard]] bool isTyping() const noexcept { return isTyping_; }

    void update() override;
    void tick() override;

 private:
    BudgetChipModel budget_;
    LongRunningWarningModel warning_;
    AwayPromptModel away_;
    bool isTyping_ = false;
};

}  // namespace elmworth

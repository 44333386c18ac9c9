// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>

namespace elmworth {

/// Turns SIGTERM, SIGINT and SIGHUP into a call on the main thread, so that the program ends as if
/// it had been quit. Those that it was started to ignore stay ignored. One object for the whole
/// process.
class TerminationSignals final : public QObject {
    Q_OBJECT

 public:
    explicit TerminationSignals(std::function<void()> terminate);
    ~TerminationSignals() override;

 private:
    std::function<void()> terminate_;
    QSocketNotifier notifier_;
};

}  // namespace elmworth

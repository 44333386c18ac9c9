// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMetaMethod>
#include <QSignalSpy>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace elmworth::test {

inline std::string utf8(const QString& text) {
    return text.toStdString();
}

/// Counts the notifications of objects by the names of their signals.
class SignalCount {
 public:
    /// Counts all signals that `object` declares from now on.
    void watch(const QObject& object) {
        const auto* meta = object.metaObject();
        const std::string type = meta->className() + (sizeof "elmworth::" - 1);
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            const auto method = meta->method(i);
            if (method.methodType() != QMetaMethod::Signal) continue;
            spies_.emplace_back(type + "::" + method.name().toStdString(),
                                std::make_unique<QSignalSpy>(&object, method));
        }
    }
    /// "Class::signal" and how often, since the last call.
    [[nodiscard]] std::map<std::string, int> take() {
        std::map<std::string, int> counts;
        for (const auto& [name, spy] : spies_) {
            if (spy->isEmpty()) continue;
            counts[name] += static_cast<int>(spy->size());
            spy->clear();
        }
        return counts;
    }

 private:
    std::vector<std::pair<std::string, std::unique_ptr<QSignalSpy>>> spies_;
};

}  // namespace elmworth::test

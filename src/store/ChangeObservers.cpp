// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/ChangeObservers.h"

#include <exception>
#include <string>
#include <utility>

#include "platform/SystemLog.h"

namespace elmworth {

namespace {

/// An observer that throws must not make a durable save look failed.
void tell(const std::function<void(const RecordChanges&)>& changed,
          const RecordChanges& changes) noexcept {
    try {
        changed(changes);
    } catch (const std::exception& error) {
        writeSystemLog(std::string("Elmworth: a change could not be shown: ") + error.what());
    } catch (...) {
        writeSystemLog("Elmworth: a change could not be shown");
    }
}

}  // namespace

ChangeObservers::Observation ChangeObservers::observe(const RecordSchema& schema,
                                                      std::function<void()> changed) {
    return observeAll([&schema, changed = std::move(changed)](const RecordChanges& changes) {
        if (changes.touch(schema)) changed();
    });
}

ChangeObservers::Observation ChangeObservers::observeAll(
    std::function<void(const RecordChanges&)> changed) {
    return observers_.add(
        [changed = std::move(changed)](const RecordChanges& changes) { tell(changed, changes); });
}

void ChangeObservers::note(const RecordSchema& schema, const PersistentID& id,
                           const RecordChange& change) {
    if (observers_.isEmpty()) return;
    noted_.note(schema, id, change);
    if (!delivery_) delivery_ = runLoop_.post([this] { deliver(); });
}

void ChangeObservers::deliver() {
    if (!delivery_) return;  // nothing has been noted
    delivery_.reset();
    const auto changes = std::exchange(noted_, {});
    observers_.notify(changes);
}

}  // namespace elmworth

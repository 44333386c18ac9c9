// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/Record.h"

#include "store/Attribute.h"
#include "store/Schema.h"
#include "store/UnitOfWork.h"

namespace elmworth {

Record::Record() : id_(PersistentID::make()) {}

Record::~Record() {
    if (context_) context_->forget(*this);
}

void Record::willChange() {
    if (context_) context_->recordWillChange(*this);
}

void Record::didChange(const void* field) {
    if (!context_) return;
    const auto& fields = recordSchema().fields;
    std::size_t index = 0;
    while (index < fields.size() && fields[index].place(*this) != field) ++index;
    context_->recordDidChange(*this, index);
}

std::vector<Value> Record::capture() const {
    std::vector<Value> values;
    const auto& schema = recordSchema();
    values.reserve(schema.fields.size());
    for (const auto& field : schema.fields) values.push_back(field.read(*this));
    return values;
}

Ref<Record> resolveRecord(const Record& owner, const RecordSchema& target, const PersistentID& id) {
    return owner.unitOfWork() ? owner.unitOfWork()->recordQuietly(target, id) : nullptr;
}

std::vector<Ref<Record>> relatedRecords(const Record& owner, const RecordSchema& target,
                                        std::string_view inverse) {
    if (!owner.unitOfWork()) return {};
    try {
        return owner.unitOfWork()->related(target, inverse, owner.id());
    } catch (const StoreError&) {
        return {};
    }
}

}  // namespace elmworth

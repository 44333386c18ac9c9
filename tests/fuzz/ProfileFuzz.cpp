// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The profile decoder reads what a simple reader reads, and what it has read is written and read
// again as the same, alone and within a backup document.

#include "exchange/BackupDecoder.h"
#include "exchange/BackupDocuments.h"
#include "fuzz/Property.h"
#include "fuzz/ReferenceBackup.h"
#include "platform/Text.h"
#include "records/BusinessProfile.h"

using namespace elmworth;
using fuzz::require;

namespace {

std::optional<BusinessProfile> readByReference(std::string_view json) {
    const fuzz::JSONTree tree(json);
    if (!tree.isValid) return std::nullopt;
    try {
        return fuzz::ReferenceBackup::profile(tree.document);
    } catch (const fuzz::Refused&) {
        return std::nullopt;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto json = fuzz::textOf(data, size);
    const auto profile = decodeProfile(json);
    require(profile == readByReference(json), "what is read is what a simple reader reads");
    if (!profile) return 0;
    const std::string written = encodeProfile(*profile);
    require(validUTF8(written) == written, "what is written is UTF-8");
    require(decodeProfile(written) == profile, "what is read is written and read as the same");

    Backup backup;
    backup.profile = *profile;
    backup.invoices.emplace_back(backupShapes().invoice)["business"] = Blob{written};
    require(test::decode(test::encode(backup)) == backup,
            "a profile comes through a backup document as it was");
    return 0;
}

// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The backup decoder reads what a simple reader reads, and what it has read is written and read
// again as the same.

#include <algorithm>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupDocuments.h"
#include "fuzz/Property.h"
#include "fuzz/ReferenceBackup.h"
#include "platform/Text.h"

using namespace elmworth;
using fuzz::require;

namespace {

void checkSentence(const std::string& sentence) {
    require(sentence.find("(line ") != std::string::npos, "an error names the line");
    require(std::count(sentence.begin(), sentence.end(), '\n') == 0, "an error is one line");
    require(validUTF8(sentence) == sentence, "an error is UTF-8");
}

std::optional<Backup> decode(std::string_view json) {
    try {
        return test::decode(json);
    } catch (const BackupDecodeError& error) {
        checkSentence(error.what());
        return std::nullopt;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto json = fuzz::textOf(data, size);
    const auto backup = decode(json);
    const fuzz::JSONTree tree(json);
    const auto expected = fuzz::readBackupByReference(tree);
    if (!backup) {
        // Of two equal keys both must be right here, and only the last there.
        require(!expected || tree.repeatsKeys(), "what a simple reader takes is read");
        return 0;
    }
    require(backup == expected, "what is read is what a simple reader reads");
    const std::string written = test::encode(*backup);
    const auto again = decode(written);
    require(again == backup, "what is read is written and read as the same");
    require(test::encode(*again) == written, "writing again gives the same document");
    return 0;
}

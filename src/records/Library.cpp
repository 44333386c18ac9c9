// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/Library.h"

#include <cstdlib>
#include <exception>
#include <system_error>

#include "platform/StandardFolders.h"
#include "records/LibrarySchema.h"
#include "store/sqlite/LibraryFile.h"
#include "store/sqlite/RecordStore.h"

namespace elmworth {

LibraryOptions LibraryOptions::standard(bool isDemo) {
    const bool isHosted = std::getenv("XCTestConfigurationFilePath") != nullptr;
    if (isDemo || isHosted) return {};
    return {dataFolder() / "library.sqlite"};
}

Library::Library(const LibraryOptions& configuration, RunLoop& runLoop) {
    try {
        const auto& model = librarySchema();
        auto database = configuration.url ? sqlite::openLibraryFile(*configuration.url, model)
                                          : sqlite::openLibraryInMemory(model);
        context_ = std::make_unique<UnitOfWork>(
            std::make_unique<sqlite::RecordStore>(std::move(database)), model.types, runLoop);
    } catch (const StoreError& error) {
        const bool namesFile = error.code() == StoreError::Code::other || !configuration.url;
        throw LibraryError((namesFile ? "" : configuration.url->string() + ": ") + error.what());
    } catch (const std::filesystem::filesystem_error& error) {
        throw LibraryError(error.path1().string() + ": " + error.code().message());
    }
}

Library::~Library() = default;

}  // namespace elmworth

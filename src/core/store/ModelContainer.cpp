// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/store/ModelContainer.h"

#include <cstdlib>
#include <exception>
#include <system_error>

#include "core/store/sqlite/LibraryFile.h"
#include "core/store/sqlite/RecordStore.h"
#include "platform/StandardFolders.h"

namespace elmworth {

ModelConfiguration ModelConfiguration::standard(bool isDemo) {
    const bool isHosted = std::getenv("XCTestConfigurationFilePath") != nullptr;
    if (isDemo || isHosted) return {};
    return {applicationSupportFolder() / "library.sqlite"};
}

ModelContainer::ModelContainer(const ModelConfiguration& configuration, RunLoop& runLoop) {
    try {
        auto database = configuration.url ? sqlite::openLibraryFile(*configuration.url)
                                          : sqlite::openLibraryInMemory();
        context_ = std::make_unique<ModelContext>(
            std::make_unique<sqlite::RecordStore>(std::move(database)), runLoop);
    } catch (const StoreError& error) {
        const bool namesFile = error.code() == StoreError::Code::other || !configuration.url;
        throw ModelContainerError((namesFile ? "" : configuration.url->string() + ": ") +
                                  error.what());
    } catch (const std::filesystem::filesystem_error& error) {
        throw ModelContainerError(error.path1().string() + ": " + error.code().message());
    }
}

ModelContainer::~ModelContainer() = default;

}  // namespace elmworth

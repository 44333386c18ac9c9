// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/LibraryServices.h"

#include <cstdlib>

#include "app/SiblingProgram.h"
#include "exchange/Restore.h"
#include "platform/Calendar.h"
#include "platform/linux/AutostartFile.h"
#include "screens/DemoData.h"

namespace elmworth {

namespace {

/// The demo has settings of its own, in memory, so that every demo is the same.
Settings& preparedForDemo(Settings& defaults, UnitOfWork& context, const Clock& now, bool isDemo) {
    if (isDemo) {
        defaults.setBoolean("didOnboard", true);  // a demo greets nobody
        DemoData::seed(context, defaults, now(), Calendar::current());
    }
    return defaults;
}

std::unique_ptr<TemporaryDataFolder> makeDemoFolder(bool isDemo) {
    if (!isDemo) return nullptr;
    return std::make_unique<TemporaryDataFolder>();
}

std::unique_ptr<LoginItem> makeLoginItem(bool isDemo) {
    if (isDemo || isHostedRun()) return std::make_unique<NoLoginItem>();
    return std::make_unique<AutostartFile>(AutostartFile::standardFolder(),
                                           AutostartFile::startable(siblingPath("elmworth-app")));
}

}  // namespace

bool isHostedRun() {
    return std::getenv("XCTestConfigurationFilePath") != nullptr;
}

LibraryServices::LibraryServices(bool isDemo, Clock now, RunLoop& runLoop)
    : demoFolder_(makeDemoFolder(isDemo)),
      now_(std::move(now)),
      container_(LibraryOptions::standard(isDemo), runLoop),
      defaults_(isDemo ? Settings::inMemory() : Settings::standardFile()),
      profiles_(preparedForDemo(defaults_, container_.mainContext(), now_, isDemo)),
      timer_(container_.mainContext(), now_, runLoop, [] { return Calendar::current(); }),
      loginItem_(makeLoginItem(isDemo)) {
    const OutsideSteps atTheStart;
    history_.setGuard(undoGuard_);
    if (!isDemo && !isHostedRun()) finishRestore(container_.mainContext(), profiles_);
    timer_.restore();
    timer_.setHistory(history_);
}

}  // namespace elmworth

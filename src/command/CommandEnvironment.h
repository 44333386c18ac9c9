// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>

#include "clients/ClientService.h"
#include "clients/ProjectService.h"
#include "invoicing/InvoiceFiles.h"
#include "invoicing/InvoiceService.h"
#include "platform/AtomicFile.h"
#include "platform/Calendar.h"
#include "platform/Instant.h"
#include "platform/Locale.h"
#include "platform/LoginItem.h"
#include "platform/Progress.h"
#include "records/ProfileStore.h"
#include "store/UndoHistory.h"
#include "store/UnitOfWork.h"
#include "tracking/EntryService.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What a command works on: the open library and its services, and how the person who gave the
/// command reads dates and amounts.
struct CommandEnvironment {
    UnitOfWork& context;
    UndoHistory& history;
    TimerService& timer;
    ProfileStore& profiles;
    Clock now;
    Locale locale;  ///< of dates and times
    Calendar calendar;
    std::filesystem::path workingFolder;              ///< relative paths are meant from here
    InvoicePainter* painter = nullptr;                ///< null where nothing can be drawn
    Progress& progress = noProgress();                ///< who waits for long work, and may stop it
    FileAccess namedFiles = FileAccess::ownerOnly();  ///< of the files that the person names
    int standardInput = -1;  ///< a regular file with what was written to the command; -1 for none
    Locale moneyLocale = locale;     ///< of amounts
    LoginItem* loginItem = nullptr;  ///< null where there is none

    [[nodiscard]] ClientService clients() { return {context, history, TimerCalls::of(timer), now}; }
    [[nodiscard]] ProjectService projects() { return {context, history, TimerCalls::of(timer)}; }
    [[nodiscard]] EntryService entries() {
        return {context, history, timer, now, [calendar = calendar] { return calendar; }};
    }
    [[nodiscard]] InvoiceService invoices() { return {context, history, profiles, now, calendar}; }
};

/// What a command works on that looks at the file of the library, whoever has it open, and leaves
/// it as it is.
struct FileCommandEnvironment {
    std::filesystem::path library;
    std::filesystem::path snapshots;  ///< their folder
    std::filesystem::path settings;   ///< the file
    std::filesystem::path workingFolder;
    Clock now;
    Progress& progress = noProgress();
};

}  // namespace elmworth

// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetExport.h"

#include "exchange/CSVDocument.h"
#include "platform/AtomicFile.h"
#include "store/StoreError.h"
#include "tracking/TimesheetReader.h"

namespace elmworth {

namespace {

void write(UnitOfWork& context, const TimesheetFilter& filter, Instant now,
           const Calendar& calendar, const std::filesystem::path& file) {
    AtomicFile target(file, FileAccess::forUmask(currentUmask()));
    CSVDocument document(calendar.zoneID(), [&](std::string_view text) { target.write(text); });
    TimesheetReader(context, filter, now).forEach([&](const TimeEntry& entry) {
        document.add(entry);
    });
    document.finish();
    target.commit();
}

}  // namespace

std::optional<std::string> exportTimesheet(UnitOfWork& context, const TimesheetFilter& filter,
                                           Instant now, const Calendar& calendar,
                                           const std::filesystem::path& file) {
    try {
        write(context, filter, now, calendar, file);
        return std::nullopt;
    } catch (const StoreError&) {
        return "The library can't be read, so nothing was exported.";
    } catch (const std::system_error& error) {
        return "“" + file.filename().string() + "” can't be written: " + error.code().message() +
               ".";
    }
}

}  // namespace elmworth

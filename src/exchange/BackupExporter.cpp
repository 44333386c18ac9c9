// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupExporter.h"

#include <utility>

#include "exchange/BackupWalk.h"
#include "records/TimeEntry.h"

namespace elmworth::BackupExporter {

namespace {

/// Keeps the whole document.
class Collector final : public BackupReceiver {
 public:
    [[nodiscard]] Backup take() { return std::move(backup_); }

    void begin() override {}
    void beginClient(const ClientDTO& client) override { backup_.clients.push_back(client); }
    void beginProject(const ProjectDTO& project) override {
        backup_.clients.back().projects.push_back(project);
    }
    void entry(const EntryDTO& entry) override {
        backup_.clients.back().projects.back().entries.push_back(entry);
    }
    void endProject(const ProjectDTO& /*project*/) override {}
    void endClient(const ClientDTO& /*client*/) override {}
    void beginInvoices(Instant exportedAt) override { backup_.exportedAt = exportedAt; }
    void invoice(const InvoiceDTO& invoice) override { backup_.invoices.push_back(invoice); }
    void end(const BusinessProfile& profile, std::int64_t version) override {
        backup_.profile = profile;
        backup_.version = version;
    }

 private:
    Backup backup_;
};

void write(const ClientDTO& client, BackupReceiver& receiver) {
    receiver.beginClient(client);
    for (const auto& project : client.projects) {
        receiver.beginProject(project);
        for (const auto& entry : project.entries) receiver.entry(entry);
        receiver.endProject(project);
    }
    receiver.endClient(client);
}

}  // namespace

Backup makeBackup(UnitOfWork& context, const BusinessProfile& profile, Instant now) {
    Collector collector;
    BackupWalk walk(context, profile, now, collector);
    while (walk.advance()) {
    }
    return collector.take();
}

std::string encode(const Backup& backup) {
    std::string json;
    BackupWriter writer([&](std::string_view bytes) { json += bytes; });
    writer.begin();
    for (const auto& client : backup.clients) write(client, writer);
    writer.beginInvoices(backup.exportedAt);
    for (const auto& invoice : backup.invoices) writer.invoice(invoice);
    writer.end(backup.profile, backup.version);
    return json;
}

Counts write(UnitOfWork& context, const BusinessProfile& profile, Instant now, const ByteSink& sink,
             Progress& progress) {
    const std::size_t total = context.fetchCount<TimeEntry>();
    std::size_t done = 0;
    BackupWriter writer([&](std::string_view bytes) {
        progress.advance("Writing", done, total);
        sink(bytes);
    });
    BackupWalk walk(context, profile, now, writer);
    while (walk.advance()) done = walk.counts().entries;
    Counts counts = walk.counts();
    counts.repairedTexts += writer.repairedTexts();
    return counts;
}

Counts writeFile(UnitOfWork& context, const BusinessProfile& profile, Instant now,
                 const std::filesystem::path& file, Progress& progress, FileAccess access) {
    AtomicFile target(file, access);
    const Counts counts = write(
        context, profile, now, [&](std::string_view bytes) { target.write(bytes); }, progress);
    target.commit();
    return counts;
}

std::string repairMessage(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " text" : " texts") +
           " of the library held damaged bytes, which stand as � in the document.";
}

}  // namespace elmworth::BackupExporter

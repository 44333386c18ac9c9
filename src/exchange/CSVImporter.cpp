// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/CSVImporter.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "exchange/CSVFormat.h"
#include "exchange/CSVTokenizer.h"
#include "platform/Text.h"
#include "platform/TextEncoding.h"
#include "records/Client.h"
#include "records/Project.h"
#include "records/ProjectColors.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

const char* sentence(ImportError::Code code) {
    switch (code) {
        case ImportError::Code::empty:
            return "No time entries were found in this file.";
        case ImportError::Code::tooLarge:
            return "This file is larger than 1 GB. Import a shorter period at a time.";
        case ImportError::Code::unknownEncoding:
            return "The text encoding of this file can't be determined.";
        case ImportError::Code::unrecognizedFormat:
            break;
    }
    return "This CSV isn't in a format Elmworth knows. Use an Elmworth export or a Toggl Track "
           "detailed report.";
}

}  // namespace

ImportError::ImportError(Code code) : std::runtime_error(sentence(code)), code_(code) {}

namespace CSVImporter {

namespace {

/// Some eight million rows; a text has to fit into memory several times.
constexpr std::size_t largestFile = 1'000'000'000;

std::string optionalField(const CSVFields& fields, CSVColumn column) {
    if (!column || *column >= fields.size()) return {};
    return std::string(trimmedBlanks(fields[*column]));
}

/// What makes two entries the same.
struct Signature {
    PersistentID project;
    std::int64_t start = 0;
    std::int64_t end = 0;

    friend bool operator==(const Signature&, const Signature&) = default;
};

struct SignatureHash {
    std::size_t operator()(const Signature& signature) const noexcept {
        constexpr std::size_t spread = 0x9E3779B97F4A7C15U;
        std::size_t hash = std::hash<PersistentID>{}(signature.project);
        hash = (hash ^ static_cast<std::size_t>(signature.start)) * spread;
        return (hash ^ static_cast<std::size_t>(signature.end)) * spread;
    }
};

/// Whole seconds since 1970, truncated toward zero.
std::int64_t truncatedSeconds(Instant instant) {
    return std::chrono::duration_cast<std::chrono::seconds>(instant.time_since_epoch()).count();
}

/// Adds rows to one library, unsaved.
class Importer {
 public:
    explicit Importer(UnitOfWork& context) : context_(context) {
        // Time that can't be seen would be added a second time.
        const CompleteReading reading(context);
        for (const auto& client : context.fetch<Client>()) {
            clients_.try_emplace(lowerCased(client->name.get()), client);
        }
        for (const auto& project : context.fetch<Project>()) {
            const auto& client = project->client.get();
            projects_[projectKey(client ? client->name.get() : "", project->name)] = project;
        }
        noteEntries();
        reading.check();
    }

    void add(const Row& row) {
        const auto project = findProject(row);
        const Signature signature{project->id(), truncatedSeconds(row.start),
                                  truncatedSeconds(row.end)};
        if (!signatures_.insert(signature).second) {
            ++result.skipped;
            return;
        }
        const auto entry = std::make_shared<TimeEntry>(row.start, project);
        entry->end = row.end;
        entry->notes = row.notes;
        context_.insert(entry);
        if (++result.imported % entriesBetweenSpills == 0) context_.flushInserts();
    }

    Result result;

 private:
    static constexpr std::int64_t entriesBetweenSpills = mostUndoableRows + 1;

    static std::string projectKey(const std::string& client, const std::string& project) {
        return lowerCased(client) + '|' + lowerCased(project);
    }

    void noteEntries() {
        context_.forEach<TimeEntry>(
            {.predicate = key<&TimeEntry::end>() != absent}, [&](const TimeEntry& entry) {
                signatures_.insert({entry.project.id().value_or(PersistentID{}),
                                    truncatedSeconds(entry.start),
                                    truncatedSeconds(*entry.end.get())});
            });
    }

    Ref<Client> findClient(const std::string& name) {
        auto& client = clients_[lowerCased(name)];
        if (!client) {
            client = std::make_shared<Client>(name);
            context_.insert(client);
            result.newClients.push_back(name);
        }
        return client;
    }

    Ref<Project> findProject(const Row& row) {
        const std::string clientName = row.client.empty() ? "Imported" : row.client;
        const std::string projectName = row.project.empty() ? "General" : row.project;
        const auto client = findClient(clientName);
        auto& project = projects_[projectKey(clientName, projectName)];
        if (!project) {
            project = std::make_shared<Project>(projectName, client);
            project->colorHex = projectColors[newProjects_++ % projectColors.size()];
            context_.insert(project);
        }
        return project;
    }

    UnitOfWork& context_;
    std::unordered_map<std::string, Ref<Client>> clients_;
    std::unordered_map<std::string, Ref<Project>> projects_;
    std::unordered_set<Signature, SignatureHash> signatures_;
    std::size_t newProjects_ = 0;
};

}  // namespace

std::vector<Row> parse(std::string_view text, const std::string& zoneID, Progress& progress) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        text.remove_prefix(byteOrderMark.size());
    }
    CSVTokenizer tokenizer(text);
    CSVFields fields;
    if (!tokenizer.next(fields)) throw ImportError(ImportError::Code::empty);
    const CSVHeader header(fields);
    const auto format = CSVFormat::of(header, zoneID);
    if (!format) throw ImportError(ImportError::Code::unrecognizedFormat);
    const CSVColumn client = header.column("client");
    const CSVColumn project = header.column("project");
    const CSVColumn notes = header.column(format->notesColumn());

    std::vector<Row> rows;
    while (tokenizer.next(fields)) {
        progress.advance("Reading", tokenizer.position(), text.size());
        const auto span = format->span(fields);
        if (!span || span->end <= span->start) continue;
        rows.push_back({optionalField(fields, client), optionalField(fields, project),
                        optionalField(fields, notes), span->start, span->end});
    }
    if (rows.empty()) throw ImportError(ImportError::Code::empty);
    return rows;
}

std::vector<Row> readFile(FileSource& file, const std::string& zoneID, Progress& progress) {
    if (file.size() > largestFile) throw ImportError(ImportError::Code::tooLarge);
    const auto text = decodeText(file.readAll());
    if (!text) throw ImportError(ImportError::Code::unknownEncoding);
    return parse(*text, zoneID, progress);
}

Result apply(const std::vector<Row>& rows, UnitOfWork& context, Progress& progress) {
    Importer importer(context);
    std::size_t done = 0;
    for (const auto& row : rows) {
        importer.add(row);
        progress.advance("Adding", ++done, rows.size());
    }
    context.save(progress);
    return importer.result;
}

std::string message(const Result& result) {
    std::string text = "Imported " + std::to_string(result.imported) +
                       (result.imported == 1 ? " entry." : " entries.");
    if (!result.newClients.empty()) {
        text += " New clients: ";
        for (std::size_t i = 0; i < result.newClients.size(); ++i) {
            text += (i > 0 ? ", " : "") + result.newClients[i];
        }
        text += " — set their rates in Clients.";
    }
    if (result.skipped > 0) {
        text += " Skipped " + std::to_string(result.skipped) + " already imported.";
    }
    return text;
}

}  // namespace CSVImporter

}  // namespace elmworth

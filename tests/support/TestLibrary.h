// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/AtomicFile.h"
#include "platform/RunLoop.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Library.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "support/TemporaryFolder.h"

namespace elmworth::test {

/// A main loop that turns when a test says so.
class ManualRunLoop final : public RunLoop {
 public:
    Handle post(std::function<void()> function) override {
        return keep(posted_, std::move(function));
    }
    Handle repeat(std::chrono::milliseconds /*interval*/, std::function<void()> function) override {
        return keep(repeating_, std::move(function));
    }

    /// Runs what has been posted so far.
    void turn() { runAll(std::exchange(posted_, {})); }
    /// Lets every repeating call fire once.
    void fire() { runAll(repeating_); }
    /// How many repeating calls there are.
    [[nodiscard]] std::size_t repeatingCount() const {
        return static_cast<std::size_t>(
            std::count_if(repeating_.begin(), repeating_.end(),
                          [](const auto& call) { return !call.expired(); }));
    }

 private:
    using Function = std::function<void()>;
    using Calls = std::vector<std::weak_ptr<Function>>;

    static Handle keep(Calls& calls, Function function) {
        auto call = std::make_shared<Function>(std::move(function));
        calls.push_back(call);
        return call;
    }
    static void runAll(const Calls& calls) {
        for (const auto& weak : Calls(calls)) {
            if (const auto call = weak.lock()) (*call)();
        }
    }

    Calls posted_;
    Calls repeating_;
};

/// For tests that save so often that waiting for the disk would take most of their time.
struct InMemory {};

/// A library on disk in a folder of its own, which a test can close and open again.
class TestLibrary {
 public:
    TestLibrary() { open(); }
    /// A library in memory, which is empty when it is opened again.
    explicit TestLibrary(InMemory /*place*/) : isInMemory_(true) { open(); }
    /// A library whose file is there already, with these bytes.
    explicit TestLibrary(std::string_view bytes) {
        std::ofstream(file(), std::ios::binary) << bytes;
        open();
    }

    /// The file of an empty library, for tests that need many: making one waits for the disk.
    [[nodiscard]] static const std::string& emptyFile() {
        static const std::string bytes = [] {
            TestLibrary library;
            library.close();
            return readFile(library.file());
        }();
        return bytes;
    }

    void open() {
        const auto url = isInMemory_ ? std::nullopt : std::optional(file());
        container_ = std::make_unique<Library>(LibraryOptions{url}, runLoop);
    }
    void close() { container_.reset(); }
    void reopen() {
        close();
        open();
    }

    [[nodiscard]] UnitOfWork& context() { return container_->mainContext(); }
    [[nodiscard]] std::filesystem::path file() const { return folder.path() / "library.sqlite"; }

    Ref<Client> addClient(const std::string& name) {
        auto client = std::make_shared<Client>(name);
        context().insert(client);
        return client;
    }
    Ref<Project> addProject(const std::string& name, const Ref<Client>& client) {
        auto project = std::make_shared<Project>(name, client);
        context().insert(project);
        return project;
    }
    Ref<TimeEntry> addEntry(const Ref<Project>& project, Instant start,
                            std::optional<Instant> end) {
        auto entry = std::make_shared<TimeEntry>(start, project);
        entry->end = end;
        context().insert(entry);
        return entry;
    }
    Ref<Invoice> addInvoice(const std::string& number, const Ref<Client>& client) {
        auto invoice = std::make_shared<Invoice>(number);
        invoice->client = client;
        context().insert(invoice);
        return invoice;
    }

    TemporaryFolder folder;
    ManualRunLoop runLoop;

 private:
    bool isInMemory_ = false;
    std::unique_ptr<Library> container_;
};

}  // namespace elmworth::test

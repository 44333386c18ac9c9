// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "e2e/Worker.h"

#include <unistd.h>

#include <exception>
#include <random>

#include "clients/ClientService.h"
#include "clients/ProjectService.h"
#include "e2e/LibraryState.h"
#include "invoicing/InvoiceBuilder.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"
#include "tracking/TimerService.h"

namespace elmworth::test {

namespace {

using namespace std::chrono_literals;

class Worker {
 public:
    Worker(const std::filesystem::path& library, unsigned seed, int report)
        : container_({library}, runLoop_),
          random_(seed),
          report_(report),
          // Later than everything that earlier workers did.
          now_(at("2000-01-01T00:00Z") + std::chrono::days(seed)),
          timer_(
              context(), [this] { return now_; }, runLoop_, [this] { return calendar_; }) {
        profile_.nextInvoiceNumber = 1000 * static_cast<std::int64_t>(seed);
        timer_.restore();
        state_ = LibraryState(libraryText(context()));
    }

    void run() {
        write("ready\n");
        while (true) {
            const auto& step = steps[static_cast<std::size_t>(pick(std::size(steps)))];
            write(std::string("begin ") + step.name + '\n');
            (this->*step.perform)();
            const LibraryState state(libraryText(context()));
            write(state.changesSince(state_) + "saved\n");
            state_ = state;
            now_ += std::chrono::milliseconds(pick(20000));
            runLoop_.turn();
        }
    }

 private:
    struct Step {
        const char* name;
        void (Worker::*perform)();
    };

    [[nodiscard]] UnitOfWork& context() { return container_.mainContext(); }
    int pick(std::size_t count) {
        return std::uniform_int_distribution<int>(0, static_cast<int>(count) - 1)(random_);
    }
    template <class T>
    Ref<T> any() {
        const auto all = context().fetch<T>();
        return all.empty() ? nullptr : all[static_cast<std::size_t>(pick(all.size()))];
    }
    void write(const std::string& text) const {
        std::string_view rest = text;
        while (!rest.empty()) {
            const ssize_t count = ::write(report_, rest.data(), rest.size());
            if (count < 0) ::_exit(1);
            rest.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    void start() {
        if (const auto project = any<Project>()) timer_.start(project);
    }
    void stop() { timer_.stop(); }
    void continueEntry() {
        if (const auto entry = timer_.lastContinuableEntry()) timer_.continueEntry(entry);
    }
    void renameProject() {
        if (const auto project = any<Project>()) project->name = "P" + std::to_string(random_());
        context().save();
    }
    void createClient() {
        if (context().fetchCount<Client>() > 8) return;
        const auto client = std::make_shared<Client>("C" + std::to_string(random_()));
        client->address = std::string(static_cast<std::size_t>(pick(6000)), 'a');
        context().insert(client);
        context().insert(std::make_shared<Project>("P" + std::to_string(random_()), client));
        context().save();
    }
    void trackThreeHours() {
        const auto project = any<Project>();
        for (int hour = 1; hour <= 3; ++hour) {
            const auto entry =
                std::make_shared<TimeEntry>(now_ - std::chrono::hours(hour), project);
            entry->end = entry->start.get() + 1h;
            context().insert(entry);
        }
        context().save();
    }
    void deleteProject() {
        if (const auto project = any<Project>()) {
            ProjectService(context(), history_, TimerCalls::of(timer_)).remove(project);
        }
    }
    void deleteClient() {
        const auto client = any<Client>();
        if (!client || hasInvoices(*client)) return;
        context().deleteRecord(client);
        context().save();
        timer_.refresh();
    }
    void createInvoice() {
        const auto client = any<Client>();
        if (!client) return;
        const auto bound = builder().unbilledEntries(client, Instant{}, now_ + 1h).size();
        if (bound == 0) return;
        write("binds " + std::to_string(bound) + '\n');
        builder().createInvoice(client, Instant{}, now_ + 1h, 1900, profile_);
    }
    void deleteInvoice() {
        const auto invoice = any<Invoice>();
        if (!invoice) return;
        write("binds " + std::to_string(invoice->entries().size()) + '\n');
        builder().deleteInvoice(invoice);
    }
    [[nodiscard]] InvoiceBuilder builder() {
        return {context(), [this] { return now_; }, calendar_};
    }

    static constexpr Step steps[] = {
        {"start", &Worker::start},
        {"start", &Worker::start},
        {"stop", &Worker::stop},
        {"continue", &Worker::continueEntry},
        {"renameProject", &Worker::renameProject},
        {"createClient", &Worker::createClient},
        {"createClient", &Worker::createClient},
        {"trackThreeHours", &Worker::trackThreeHours},
        {"deleteProject", &Worker::deleteProject},
        {"deleteClient", &Worker::deleteClient},
        {"createInvoice", &Worker::createInvoice},
        {"createInvoice", &Worker::createInvoice},
        {"deleteInvoice", &Worker::deleteInvoice},
    };

    ManualRunLoop runLoop_;
    Library container_;
    std::mt19937 random_;
    int report_;
    Instant now_;
    Calendar calendar_{Locale("en_US"), "UTC"};
    BusinessProfile profile_;
    TimerService timer_;
    UndoHistory history_{context()};
    LibraryState state_;
};

}  // namespace

void workUntilKilled(const std::filesystem::path& library, unsigned seed, int report) {
    try {
        Worker(library, seed, report).run();
    } catch (const std::exception&) {
        ::_exit(1);
    }
    ::_exit(0);
}

}  // namespace elmworth::test

// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Whole commands as a key binding or a status bar runs them, from the start of the process to its
// end, with a running application and without.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "BareLibrary.h"
#include "BenchLibrary.h"
#include "Sizes.h"
#include "platform/LibraryLock.h"
#include "records/Client.h"
#include "records/Project.h"

namespace elmworth::bench {
namespace {

using namespace std::chrono_literals;
using Words = std::vector<std::string>;

std::vector<char*> pointers(Words& words) {
    std::vector<char*> result;
    for (auto& word : words) result.push_back(word.data());
    result.push_back(nullptr);
    return result;
}

/// The home of somebody who works with a library of a given size, as far as a process sees it.
class Home {
 public:
    explicit Home(std::int64_t entries) {
        static const Instant now = currentInstant();
        std::filesystem::create_directories(libraryFolder());
        if (entries > 0) copyLibrary(entries, now, libraryFolder());
    }

    /// Starts a program with its output thrown away. Throws when it cannot be started.
    pid_t begin(Words arguments) {
        auto argv = pointers(arguments);
        auto envp = pointers(environment_);
        pid_t process = 0;
        if (::posix_spawn(&process, argv[0], actions_.get(), nullptr, argv.data(), envp.data()) !=
            0) {
            throw std::runtime_error(arguments[0] + " can't be started");
        }
        return process;
    }
    /// As `begin`, until it ends. Throws when it fails.
    void run(const Words& arguments) {
        const pid_t process = begin(arguments);
        int status = 0;
        if (::waitpid(process, &status, 0) != process || status != 0) {
            throw std::runtime_error(arguments[0] + " failed");
        }
    }
    void set(const std::string& variable) { environment_.push_back(variable); }
    [[nodiscard]] std::filesystem::path folder() const { return folder_.path(); }
    void elmworth(Words arguments) {
        arguments.insert(arguments.begin(), ELMWORTH_PROGRAM);
        run(std::move(arguments));
    }

    /// Changes the library while no program has it open.
    template <class Change>
    void change(Change make) {
        NoRunLoop loop;
        Library container(LibraryOptions{libraryFolder() / "library.sqlite"}, loop);
        make(container.mainContext());
        container.mainContext().save();
    }

 private:
    struct Actions {
        Actions() {
            ::posix_spawn_file_actions_init(&actions);
            ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        }
        Actions(const Actions&) = delete;
        Actions& operator=(const Actions&) = delete;
        ~Actions() { ::posix_spawn_file_actions_destroy(&actions); }
        [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions; }
        posix_spawn_file_actions_t actions{};
    };

    [[nodiscard]] std::filesystem::path libraryFolder() const {
        return folder_.path() / "Elmworth";
    }

    test::TemporaryFolder folder_;
    Words environment_{"XDG_DATA_HOME=" + folder_.path().string(),
                       "XDG_CONFIG_HOME=" + folder_.path().string(), "LC_ALL=C.UTF-8",
                       "TZ=Europe/Berlin"};
    Actions actions_;
};

void emptyProgram(benchmark::State& state) {
    Home home(0);
    for (auto _ : state) home.run({ELMWORTH_EMPTY_PROGRAM});
}

void status(benchmark::State& state) {
    Home home(state.range(0));
    for (auto _ : state) home.elmworth({"status"});
}

void addProject(UnitOfWork& context) {
    const auto client = std::make_shared<Client>("Key binding");
    context.insert(client);
    context.insert(std::make_shared<Project>("Bench", client));
}

/// An entry younger than a second would be dropped and not stopped.
void ageRunningEntry(UnitOfWork& context) {
    for (const auto& entry :
         context.fetch(Query<TimeEntry>{.predicate = key<&TimeEntry::end>() == absent})) {
        entry->start = entry->start.get() - 1h;
    }
}

void start(benchmark::State& state) {
    Home home(state.range(0));
    home.change(&addProject);
    for (auto _ : state) {
        state.PauseTiming();
        home.change(&ageRunningEntry);
        home.elmworth({"stop"});
        state.ResumeTiming();
        home.elmworth({"start", "Bench"});
    }
}

void stop(benchmark::State& state) {
    Home home(state.range(0));
    home.change(&addProject);
    for (auto _ : state) {
        state.PauseTiming();
        home.elmworth({"start", "Bench"});
        home.change(&ageRunningEntry);
        state.ResumeTiming();
        home.elmworth({"stop"});
    }
}

template <class... Arguments>
void list(benchmark::State& state, Arguments... arguments) {
    Home home(state.range(0));
    for (auto _ : state) home.elmworth({arguments...});
}

/// The start of a program, and a bare pass over the rows that a command shows.
void readBare(benchmark::State& state, const char* sql) {
    Home home(0);
    const LibraryCopy copy(state.range(0));
    const BareLibrary bare(copy.file());
    for (auto _ : state) {
        home.run({ELMWORTH_EMPTY_PROGRAM});
        auto rows = bare.prepare(sql);
        const int columns = sqlite3_column_count(rows.handle());
        while (rows.step()) {
            for (int i = 0; i < columns; ++i) {
                benchmark::DoNotOptimize(sqlite3_column_blob(rows.handle(), i));
            }
        }
    }
}

constexpr const char* allEntries = R"(SELECT * FROM "TimeEntry")";
constexpr const char* entriesOfAYear =
    R"(SELECT * FROM "TimeEntry" WHERE "start" >= 1735686000000000 AND "start" < 1767222000000000)"
    R"( ORDER BY "start")";

void onSizes(benchmark::internal::Benchmark* benchmark) {
    onEverySize(benchmark);
    benchmark->Unit(benchmark::kMillisecond)->UseRealTime();
}

/// The application, open on a session bus of its own.
class RunningApplication {
 public:
    explicit RunningApplication(Home& home) {
        const std::string address = "unix:path=" + (home.folder() / "bus").string();
        bus_ =
            home.begin({"/usr/bin/dbus-daemon", "--session", "--nofork", "--address=" + address});
        home.set("DBUS_SESSION_BUS_ADDRESS=" + address);
        home.set("QT_QPA_PLATFORM=offscreen");
        while (!std::filesystem::exists(home.folder() / "bus")) std::this_thread::yield();
        application_ = home.begin({ELMWORTH_APPLICATION});
        LibraryLock lock(home.folder() / "Elmworth");
        while (lock.tryAcquire()) {
            lock.release();
            std::this_thread::sleep_for(10ms);
        }
        home.elmworth({"status"});  // waits until the application answers on the bus
        waitUntilIdle();
    }
    RunningApplication(const RunningApplication&) = delete;
    RunningApplication& operator=(const RunningApplication&) = delete;
    ~RunningApplication() {
        for (const pid_t process : {application_, bus_}) {
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
        }
    }

 private:
    /// It answers while it still draws its window for the first time.
    void waitUntilIdle() const {
        constexpr auto worked = 2ms;  // more than the running time on the screen takes
        auto before = processorTime();
        for (int quiet = 0; quiet < 3;) {
            std::this_thread::sleep_for(100ms);
            const auto now = processorTime();
            quiet = now - before < worked ? quiet + 1 : 0;
            before = now;
        }
    }
    [[nodiscard]] std::chrono::nanoseconds processorTime() const {
        clockid_t clock{};
        timespec time{};
        if (::clock_getcpuclockid(application_, &clock) != 0 || ::clock_gettime(clock, &time) != 0)
            throw std::runtime_error("the application has ended");
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    pid_t bus_ = 0;
    pid_t application_ = 0;
};

void statusHandedOver(benchmark::State& state) {
    Home home(state.range(0));
    const RunningApplication application(home);
    for (auto _ : state) home.elmworth({"status"});
}

BENCHMARK(statusHandedOver)->Name("process/statusHandedOver")->Apply(onSizes);
BENCHMARK(emptyProgram)->Name("limit/process")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(status)->Name("process/status")->Apply(onSizes);
BENCHMARK(start)->Name("process/start")->Apply(onSizes);
BENCHMARK(stop)->Name("process/stop")->Apply(onSizes);
BENCHMARK_CAPTURE(list, clients, "client", "list")->Name("process/clientList")->Apply(onSizes);
BENCHMARK_CAPTURE(list, projects, "project", "list")->Name("process/projectList")->Apply(onSizes);
BENCHMARK_CAPTURE(list, invoices, "invoice", "list")->Name("process/invoiceList")->Apply(onSizes);

void onBig(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(200'000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK_CAPTURE(list, year, "report", "--from", "2025-01-01", "--through", "2025-12-31")
    ->Name("process/report")
    ->Apply(onBig);
BENCHMARK_CAPTURE(readBare, entries, allEntries)->Name("limit/allEntries")->Apply(onBig);
BENCHMARK_CAPTURE(readBare, year, entriesOfAYear)->Name("limit/entriesOfAYear")->Apply(onBig);

}  // namespace
}  // namespace elmworth::bench

// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// timer_clicks LIBRARY: what a person does with the timer in one run of the program, each step
// announced by a line on standard output, so that an observer of the system calls can tell them
// apart.

#include <unistd.h>

#include <exception>
#include <memory>
#include <string>

#include "platform/Calendar.h"
#include "records/Client.h"
#include "records/Library.h"
#include "records/Project.h"
#include "support/TestLibrary.h"
#include "tracking/TimerService.h"

namespace {

using namespace elmworth;
using namespace std::chrono_literals;

void announce(const std::string& step) {
    const std::string line = "step " + step + '\n';
    if (::write(STDOUT_FILENO, line.data(), line.size()) < 0) std::terminate();
}

Ref<Project> addProject(UnitOfWork& context, const char* name) {
    const auto project = std::make_shared<Project>(name, nullptr);
    context.insert(project);
    return project;
}

void click(const std::filesystem::path& file) {
    test::ManualRunLoop loop;
    Instant now = currentInstant();
    announce("open");
    Library container(LibraryOptions{file}, loop);
    auto& context = container.mainContext();
    TimerService timer(
        context, [&] { return now; }, loop, &Calendar::current);
    timer.restore();
    const auto first = addProject(context, "First");
    const auto second = addProject(context, "Second");
    announce("idle");
    loop.turn();
    announce("start");
    timer.start(first);
    now += 1h;
    announce("switch");
    timer.start(second);
    now += 1h;
    announce("stop");
    timer.stop();
    announce("continue");
    timer.continueEntry(timer.lastContinuableEntry());
    announce("accidental");
    timer.stop();
    announce("end");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    click(argv[1]);
    return 0;
}

// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Calendar.h"
#include "platform/Observers.h"
#include "platform/PowerEvents.h"
#include "platform/RunLoop.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "store/UndoHistory.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// The single place where time is tracked. One instance per run.
///
/// The timer stores nothing of its own: a running timer is a `TimeEntry` without an `end`, and its
/// `start` is the only clock. So it survives a quit, a crash, a restart and a sleep. What is kept
/// here is which entry runs, two display texts, and the sleeps that nobody has decided about.
///
/// A save that fails is logged; the change stays pending and the next save tries it again.
class TimerService {
 public:
    /// `calendar` gives the user's current calendar at each call.
    TimerService(UnitOfWork& context, Clock now, RunLoop& runLoop,
                 std::function<Calendar()> calendar);
    TimerService(const TimerService&) = delete;
    TimerService& operator=(const TimerService&) = delete;

    /// From now on, each change is a step of `history`, which outlives this.
    void setHistory(UndoHistory& history) noexcept { history_ = &history; }

    /// Resumes the timer that the last run left open. Of several open entries the newest keeps
    /// running, and the others end one second after their start. Called once, at start. Where the
    /// library can't be read then, this is made up for before the timer starts or stops, and by
    /// `restoreUnread`.
    void restore();
    /// Resumes what `restore` couldn't read, if anything.
    void restoreUnread();

    /// Begins to note sleeps. A second call does nothing.
    void installSleepObservers(PowerEvents& powerEvents);

    /// Starts a timer on `project`. A running one ends at the same instant.
    void start(Ref<Project> project, std::string notes = {});

    /// Starts a new entry with the project and the notes of `entry`. Null when it has no project.
    Ref<TimeEntry> continueEntry(const Ref<TimeEntry>& entry);

    /// Stops the timer now. An entry shorter than a second leaves no trace.
    void stop();

    /// Stops the timer, ending the entry at `at`, but not before one second after its start.
    void stop(Instant at);

    /// Looks again at the running entry after somebody else changed or deleted records.
    void refresh();

    /// Resumes `entry`, which has no end and came back by an undo. Requires that nothing else runs.
    void resume(const Ref<TimeEntry>& entry);

    /// Counts the sleeps in `awayIntervals` as worked time.
    void keepAwayTime();

    /// Takes the sleeps in `awayIntervals` out: the running entry becomes a chain of entries that
    /// covers the time awake, and the timer goes on in the last one.
    void discardAwayTime();

    /// Changes the notes of the running entry, without a save, as they are typed.
    void typeNotes(const std::string& notes);
    /// Ends the step of `typeNotes`: the field was left, or its text was confirmed.
    void leaveNotes() noexcept;

    /// The entry that runs, or null.
    [[nodiscard]] const Ref<TimeEntry>& running() const noexcept { return running_; }
    /// The running entry's time as hours and minutes, "1:05"; empty when nothing runs.
    [[nodiscard]] const std::string& elapsedText() const noexcept { return elapsedText_; }
    /// The same with seconds, "1:05:09".
    [[nodiscard]] const std::string& elapsedLongText() const noexcept { return elapsedLongText_; }
    /// Sleeps of at least ten minutes that fell into the running entry, in the order of their end.
    [[nodiscard]] const std::vector<DateInterval>& awayIntervals() const noexcept {
        return awayIntervals_;
    }
    /// Whether the running entry began at least ten hours ago.
    [[nodiscard]] bool isLongRunning() const;

    /// At most `limit` projects for a quick start: the most recently used first, then the others by
    /// name. Archived ones are left out.
    [[nodiscard]] std::vector<Ref<Project>> recentProjects(std::size_t limit) const;

    /// The entry that "continue" would take up: the one that ended last, of the last 20, whose
    /// project is not archived. Null when there is none.
    [[nodiscard]] Ref<TimeEntry> lastContinuableEntry() const;

    /// Seconds tracked today and in this calendar week, the running entry's up to now among them.
    [[nodiscard]] double todaySeconds() const;
    [[nodiscard]] double thisWeekSeconds() const;

    /// Seconds tracked in [from, to). A finished entry that began more than a day before `from` is
    /// not counted.
    [[nodiscard]] double trackedSeconds(Instant from, Instant to) const;

    enum class Property { running, elapsedText, elapsedLongText, awayIntervals };
    using Observation = std::shared_ptr<void>;
    /// Calls `changed` after a property got another value, until the handle dies.
    [[nodiscard]] Observation observe(std::function<void(Property)> changed);

 private:
    void step(const char* name, const std::function<void()>& change);
    void closeRunning(Instant t);
    void open(const Ref<Project>& project, Instant t, const std::string& notes);
    void save();
    void startTicker();
    void stopTicker();
    void tick();
    void machineWillSleep();
    void machineDidWake();
    void splitAround(const std::vector<DateInterval>& sleeps);
    void insertFinished(const TimeEntry& like, Instant start, Instant end);

    void setRunning(Ref<TimeEntry> entry);
    void setText(std::string& text, std::string value, Property property);
    void setAwayIntervals(std::vector<DateInterval> intervals);

    UnitOfWork& context_;
    Clock now_;
    RunLoop& runLoop_;
    std::function<Calendar()> calendar_;
    UndoHistory* history_ = nullptr;
    Ref<TimeEntry> running_;
    bool isUnread_ = false;  ///< whether an entry runs
    std::string elapsedText_;
    std::string elapsedLongText_;
    RunLoop::Handle ticker_;
    std::vector<PowerEvents::Observation> sleepObservers_;
    std::optional<Instant> sleptAt_;
    std::vector<DateInterval> awayIntervals_;
    Observers<Property> observers_;
};

}  // namespace elmworth

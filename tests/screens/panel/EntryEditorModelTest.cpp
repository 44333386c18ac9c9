// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/EntryEditorTest.h"
#include "support/FileSizeLimit.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::utf8;
using EntryEditor = test::EntryEditorTest;
using Spans = std::vector<std::string>;

// --- a new entry ---------------------------------------------------------------------------------

TEST_F(EntryEditor, aNewEntryForAPastDayIsItsHourFromNineOn) {
    editor.open(nullptr, at("2026-02-20T18:00Z"));
    EXPECT_EQ(shown(editor.start()), "2/20/2026 9:00 AM");
    EXPECT_EQ(shown(editor.end()), "2/20/2026 10:00 AM");
}

TEST_F(EntryEditor, aNewEntryForTodayBeforeTenIsTheLastHour) {
    timer.setTime("08:30");
    editor.open(nullptr);
    EXPECT_EQ(shown(editor.start()), "3/2/2026 7:30 AM");
    EXPECT_EQ(shown(editor.end()), "3/2/2026 8:30 AM");
}

TEST_F(EntryEditor, aNewEntryForTodayInTheAfternoonIsTheHourFromNineOn) {
    editor.open(nullptr);
    EXPECT_EQ(shown(editor.start()), "3/2/2026 9:00 AM");
    EXPECT_EQ(shown(editor.end()), "3/2/2026 10:00 AM");
    EXPECT_EQ(utf8(editor.subtitle()), "1:00 · 1.00 h");
    EXPECT_EQ(chosenChips(), "1h");
}

TEST_F(EntryEditor, aNewEntryTakesTheProjectUsedLast) {
    const auto blog = project("Blog");
    entry(blog, "07:00", "08:00");
    editor.open(nullptr);
    EXPECT_EQ(utf8(editor.projects()->title()), "Acme Co — Blog");
    EXPECT_EQ(utf8(editor.title()), "New Entry");
    EXPECT_EQ(utf8(editor.icon()), "clock-filled");
    EXPECT_EQ(utf8(editor.iconColor()), blog->colorHex.get());
    EXPECT_FALSE(editor.isLocked());
    EXPECT_TRUE(editor.canSave());
}

TEST_F(EntryEditor, withoutAProjectNothingIsSaved) {
    editor.open(nullptr);
    editor.projects()->choose(0);
    EXPECT_EQ(utf8(editor.projects()->title()), "Choose…");
    EXPECT_EQ(utf8(editor.problem()), "Choose a project.");
    EXPECT_EQ(utf8(editor.iconColor()), "#7C6CFF");
    EXPECT_FALSE(editor.canSave());
    editor.save();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(timer.spans(), Spans{});
}

TEST_F(EntryEditor, saveAddsTheEntryAndClosesTheSheet) {
    editor.open(nullptr);
    editor.notes()->setText(QStringLiteral("Landing page"));
    editor.save();
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-10:00:00"});
    EXPECT_FALSE(context().hasChanges());
    const auto saved = context().fetch(Query<TimeEntry>{}).at(0);
    EXPECT_EQ(saved->notes.get(), "Landing page");
    EXPECT_EQ(saved->project.get(), website);
}

TEST_F(EntryEditor, cancelLeavesEverythingAsItWas) {
    const auto shower = entry(website, "07:00", "08:00");
    editor.open(shower);
    type(editor.start()->time(), "6:00");
    editor.notes()->setText(QStringLiteral("Other"));
    editor.dismiss();
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(timer.spans(), Spans{"07:00:00-08:00:00"});
    EXPECT_EQ(shower->notes.get(), "");
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(EntryEditor, openingTellsAndSoDoesClosing) {
    test::SignalCount count;
    count.watch(editor);
    editor.open(nullptr);
    editor.open(nullptr);
    editor.dismiss();
    editor.dismiss();
    const auto told = count.take();
    EXPECT_EQ(told.at("EntryEditorModel::opened"), 2);
    EXPECT_EQ(told.at("EntryEditorModel::dismissed"), 2);
}

// --- an existing entry ---------------------------------------------------------------------------

TEST_F(EntryEditor, anEntryShowsWhatItHolds) {
    const auto work = entry(website, "07:15", "08:00");
    work->notes = "Landing page";
    editor.open(work);
    EXPECT_EQ(utf8(editor.title()), "Edit Entry");
    EXPECT_EQ(shown(editor.start()), "3/2/2026 7:15 AM");
    EXPECT_EQ(shown(editor.end()), "3/2/2026 8:00 AM");
    EXPECT_EQ(utf8(editor.notes()->text()), "Landing page");
    EXPECT_EQ(utf8(editor.subtitle()), "0:45 · 0.75 h");
    EXPECT_FALSE(editor.isRunning());
}

TEST_F(EntryEditor, saveChangesTheEntryAlone) {
    const auto blog = project("Blog");
    const auto work = entry(website, "07:00", "08:00");
    editor.open(work);
    choose("Acme Co — Blog");
    type(editor.start()->time(), "6:30");
    type(editor.end()->time(), "8:15");
    editor.notes()->setText(QStringLiteral("Mended"));
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"06:30:00-08:15:00"});
    EXPECT_EQ(work->project.get(), blog);
    EXPECT_EQ(work->notes.get(), "Mended");
}

TEST_F(EntryEditor, secondsOfAnEntryStayWhereNobodyTouchesThem) {
    const auto work = entry(website, "07:00:37", "08:00:12");
    editor.open(work);
    type(editor.start()->time(), "7:00");
    editor.notes()->setText(QStringLiteral("Mended"));
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"07:00:37-08:00:12"});
}

TEST_F(EntryEditor, anEndAtTheStartShowsThatItMustComeAfterAndIsNotSaved) {
    editor.open(nullptr);
    type(editor.end()->time(), "9:00");
    EXPECT_EQ(utf8(editor.problem()), "End must be after start.");
    EXPECT_EQ(utf8(editor.subtitle()), "—");
    EXPECT_FALSE(editor.canSave());
    editor.save();
    EXPECT_TRUE(editor.isOpen());
    type(editor.end()->time(), "9:01");
    EXPECT_EQ(utf8(editor.problem()), "");
    EXPECT_TRUE(editor.canSave());
}

TEST_F(EntryEditor, theCheckIsLiveWhileTheEndIsTyped) {
    editor.open(nullptr);
    editor.end()->time()->edit(QStringLiteral("8:59"));
    EXPECT_EQ(utf8(editor.problem()), "End must be after start.");
    EXPECT_EQ(utf8(editor.end()->time()->text()), "8:59");
}

TEST_F(EntryEditor, aStartInTheFutureWaitsForItsTime) {
    editor.open(nullptr);
    type(editor.start()->time(), "3:01 PM");
    type(editor.end()->time(), "5 PM");
    EXPECT_EQ(utf8(editor.problem()), "The start can't be in the future.");
    EXPECT_FALSE(editor.canSave());
    test::SignalCount count;
    count.watch(editor);
    pass(60);
    EXPECT_GT(count.take()["EntryEditorModel::changed"], 0);
    EXPECT_EQ(utf8(editor.problem()), "");
    EXPECT_TRUE(editor.canSave());
}

TEST_F(EntryEditor, aTextThatIsNoTimeIsNotSavedAndStays) {
    editor.open(nullptr);
    editor.end()->time()->edit(QStringLiteral("25:00"));
    EXPECT_FALSE(editor.canSave());
    editor.save();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(utf8(editor.end()->time()->text()), "25:00");
    EXPECT_EQ(plain(editor.end()->time()->problem()),
              "This is not a time. Type one like 10:00 AM.");
    EXPECT_EQ(utf8(editor.problem()), "");
    EXPECT_EQ(timer.spans(), Spans{});
}

TEST_F(EntryEditor, whatIsStillBeingTypedIsSaved) {
    editor.open(nullptr);
    editor.end()->time()->edit(QStringLiteral("1130"));
    editor.save();
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-11:30:00"});
}

TEST_F(EntryEditor, notesOfAHundredThousandCharactersAreSaved) {
    editor.open(nullptr);
    editor.notes()->setText(QString(100'000, QChar(0x00E4)));
    editor.save();
    const auto saved = context().fetch(Query<TimeEntry>{}).at(0);
    EXPECT_EQ(saved->notes->size(), 200'000U);
}

TEST_F(EntryEditor, aFullDiskLosesNothing) {
    {
        const test::FileSizeLimit fullDisk(0);
        editor.open(nullptr);
        editor.save();
        EXPECT_FALSE(editor.isOpen());
        EXPECT_TRUE(context().hasChanges());
    }
    context().save();
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-10:00:00"});
}

TEST_F(EntryEditor, somebodyElseCanCarryOutTheSaving) {
    EntryForm asked;
    Ref<TimeEntry> on;
    EntryEditorModel other(services(), [&](const EntryForm& form, const Ref<TimeEntry>& it) {
        asked = form;
        on = it;
        return form.save(it, context(), service());
    });
    const auto work = entry(website, "07:00", "08:00");
    other.open(work);
    type(other.end()->time(), "8:30");
    other.save();
    EXPECT_EQ(on, work);
    EXPECT_EQ(asked.end, timer.today("08:30"));
    EXPECT_EQ(timer.spans(), Spans{"07:00:00-08:30:00"});
}

// --- chips ---------------------------------------------------------------------------------------

TEST_F(EntryEditor, chipsNameTheirDurations) {
    editor.open(nullptr);
    std::vector<std::string> texts;
    for (const auto& chip : editor.chips()) texts.push_back(utf8(chip.text));
    EXPECT_EQ(texts, (Spans{"6m", "12m", "15m", "30m", "1h", "1h30", "2h", "4h"}));
}

TEST_F(EntryEditor, theSixMinutesOnAStartAtTenEndSixMinutesLater) {
    editor.open(nullptr);
    type(editor.start()->time(), "10:00");
    editor.chooseDuration(0);
    EXPECT_EQ(shown(editor.start()), "3/2/2026 10:00 AM");
    EXPECT_EQ(shown(editor.end()), "3/2/2026 10:06 AM");
    EXPECT_EQ(utf8(editor.subtitle()), "0:06 · 0.10 h");
    EXPECT_EQ(chosenChips(), "6m");
}

TEST_F(EntryEditor, aChipIsChosenByTheSecond) {
    const auto work = entry(website, "07:00", "08:00:01");
    editor.open(work);
    EXPECT_EQ(chosenChips(), "");
}

TEST_F(EntryEditor, aChipReplacesAnEndThatIsNoTime) {
    editor.open(nullptr);
    type(editor.end()->time(), "late");
    editor.chooseDuration(5);
    EXPECT_EQ(shown(editor.end()), "3/2/2026 10:30 AM");
    EXPECT_TRUE(editor.canSave());
}

TEST_F(EntryEditor, aChipThatIsNotThereDoesNothing) {
    editor.open(nullptr);
    editor.chooseDuration(-1);
    editor.chooseDuration(8);
    EXPECT_EQ(chosenChips(), "1h");
}

// --- days of 23 and 25 hours ---------------------------------------------------------------------

struct ClockChangeRow {
    const char* name;
    const char* zone;
    const char* day;
    const char* start;
    const char* end;
    const char* subtitle;
    const char* shownStart;
};

void PrintTo(const ClockChangeRow& row, std::ostream* out) {
    *out << row.name;
}

class EntryEditorOverClockChange : public test::EntryEditorTest,
                                   public testing::WithParamInterface<ClockChangeRow> {};

TEST_P(EntryEditorOverClockChange, countsTheHoursThatPassed) {
    const auto& row = GetParam();
    timer.setClock("2026-12-01T12:00Z");
    timer.calendar = Calendar(Locale("en_US"), row.zone);
    editor.open(nullptr);
    for (auto* input : {editor.start(), editor.end()}) type(input->day(), row.day);
    type(editor.start()->time(), row.start);
    type(editor.end()->time(), row.end);
    EXPECT_EQ(utf8(editor.subtitle()), row.subtitle);
    EXPECT_EQ(plain(editor.start()->time()->text()), row.shownStart);
}

INSTANTIATE_TEST_SUITE_P(
    Row, EntryEditorOverClockChange,
    testing::ValuesIn(std::vector<ClockChangeRow>{
        {"BerlinForward", "Europe/Berlin", "3/29/2026", "1:30", "3:30", "1:00 · 1.00 h", "1:30 AM"},
        {"BerlinSkippedStart", "Europe/Berlin", "3/29/2026", "2:30", "4:00", "1:00 · 1.00 h",
         "3:00 AM"},
        {"BerlinBack", "Europe/Berlin", "10/25/2026", "1:30", "3:30", "3:00 · 3.00 h", "1:30 AM"},
        {"NewYorkForward", "America/New_York", "3/8/2026", "1:30", "3:30", "1:00 · 1.00 h",
         "1:30 AM"},
        {"NewYorkSkippedStart", "America/New_York", "3/8/2026", "2:15", "5:00", "2:00 · 2.00 h",
         "3:00 AM"},
        {"NewYorkBack", "America/New_York", "11/1/2026", "0:30", "2:30", "3:00 · 3.00 h",
         "12:30 AM"},
    }),
    test::rowName);

}  // namespace
}  // namespace elmworth

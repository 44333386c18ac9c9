// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <fstream>

#include "screens/settings/SettingsTest.h"
#include "support/Instants.h"
#include "updates/SignedReleases.h"
#include "updates/ToldDownloads.h"

namespace elmworth {
namespace {

class GeneralSettingsTest : public test::SettingsTest {
 protected:
    GeneralSettingsTest() { general.reload(); }

    void addSnapshot(const std::string& timestamp) {
        const auto folder = settingsServices().snapshotFolder();
        std::ofstream(folder / ("Elmworth-" + timestamp + ".json")) << "{}";
        general.refresh();
    }
    std::string status() { return general.snapshotText().toStdString(); }

    GeneralSettings general{settingsServices(), keeper};
};

TEST_F(GeneralSettingsTest, keepsWhatIsChosen) {
    general.setAppearance(1);
    general.setTrayStyle(2);
    general.setGoalHours(40);
    const Settings stored(defaults.file());
    EXPECT_EQ(stored.string("appearance"), "dark");
    EXPECT_EQ(stored.string("menuBarStyle"), "icon");
    EXPECT_EQ(stored.integer("weeklyGoalHours"), 40);
}

TEST_F(GeneralSettingsTest, showsTheDefaultsOfAnEmptyFileAndOfUnknownTexts) {
    EXPECT_EQ(general.appearance(), 0);
    EXPECT_EQ(general.trayStyle(), 0);
    defaults.setString("appearance", "sepia");
    defaults.setString("menuBarStyle", "big");
    EXPECT_EQ(general.appearance(), 0);
    EXPECT_EQ(general.trayStyle(), 0);
}

TEST_F(GeneralSettingsTest, aGoalOfZeroIsOffAndOneStepUpIsFive) {
    EXPECT_EQ(general.goalText(), QStringLiteral("Weekly hours goal: off"));
    general.setGoalHours(5);
    EXPECT_EQ(general.goalText(), QStringLiteral("Weekly hours goal: 5 h"));
    general.setGoalHours(85);
    EXPECT_EQ(general.goalText(), QStringLiteral("Weekly hours goal: 80 h"));
    general.setGoalHours(-5);
    EXPECT_EQ(general.goalText(), QStringLiteral("Weekly hours goal: off"));
}

TEST_F(GeneralSettingsTest, followsWhatCommandsSet) {
    int changes = 0;
    QObject::connect(&general, &GeneralSettings::changed, [&] { ++changes; });
    setPreference(defaults, preferences::weeklyGoal, "12");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(general.goalHours(), 12);
    loginItem.setEnabled(true);
    EXPECT_TRUE(general.launchesAtLogin());
}

TEST_F(GeneralSettingsTest, aChoiceThatCannotBeKeptGoesBackAndSaysWhy) {
    general.setAppearance(1);
    const test::FileSizeLimit full(0);
    general.setAppearance(2);
    EXPECT_EQ(general.appearance(), 1);
    EXPECT_EQ(keeper.problem(),
              QStringLiteral("The settings file can't be written, so the change was not kept."));
}

TEST_F(GeneralSettingsTest, aLoginItemThatIsRefusedStaysOffAndSaysWhy) {
    loginItem.refuses = true;
    general.setLaunchesAtLogin(true);
    EXPECT_FALSE(general.launchesAtLogin());
    EXPECT_EQ(general.loginError(), QStringLiteral("The autostart folder can't be written."));
    loginItem.refuses = false;
    general.setLaunchesAtLogin(true);
    EXPECT_TRUE(general.launchesAtLogin());
    EXPECT_EQ(general.loginError(), QString());
}

TEST_F(GeneralSettingsTest, marksAVersionBeforeTheFirstAsBeta) {
    EXPECT_EQ(GeneralSettings::versionText("0.9", "12"), QStringLiteral("0.9 (12) · beta"));
    EXPECT_EQ(GeneralSettings::versionText("1.0", "20"), QStringLiteral("1.0 (20)"));
    EXPECT_EQ(GeneralSettings::versionText("", ""), QStringLiteral("? (?)"));
}

TEST_F(GeneralSettingsTest, tellsOfTheNewestSnapshot) {
    EXPECT_EQ(status(), "No snapshot has been taken yet.");
    addSnapshot("2026-02-28T09-00-00");
    addSnapshot("2026-03-01T09-00-00");
    EXPECT_EQ(status(), "Newest snapshot: Mar 1, 2026, 9:00\u202fAM");
    EXPECT_FALSE(general.isSnapshotWorrying());
}

TEST_F(GeneralSettingsTest, warnsOfASnapshotOlderThanThreeDays) {
    addSnapshot("2026-02-27T09-00-00");
    EXPECT_FALSE(general.isSnapshotWorrying());
    timer.setTime("09:00:01");
    general.refresh();
    EXPECT_TRUE(general.isSnapshotWorrying());
    EXPECT_EQ(status(),
              "The newest snapshot is 3 days old (Feb 27, 2026, 9:00\u202fAM). Check that "
              "the disk has space, and export a backup.");
}

TEST_F(GeneralSettingsTest, warnsOfASnapshotDatedInTheFuture) {
    addSnapshot("2026-03-02T09-00-01");
    EXPECT_TRUE(general.isSnapshotWorrying());
    EXPECT_EQ(
        status(),
        "The newest snapshot is dated in the future (Mar 2, 2026, 9:00\u202fAM), so no new one "
        "is taken. Check this computer's clock, then move that file away.");
}

TEST_F(GeneralSettingsTest, warnsOfASnapshotThatFailedItsCheck) {
    defaults.setString("failedSnapshotCheck", "2026-03-01T09:00:00Z It ends early.");
    general.refresh();
    EXPECT_TRUE(general.isSnapshotWorrying());
    EXPECT_EQ(status(),
              "The snapshot of Mar 1, 2026, 9:00\u202fAM failed its check: It ends early. "
              "Export a backup.");
}

TEST_F(GeneralSettingsTest, showsTheFolderOfTheSnapshots) {
    EXPECT_EQ(GeneralSettings::snapshotPolicy(),
              QStringLiteral("A daily snapshot is kept for the last 14 days."));
    general.showSnapshots();
    EXPECT_EQ(shown, timer.library.folder.path() / "Backups");
}

TEST_F(GeneralSettingsTest, aFolderThatCannotBeMadeShowsNothingAndSaysSo) {
    std::filesystem::remove_all(timer.library.folder.path() / "Backups");
    std::ofstream(timer.library.folder.path() / "Backups") << "a file in its place";
    general.showSnapshots();
    EXPECT_EQ(shown, "");
    EXPECT_TRUE(general.isSnapshotWorrying());
}

/// A program that can look for updates.
class UpdateSettingsTest : public test::SettingsTest {
 protected:
    UpdateSettingsTest() { make("https://elmworth.example/appcast.xml"); }

    void make(const std::string& feed) {
        updater = std::make_unique<Updater>(
            Updater::Setup{
                feed, test::Signer().keys(), ReleaseVersion::parse("0.9").value(), {}, false},
            defaults, loop_, [] { return test::at("2026-03-02T09:00Z"); }, downloads_);
        general = std::make_unique<GeneralSettings>(settingsServices(), keeper);
    }

    test::ManualRunLoop loop_;
    test::ToldDownloads downloads_;
    std::unique_ptr<GeneralSettings> general;
};

TEST_F(UpdateSettingsTest, areHiddenWithoutAFeedOrAnUpdater) {
    EXPECT_TRUE(general->hasUpdates());
    make("");
    EXPECT_FALSE(general->hasUpdates());
    updater.reset();
    const GeneralSettings none(settingsServices(), keeper);
    EXPECT_FALSE(none.hasUpdates());
    EXPECT_FALSE(none.installsUpdates());
}

TEST_F(UpdateSettingsTest, keepWhetherUpdatesAreInstalledAndLookAtOnce) {
    EXPECT_FALSE(general->installsUpdates());
    general->setInstallsUpdates(true);
    EXPECT_TRUE(general->installsUpdates());
    EXPECT_EQ(Settings(defaults.file()).boolean("installUpdatesAutomatically"), true);
    EXPECT_EQ(downloads_.asked.size(), 1U);
    general->setInstallsUpdates(false);
    EXPECT_FALSE(general->installsUpdates());
}

TEST_F(UpdateSettingsTest, followWhatACommandSets) {
    setPreference(defaults, preferences::automaticUpdates, "true");
    EXPECT_TRUE(general->installsUpdates());
}

TEST_F(UpdateSettingsTest, nameWhatWasFound) {
    EXPECT_EQ(general->updateText(), QString());
    updater->look([](const auto&) {});
    downloads_.answer(test::Signer().sign(test::appcast(test::item("1.2"))));
    EXPECT_EQ(general->updateText(), QStringLiteral("Elmworth 1.2 is available"));
}

TEST_F(UpdateSettingsTest, leadToTheWindowThatLooks) {
    general->lookForUpdates();
    EXPECT_EQ(looks, 1);
}

}  // namespace
}  // namespace elmworth

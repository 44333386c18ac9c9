// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/FreedesktopFiles.h"

#include <gtest/gtest.h>

#include <QObject>
#include <QStringList>
#include <QTest>
#include <QThread>
#include <memory>

#include "platform/AtomicFile.h"
#include "support/PrivateSessionBus.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

/// A file manager as the session bus has it.
class FakeFileManager final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

 public:
    QStringList shown;

 public Q_SLOTS:
    void ShowItems(const QStringList& files, const QString& /*startupID*/) { shown += files; }
};

class FreedesktopFilesTest : public testing::Test {
 protected:
    ~FreedesktopFilesTest() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("manager"));
        QDBusConnection::disconnectFromBus(QStringLiteral("program"));
    }
    /// A program that notes what it is given, and ends with `status`.
    QString opener(int status) {
        const auto program = folder_.path() / ("opener" + std::to_string(status));
        writeAtomically(program, "#!/bin/sh\nprintf '%s' \"$1\" > '" + noted().string() +
                                     "'\nexit " + std::to_string(status) + "\n");
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
        return QString::fromStdString(program.string());
    }
    [[nodiscard]] std::filesystem::path noted() const { return folder_.path() / "noted"; }
    /// Waits until `files` waits for nothing; what the opener was given then.
    [[nodiscard]] std::filesystem::path opened(const FreedesktopFiles& files) const {
        finish(files);
        return std::filesystem::exists(noted()) ? readFile(noted()) : std::string();
    }
    static void finish(const FreedesktopFiles& files) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return files.children().isEmpty(); }));
    }
    DesktopFiles::Failed failed() {
        return [this] { ++failures_; };
    }

    test::TemporaryFolder folder_;
    test::PrivateSessionBus bus_;
    QDBusConnection managerBus_ = bus_.connect(QStringLiteral("manager"));
    QDBusConnection programBus_ = bus_.connect(QStringLiteral("program"));
    FakeFileManager manager_;
    const std::filesystem::path file_ = folder_.path() / "INV 1 #2 (März).pdf";
    int failures_ = 0;
};

TEST_F(FreedesktopFilesTest, aFileIsGivenToTheOpener) {
    FreedesktopFiles files(programBus_, opener(0));
    files.open(file_, failed());
    EXPECT_EQ(opened(files), file_);
    EXPECT_EQ(failures_, 0);
}

TEST_F(FreedesktopFilesTest, aFileThatNoProgramOpensIsReported) {
    FreedesktopFiles files(programBus_, opener(3));
    files.open(file_, failed());
    finish(files);
    EXPECT_EQ(failures_, 1);
}

TEST_F(FreedesktopFilesTest, aMissingOpenerIsReported) {
    FreedesktopFiles files(programBus_, QStringLiteral("/nowhere/opener"));
    files.open(file_, failed());
    finish(files);
    EXPECT_EQ(failures_, 1);
}

TEST_F(FreedesktopFilesTest, theFileManagerIsAskedToPointToAFile) {
    managerBus_.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager_,
                               QDBusConnection::ExportAllSlots);
    managerBus_.registerService(QStringLiteral("org.freedesktop.FileManager1"));
    FreedesktopFiles files(programBus_, opener(3));
    files.reveal(file_, failed());
    EXPECT_EQ(opened(files), std::filesystem::path());
    ASSERT_FALSE(manager_.shown.isEmpty());
    EXPECT_EQ(manager_.shown.front().toStdString(),
              "file://" + folder_.path().string() + "/INV%201%20%232%20(M%C3%A4rz).pdf");
    EXPECT_EQ(failures_, 0);
}

TEST_F(FreedesktopFilesTest, withoutAFileManagerOnTheBusTheFolderIsOpened) {
    FreedesktopFiles files(programBus_, opener(0));
    files.reveal(file_, failed());
    EXPECT_EQ(opened(files), folder_.path());
    EXPECT_EQ(failures_, 0);
}

TEST_F(FreedesktopFilesTest, withoutAnyFileManagerThatIsReported) {
    FreedesktopFiles files(programBus_, opener(4));
    files.reveal(file_, failed());
    finish(files);
    EXPECT_EQ(failures_, 1);
}

}  // namespace
}  // namespace elmworth

#include "FreedesktopFilesTest.moc"

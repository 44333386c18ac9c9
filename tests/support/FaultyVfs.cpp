// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/FaultyVfs.h"

#include <signal.h>
#include <sqlite3.h>
#include <unistd.h>

#include <new>

namespace elmworth::test {

namespace {

/// What fails, and how far it is until then.
struct Fault {
    int operationsLeft = 0;  ///< 0: nothing fails
    int code = SQLITE_OK;
    bool isLasting = false;
    bool hasFailed = false;

    /// The result of the next operation.
    int next() {
        if (hasFailed && isLasting) return code;
        if (operationsLeft == 0 || --operationsLeft > 0) return SQLITE_OK;
        hasFailed = true;
        return code;
    }
};

Fault fault;
sqlite3_vfs* disk = nullptr;
int operationsUntilKill = 0;  ///< 0: nothing kills the process
bool isAllSynced = true;

bool isKilledNow() {
    return operationsUntilKill > 0 && --operationsUntilKill == 0;
}

void killProcess() {
    ::kill(::getpid(), SIGKILL);
}

/// An open file; that of the real disk follows it in memory.
struct File {
    sqlite3_file base;

    static sqlite3_file* real(sqlite3_file* file) {
        return reinterpret_cast<sqlite3_file*>(reinterpret_cast<File*>(file) + 1);
    }
    static const sqlite3_io_methods* methods(sqlite3_file* file) { return real(file)->pMethods; }
};

int closeFile(sqlite3_file* file) {
    return File::methods(file)->xClose(File::real(file));
}

int readFile(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset) {
    return File::methods(file)->xRead(File::real(file), bytes, count, offset);
}

int writeFile(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
    if (isKilledNow()) {
        File::methods(file)->xWrite(File::real(file), bytes, count / 2, offset);
        killProcess();
    }
    const int code = fault.next();
    isAllSynced = false;
    const int written = code == SQLITE_OK ? count : count / 2;
    const int result = File::methods(file)->xWrite(File::real(file), bytes, written, offset);
    return code == SQLITE_OK ? result : code;
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
    if (isKilledNow()) killProcess();
    const int code = fault.next();
    return code == SQLITE_OK ? File::methods(file)->xTruncate(File::real(file), size) : code;
}

int syncFile(sqlite3_file* /*file*/, int /*flags*/) {
    if (isKilledNow()) killProcess();
    isAllSynced = true;
    return fault.next();
}

int sizeOfFile(sqlite3_file* file, sqlite3_int64* size) {
    return File::methods(file)->xFileSize(File::real(file), size);
}

int lockFile(sqlite3_file* file, int level) {
    return File::methods(file)->xLock(File::real(file), level);
}

int unlockFile(sqlite3_file* file, int level) {
    return File::methods(file)->xUnlock(File::real(file), level);
}

int checkReservedLock(sqlite3_file* file, int* isReserved) {
    return File::methods(file)->xCheckReservedLock(File::real(file), isReserved);
}

int controlFile(sqlite3_file* file, int operation, void* argument) {
    return File::methods(file)->xFileControl(File::real(file), operation, argument);
}

int sectorSize(sqlite3_file* file) {
    return File::methods(file)->xSectorSize(File::real(file));
}

int deviceCharacteristics(sqlite3_file* file) {
    return File::methods(file)->xDeviceCharacteristics(File::real(file));
}

/// Version 1: no shared memory, which one exclusive connection does not need.
constexpr sqlite3_io_methods fileMethods{1,
                                         closeFile,
                                         readFile,
                                         writeFile,
                                         truncateFile,
                                         syncFile,
                                         sizeOfFile,
                                         lockFile,
                                         unlockFile,
                                         checkReservedLock,
                                         controlFile,
                                         sectorSize,
                                         deviceCharacteristics,
                                         nullptr,
                                         nullptr,
                                         nullptr,
                                         nullptr,
                                         nullptr,
                                         nullptr};

int openFile(sqlite3_vfs* /*vfs*/, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    file->pMethods = nullptr;
    if (isKilledNow()) killProcess();
    const int code = fault.next();
    if (code != SQLITE_OK) return code == SQLITE_FULL ? SQLITE_CANTOPEN : code;
    const int result = disk->xOpen(disk, name, File::real(file), flags, outFlags);
    if (File::methods(file) != nullptr) file->pMethods = &fileMethods;
    return result;
}

}  // namespace

struct FaultyVfs::Impl {
    sqlite3_vfs vfs;
};

FaultyVfs::FaultyVfs() : impl_(std::make_unique<Impl>()) {
    disk = sqlite3_vfs_find(nullptr);
    if (disk == nullptr) throw std::bad_alloc();
    fault = {};
    operationsUntilKill = 0;
    impl_->vfs = *disk;
    impl_->vfs.zName = "faulty";
    impl_->vfs.pNext = nullptr;
    impl_->vfs.szOsFile = static_cast<int>(sizeof(File)) + disk->szOsFile;
    impl_->vfs.xOpen = &openFile;
    sqlite3_vfs_register(&impl_->vfs, 1);
}

FaultyVfs::~FaultyVfs() {
    sqlite3_vfs_register(disk, 1);
    sqlite3_vfs_unregister(&impl_->vfs);
}

void FaultyVfs::failAt(int n, int code, Duration duration) {
    fault = {n, code, duration == Duration::lasting, false};
}

void FaultyVfs::killAt(int n) {
    operationsUntilKill = n;
}

void FaultyVfs::heal() {
    fault = {};
}

bool FaultyVfs::hasFailed() const {
    return fault.hasFailed;
}

bool FaultyVfs::isSynced() {
    return isAllSynced;
}

}  // namespace elmworth::test

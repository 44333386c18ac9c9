// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/LogFrames.h"

#include <utility>
#include <vector>

namespace elmworth::sqlite {

namespace {

constexpr std::size_t logHead = 32;
constexpr std::size_t frameHead = 24;

/// The running checksum of a log. Its words are in the byte order of the machine that made it.
struct Checksum {
    bool isBigEndian;
    std::uint32_t first = 0;
    std::uint32_t second = 0;

    void add(std::string_view bytes) {
        for (std::size_t i = 0; i + 8 <= bytes.size(); i += 8) {
            first += word(bytes, i) + second;
            second += word(bytes, i + 4) + first;
        }
    }
    [[nodiscard]] bool stands(std::string_view bytes, std::size_t offset) const {
        return bigEndian(bytes, offset) == first && bigEndian(bytes, offset + 4) == second;
    }

 private:
    [[nodiscard]] std::uint32_t word(std::string_view bytes, std::size_t offset) const {
        const std::uint32_t value = bigEndian(bytes, offset);
        return isBigEndian ? value : __builtin_bswap32(value);
    }
};

class FrameReader {
 public:
    explicit FrameReader(std::string_view log) : log_(log) {}

    LogFrames read() {
        if (log_.size() < logHead || (bigEndian(log_, 0) & ~1U) != 0x377f0682) return {};
        checksum_.isBigEndian = (bigEndian(log_, 0) & 1U) != 0;
        checksum_.add(log_.substr(0, 24));
        const std::size_t pageSize = bigEndian(log_, 8);
        if (!checksum_.stands(log_, 24) || !isPageSize(pageSize)) return {};
        frames_.pageSize = pageSize;
        std::size_t frame = logHead;
        while (isOfThisLog(frame) && take(frame)) frame += frameHead + pageSize;
        countLostCommits(frame);
        return std::move(frames_);
    }

 private:
    /// A log is begun anew over its old content, whose frames have other salts.
    [[nodiscard]] bool isOfThisLog(std::size_t frame) const {
        return frame + frameHead + frames_.pageSize <= log_.size() &&
               log_.substr(frame + 8, 8) == log_.substr(16, 8);
    }

    bool take(std::size_t frame) {
        checksum_.add(log_.substr(frame, 8));
        checksum_.add(log_.substr(frame + frameHead, frames_.pageSize));
        if (!checksum_.stands(log_, frame + 16)) return false;
        pending_.emplace_back(bigEndian(log_, frame), frame + frameHead);
        const std::size_t pagesAfterCommit = bigEndian(log_, frame + 4);
        if (pagesAfterCommit == 0) return true;
        frames_.pageCount = pagesAfterCommit;
        for (const auto& [page, place] : pending_) frames_.pages[page] = place;
        pending_.clear();
        return true;
    }

    void countLostCommits(std::size_t frame) {
        std::size_t commits = 0;
        for (; isOfThisLog(frame); frame += frameHead + frames_.pageSize) {
            if (bigEndian(log_, frame + 4) != 0) ++commits;
        }
        frames_.lostCommits = commits > 1 ? commits : 0;
    }

    std::string_view log_;
    Checksum checksum_{false};
    LogFrames frames_;
    std::vector<std::pair<std::uint32_t, std::size_t>> pending_;  ///< since the last commit
};

}  // namespace

LogFrames readLogFrames(std::string_view log) {
    return FrameReader(log).read();
}

}  // namespace elmworth::sqlite

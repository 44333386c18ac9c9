// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/GatheredInput.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <string>
#include <thread>

#include "command/CommandError.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

std::string rest(int descriptor) {
    std::string text;
    std::array<char, 4096> part{};
    ssize_t count = 0;
    while ((count = ::read(descriptor, part.data(), part.size())) > 0)
        text.append(part.data(), static_cast<std::size_t>(count));
    return text;
}

/// A pipe into which a thread writes `text`.
class SlowWriter {
 public:
    explicit SlowWriter(std::string text, int flags = 0) {
        EXPECT_EQ(::pipe2(ends_.data(), flags), 0);
        writer_ = std::thread([this, text = std::move(text)] {
            for (const char letter : text) {
                while (::write(ends_[1], &letter, 1) != 1) std::this_thread::yield();
            }
            ::close(ends_[1]);
        });
    }
    SlowWriter(const SlowWriter&) = delete;
    SlowWriter& operator=(const SlowWriter&) = delete;
    ~SlowWriter() {
        writer_.join();
        ::close(ends_[0]);
    }
    [[nodiscard]] int descriptor() const { return ends_[0]; }

 private:
    std::array<int, 2> ends_{};
    std::thread writer_;
};

TEST(GatheredInput, isEmptyAtFirst) {
    EXPECT_EQ(rest(GatheredInput().descriptor()), "");
}

TEST(GatheredInput, holdsAllOfAPipeFromItsBeginning) {
    const std::string text(20'000, 'x');
    const SlowWriter writer(text);
    GatheredInput input;
    input.gather(writer.descriptor());
    EXPECT_EQ(rest(input.descriptor()), text);
}

TEST(GatheredInput, waitsForAPipeThatDoesNotBlock) {
    const SlowWriter writer("slowly", O_NONBLOCK);
    GatheredInput input;
    input.gather(writer.descriptor());
    EXPECT_EQ(rest(input.descriptor()), "slowly");
}

TEST(GatheredInput, isARegularFileItself) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "time.csv";
    std::ofstream(file) << "Client,Project";
    const int source = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    GatheredInput input;
    input.gather(source);
    ::close(source);
    EXPECT_EQ(rest(input.descriptor()), "Client,Project");
}

TEST(GatheredInput, ofAClosedStreamIsRefusedInOneSentence) {
    GatheredInput input;
    try {
        input.gather(-1);
        FAIL();
    } catch (const CommandError& error) {
        EXPECT_STREQ(error.what(), "standard input: Bad file descriptor");
    }
}

}  // namespace
}  // namespace elmworth

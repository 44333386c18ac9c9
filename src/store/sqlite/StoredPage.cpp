// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/StoredPage.h"

#include <algorithm>

#include "store/sqlite/LogFrames.h"

namespace elmworth::sqlite {

namespace {

constexpr std::size_t branchHead = 12;
constexpr std::size_t leafHead = 8;

/// Reads numbers of SQLite's variable length, up to the end of the bytes.
class VarintReader {
 public:
    VarintReader(std::string_view bytes, std::size_t place) : bytes_(bytes), place_(place) {}

    std::optional<std::uint64_t> next() {
        std::uint64_t value = 0;
        for (int i = 0; i < 9; ++i) {
            if (place_ >= bytes_.size()) return std::nullopt;
            const auto byte = static_cast<unsigned char>(bytes_[place_++]);
            if (i == 8) return (value << 8) | byte;
            value = (value << 7) | (byte & 0x7FU);
            if (byte < 0x80) return value;
        }
        return value;
    }
    [[nodiscard]] std::size_t place() const noexcept { return place_; }

 private:
    std::string_view bytes_;
    std::size_t place_;
};

std::int64_t signedNumber(std::string_view bytes) {
    std::uint64_t value =
        (static_cast<unsigned char>(bytes[0]) & 0x80U) != 0 ? ~std::uint64_t{0} : 0;
    for (const char byte : bytes) value = (value << 8) | static_cast<unsigned char>(byte);
    return static_cast<std::int64_t>(value);
}

std::optional<std::size_t> sizeOfType(std::uint64_t type) {
    constexpr std::size_t sizes[] = {0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
    if (type < std::size(sizes)) return sizes[type];
    if (type < 12) return std::nullopt;  // never stored
    return static_cast<std::size_t>((type - 12) / 2);
}

StoredColumn columnOf(std::uint64_t type, std::string_view bytes) {
    using enum StoredColumn::Kind;
    if (type == 0) return {null, 0, {}};
    if (type == 7) return {real, 0, bytes};
    if (type == 8 || type == 9) return {integer, static_cast<std::int64_t>(type - 8), {}};
    if (type < 7) return {integer, signedNumber(bytes), {}};
    return {type % 2 == 0 ? blob : text, 0, bytes};
}

/// A row fills its bytes to the last.
bool splitColumns(std::string_view row, std::vector<StoredColumn>& columns) {
    columns.clear();
    VarintReader types(row, 0);
    const auto headEnd = types.next();
    if (!headEnd || *headEnd > row.size()) return false;
    std::size_t place = *headEnd;
    while (types.place() < *headEnd) {
        const auto type = types.next();
        const auto size = type ? sizeOfType(*type) : std::nullopt;
        if (!size || *size > row.size() - place) return false;
        columns.push_back(columnOf(*type, row.substr(place, *size)));
        place += *size;
    }
    return types.place() == *headEnd && place == row.size() && !columns.empty();
}

}  // namespace

StoredPage::StoredPage(const LibraryImage& image, std::uint32_t number)
    : image_(image), bytes_(image.page(number)) {
    if (bytes_.size() < image.pageSize()) return;
    const auto type = static_cast<unsigned char>(bytes_[0]);
    if (type == 5 || type == 13 || number == 1) kind_ = Kind::schema;
    if (number == 1 || (type != 2 && type != 10)) return;
    const std::size_t head = type == 2 ? branchHead : leafHead;
    const std::size_t count = bigEndian(bytes_, 1) & 0xFFFF;
    if (head + 2 * count + 2 > bytes_.size()) return;  // a page without room
    kind_ = type == 2 ? Kind::branch : Kind::leaf;
    rowCount_ = count;
}

std::optional<std::size_t> StoredPage::rowPlace(std::size_t index) const {
    const std::size_t head = kind_ == Kind::branch ? branchHead : leafHead;
    const std::size_t pointer = head + 2 * index;
    // As the first half of four bytes, which a page has behind its list of rows.
    const std::size_t place = bigEndian(bytes_, pointer) >> 16;
    if (place < head + 2 * rowCount_ || place + 4 > bytes_.size()) return std::nullopt;
    return place;
}

std::optional<std::vector<std::uint32_t>> StoredPage::children() const {
    std::vector<std::uint32_t> pages{bigEndian(bytes_, 8)};
    for (std::size_t i = 0; i < rowCount_; ++i) {
        const auto place = rowPlace(i);
        if (!place) return std::nullopt;
        pages.push_back(bigEndian(bytes_, *place));
    }
    return pages;
}

/// As much of a row of `size` bytes as does not go on to other pages.
std::size_t StoredPage::bytesOnThisPage(std::size_t size) const {
    const std::size_t usable = bytes_.size();
    const std::size_t most = (usable - 12) * 64 / 255 - 23;
    const std::size_t least = (usable - 12) * 32 / 255 - 23;
    if (size <= most) return size;
    const std::size_t wanted = least + (size - least) % (usable - 4);
    return wanted <= most ? wanted : least;
}

bool StoredPage::readRow(std::size_t index, std::vector<StoredColumn>& columns,
                         std::unordered_set<std::uint32_t>& overflow) {
    const auto place = rowPlace(index);
    if (!place) return false;
    VarintReader head(bytes_, *place + (kind_ == Kind::branch ? 4 : 0));
    const auto size = head.next();
    // No row is larger than the library.
    if (!size || *size > image_.pageCount() * image_.pageSize()) return false;
    const std::size_t here = bytesOnThisPage(*size);
    if (head.place() + here > bytes_.size()) return false;
    if (here == *size) return splitColumns(bytes_.substr(head.place(), here), columns);
    return gather(*size, head.place(), overflow) && splitColumns(gathered_, columns);
}

bool StoredPage::gather(std::size_t size, std::size_t place,
                        std::unordered_set<std::uint32_t>& overflow) {
    const std::size_t here = bytesOnThisPage(size);
    if (place + here + 4 > bytes_.size()) return false;
    gathered_.assign(bytes_.substr(place, here));
    std::uint32_t next = bigEndian(bytes_, place + here);
    std::unordered_set<std::uint32_t> pages;
    while (gathered_.size() < size) {
        const auto page = image_.page(next);
        if (page.size() < image_.pageSize() || next == 1 || !pages.insert(next).second)
            return false;
        gathered_ += page.substr(4, std::min(page.size() - 4, size - gathered_.size()));
        next = bigEndian(page, 0);
    }
    overflow.merge(pages);
    return next == 0;
}

}  // namespace elmworth::sqlite

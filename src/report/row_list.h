// A list that only grows, in blocks: a row costs no allocation of its own, and stays where it is.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <memory>
#include <type_traits>
#include <vector>

namespace tradebill {

/// Rows in the order of adding. Their addresses are valid until Clear.
///
/// A row is filled in its place: NewRow gives a cleared one behind the last, which joins the list with KeepRow. One
/// that isn't wanted after all, as when filling it throws, needs nothing: the next NewRow gives it again.
template <class Record>
class CRowList {
    static_assert(std::is_trivial_v<Record>, "rows are cleared as bytes and freed without more ado");

public:
    CRowList() = default;
    CRowList(const CRowList&) = delete;
    CRowList& operator=(const CRowList&) = delete;

    /// Goes through the rows by reference. Those that are added later may be reached or not.
    template <class Row>
    class CIterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = Record;
        using difference_type = std::ptrdiff_t;
        using pointer = Row*;
        using reference = Row&;

        CIterator() = default;

        reference operator*() const { return *at_; }
        pointer operator->() const { return at_; }
        CIterator& operator++() {
            ++index_;
            if (++at_ == blockEnd_) Enter();
            return *this;
        }
        CIterator operator++(int) {
            CIterator former = *this;
            ++*this;
            return former;
        }
        bool operator==(const CIterator& other) const { return index_ == other.index_; }

    private:
        friend class CRowList;
        CIterator(const CRowList& list, std::size_t index) : list_(&list), index_(index) { Enter(); }

        /// Finds the block of `index_`, which may be the one behind the last row.
        void Enter() {
            if (index_ >= list_->size_) return;
            const Place place = PlaceOf(index_);
            at_ = list_->blocks_[place.block].get() + place.row;
            blockEnd_ = list_->blocks_[place.block].get() + RowsOfBlock(place.block);
        }

        const CRowList* list_ = nullptr;
        std::size_t index_ = 0;
        Row* at_ = nullptr;
        Row* blockEnd_ = nullptr;
    };

    // Named as the standard library's lists are, whose place it takes.
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    [[nodiscard]] auto begin() { return CIterator<Record>(*this, 0); }
    [[nodiscard]] auto end() { return CIterator<Record>(*this, size_); }
    [[nodiscard]] auto begin() const { return CIterator<const Record>(*this, 0); }
    [[nodiscard]] auto end() const { return CIterator<const Record>(*this, size_); }

    // REQUIRES, of the following four: there is such a row.
    [[nodiscard]] Record& operator[](std::size_t index) { return *At(index); }
    [[nodiscard]] const Record& operator[](std::size_t index) const { return *At(index); }
    [[nodiscard]] const Record& front() const { return *At(0); }
    [[nodiscard]] const Record& back() const { return *At(size_ - 1); }

    /// The row behind the last one, all bytes 0.
    [[nodiscard]] Record& NewRow() {
        if (next_ == blockEnd_) AddBlock();
        std::memset(next_, 0, sizeof(Record));
        return *next_;
    }

    /// REQUIRES: NewRow was called since the last KeepRow.
    void KeepRow() {
        ++next_;
        ++size_;
    }

    /// Frees all rows.
    void Clear() {
        blocks_.clear();
        next_ = blockEnd_ = nullptr;
        size_ = 0;
    }

private:
    // Blocks double from the first one, which is small since most accounts are, up to the largest.
    static constexpr std::size_t kFirstBlockBytes = std::size_t{16} << 10;
    static constexpr std::size_t kDoublings = 7;
    static constexpr std::size_t kFirstRows = std::max(kFirstBlockBytes / sizeof(Record), std::size_t{1});
    static constexpr std::size_t kLargestRows = kFirstRows << kDoublings;
    static constexpr std::size_t kDoublingRows = kLargestRows - kFirstRows;  ///< in all blocks before the largest

    struct Place {
        std::size_t block;
        std::size_t row;  ///< of the block
    };

    static constexpr std::size_t RowsOfBlock(std::size_t block) { return kFirstRows << std::min(block, kDoublings); }

    static constexpr Place PlaceOf(std::size_t index) {
        if (index >= kDoublingRows) {
            const std::size_t behind = index - kDoublingRows;
            return {kDoublings + behind / kLargestRows, behind % kLargestRows};
        }
        const auto block = static_cast<std::size_t>(std::bit_width(index / kFirstRows + 1)) - 1;
        return {block, index - kFirstRows * ((std::size_t{1} << block) - 1)};
    }

    [[nodiscard]] Record* At(std::size_t index) const {
        const Place place = PlaceOf(index);
        return blocks_[place.block].get() + place.row;
    }

    /// Its memory isn't touched before its rows are made.
    void AddBlock() {
        const std::size_t rows = RowsOfBlock(blocks_.size());
        blocks_.push_back(std::make_unique_for_overwrite<Record[]>(rows));
        next_ = blocks_.back().get();
        blockEnd_ = next_ + rows;
    }

    std::vector<std::unique_ptr<Record[]>> blocks_;
    Record* next_ = nullptr;
    Record* blockEnd_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace tradebill

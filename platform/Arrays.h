#pragma once

#include <cstdlib>
#include <new>
#include <vector>

#include "platform/Fault.h"
#include "platform/Int16.h"

/// Memory that is zero from the start, as the system hands it out: what nothing is written to costs nothing.
template <typename Element>
struct ZeroedMemory {
    using value_type = Element;

    // NOLINTBEGIN(cppcoreguidelines-no-malloc): only these functions know which memory is zero already
    Element* allocate(std::size_t count) {
        if (void* memory = std::calloc(count, sizeof(Element))) {
            return static_cast<Element*>(memory);
        }
        throw std::bad_alloc();
    }
    void deallocate(Element* elements, std::size_t) { std::free(elements); }
    // NOLINTEND(cppcoreguidelines-no-malloc)

    void construct(Element*) {}  // an element without a value is there already

    bool operator==(const ZeroedMemory&) const = default;
};

/// A grid of tile numbers, addressed (column, row) from 0, row 0 at the top. It is made and remade as a whole.
class TileMap {
public:
    /// A map without any cell: each access is fault 9.
    TileMap() = default;

    /// All cells 0, for columns 0 to `lastColumn` and rows 0 to `lastRow`. Fault 9 if one of them is negative,
    /// fault 7 if there is no room for so many.
    TileMap(int lastColumn, int lastRow)
        : columns_(SizeUpTo(lastColumn)), rows_(SizeUpTo(lastRow)), cells_(WithMemoryFaults([&] {
              return Cells(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_));
          })) {}

    /// Fault 9 outside the map.
    [[nodiscard]] Int16& operator()(int column, int row) { return cells_[Index(column, row)]; }
    [[nodiscard]] const Int16& operator()(int column, int row) const { return cells_[Index(column, row)]; }

    [[nodiscard]] int Columns() const { return columns_; }
    [[nodiscard]] int Rows() const { return rows_; }

    bool operator==(const TileMap&) const = default;

private:
    using Cells = std::vector<Int16, ZeroedMemory<Int16>>;

    static int SizeUpTo(int last) {
        if (last < 0) {
            throw Fault(FaultNumber::SubscriptOutOfRange);
        }
        return last + 1;
    }

    [[nodiscard]] std::size_t Index(int column, int row) const {
        if (column < 0 || column >= columns_ || row < 0 || row >= rows_) {
            throw Fault(FaultNumber::SubscriptOutOfRange);
        }
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column);
    }

    int columns_ = 0;
    int rows_ = 0;
    Cells cells_;
};

/// A list whose entries count from 1. Element 0 exists and is never an entry.
template <typename Entry>
class EntryList {
public:
    /// The entry at `index`, from 0 to the last one. Fault 9 outside.
    [[nodiscard]] Entry& operator[](int index) { return entries_[Checked(index)]; }
    [[nodiscard]] const Entry& operator[](int index) const { return entries_[Checked(index)]; }

    /// Grows or shrinks the list to end at `last`; what stays keeps its contents, what is added is new.
    /// Fault 9 if `last` is negative.
    void Resize(int last) {
        if (last < 0) {
            throw Fault(FaultNumber::SubscriptOutOfRange);
        }
        entries_.resize(static_cast<std::size_t>(last) + 1);
    }

    [[nodiscard]] int Last() const { return static_cast<int>(entries_.size()) - 1; }

    bool operator==(const EntryList&) const = default;

private:
    [[nodiscard]] std::size_t Checked(int index) const {
        if (index < 0 || index > Last()) {
            throw Fault(FaultNumber::SubscriptOutOfRange);
        }
        return static_cast<std::size_t>(index);
    }

    std::vector<Entry> entries_ = std::vector<Entry>(1);
};

#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/errors.h"

namespace quillon {

/// A growable array with the growth rule that all feature arrays share: when the capacity is exceeded it grows by
/// an eighth of the element count, held between 4 and 1024 elements, or to the requested size if that is larger.
/// New elements are value-initialised (zero for plain records). Size 0 frees the storage.
///
/// Sizes and indexes are signed; a negative size or an index out of range raises InvalidArgument.
///
/// Readers of large files don't append one element at a time, since the capped step would make that quadratic: they
/// fill a vector and hand it over whole (`Adopt`), or tell the array beforehand what is coming (`Reserve`).
template <class T>
class CArray {
public:
    using Index = std::ptrdiff_t;

    Index GetSize() const { return static_cast<Index>(items.size()); }
    Index GetCount() const { return GetSize(); }
    Index GetUpperBound() const { return GetSize() - 1; }
    Index GetCapacity() const { return static_cast<Index>(items.capacity()); }
    bool IsEmpty() const { return items.empty(); }
    bool IsValidIndex(Index index) const { return index >= 0 && index < GetSize(); }

    void SetSize(Index size) {
        if (size < 0) throw InvalidArgument("negative array size");
        if (size == 0) {
            std::vector<T>().swap(items);
            return;
        }
        Grow(size);
        items.resize(static_cast<std::size_t>(size));
    }
    void RemoveAll() { SetSize(0); }

    /// Appends and returns the new element's index.
    Index Add(T item) {
        Grow(GetSize() + 1);
        items.push_back(std::move(item));
        return GetUpperBound();
    }
    void InsertAt(Index index, T item) {
        if (index < 0 || index > GetSize()) throw InvalidArgument("array index out of range");
        Grow(GetSize() + 1);
        items.insert(items.begin() + index, std::move(item));
    }
    void RemoveAt(Index index) { items.erase(items.begin() + Checked(index)); }

    T& operator[](Index index) { return items[static_cast<std::size_t>(Checked(index))]; }
    const T& operator[](Index index) const { return items[static_cast<std::size_t>(Checked(index))]; }
    T& ElementAt(Index index) { return (*this)[index]; }
    const T& GetAt(Index index) const { return (*this)[index]; }
    void SetAt(Index index, T item) { (*this)[index] = std::move(item); }

    T* GetData() { return items.data(); }
    const T* GetData() const { return items.data(); }
    auto begin() { return items.begin(); }
    auto end() { return items.end(); }
    auto begin() const { return items.begin(); }
    auto end() const { return items.end(); }

    /// Room for `capacity` elements in all, outside the growth rule.
    void Reserve(Index capacity) {
        if (capacity > 0) items.reserve(static_cast<std::size_t>(capacity));
    }
    /// Takes a filled vector over. Room to spare is given back if it is more than a sixteenth: that costs a copy.
    void Adopt(std::vector<T>&& filled) {
        items = std::move(filled);
        if (items.capacity() - items.size() > items.size() / 16) items.shrink_to_fit();
    }

private:
    static constexpr Index kSmallestStep = 4;
    static constexpr Index kLargestStep = 1024;

    Index Checked(Index index) const {
        if (!IsValidIndex(index)) throw InvalidArgument("array index out of range");
        return index;
    }
    void Grow(Index size) {
        if (size <= GetCapacity()) return;
        const Index step = std::clamp(GetSize() / 8, kSmallestStep, kLargestStep);
        items.reserve(static_cast<std::size_t>(std::max(GetCapacity() + step, size)));
    }

    std::vector<T> items;
};

}  // namespace quillon

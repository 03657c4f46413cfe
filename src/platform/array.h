#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/array_stamp.h"
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
///
/// Whoever works something out from the elements keeps it until `GetStamp` is another. `Share` lends the elements
/// without a copy: the array makes a copy of its own before its next change. Every access through an array that isn't
/// const counts as a change, so what only reads takes a const one. A reference or iterator is good until the next
/// `GetStamp`, `Share` or change.
template <class T>
class CArray {
public:
    using Index = std::ptrdiff_t;

    Index GetSize() const { return static_cast<Index>(Items().size()); }
    Index GetCount() const { return GetSize(); }
    Index GetUpperBound() const { return GetSize() - 1; }
    Index GetCapacity() const { return static_cast<Index>(Items().capacity()); }
    bool IsEmpty() const { return Items().empty(); }
    bool IsValidIndex(Index index) const { return index >= 0 && index < GetSize(); }

    /// Arrays of one stamp have equal elements. Never 0.
    std::uint64_t GetStamp() const { return stamp.Get(); }
    /// The elements as they stand. They stay so, also when the array changes or goes.
    std::shared_ptr<const std::vector<T>> Share() const {
        static_assert(std::is_copy_constructible_v<T>);
        stamp.Get();
        if (!lent) lent = std::make_shared<const std::vector<T>>(std::move(items));
        return lent;
    }

    void SetSize(Index size) {
        if (size < 0) throw InvalidArgument("negative array size");
        if (size == 0) {
            Forget();
            return;
        }
        Grow(size);
        Own().resize(static_cast<std::size_t>(size));
    }
    void RemoveAll() { SetSize(0); }

    /// Appends and returns the new element's index.
    Index Add(T item) {
        Grow(GetSize() + 1);
        Own().push_back(std::move(item));
        return GetUpperBound();
    }
    void InsertAt(Index index, T item) {
        if (index < 0 || index > GetSize()) throw InvalidArgument("array index out of range");
        Grow(GetSize() + 1);
        std::vector<T>& own = Own();
        own.insert(own.begin() + index, std::move(item));
    }
    void RemoveAt(Index index) {
        Checked(index);
        std::vector<T>& own = Own();
        own.erase(own.begin() + index);
    }

    T& operator[](Index index) {
        Checked(index);
        return Own()[static_cast<std::size_t>(index)];
    }
    const T& operator[](Index index) const { return Items()[static_cast<std::size_t>(Checked(index))]; }
    T& ElementAt(Index index) { return (*this)[index]; }
    const T& GetAt(Index index) const { return (*this)[index]; }
    void SetAt(Index index, T item) { (*this)[index] = std::move(item); }

    T* GetData() { return Own().data(); }
    const T* GetData() const { return Items().data(); }
    auto begin() { return Own().begin(); }
    auto end() { return Own().end(); }
    auto begin() const { return Items().begin(); }
    auto end() const { return Items().end(); }

    /// Room for `capacity` elements in all, outside the growth rule.
    void Reserve(Index capacity) {
        if (capacity > 0) Own().reserve(static_cast<std::size_t>(capacity));
    }
    /// Takes a filled vector over. Room to spare is given back if it is more than a sixteenth: that costs a copy.
    void Adopt(std::vector<T>&& filled) {
        Forget();
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
        Own().reserve(static_cast<std::size_t>(std::max(GetCapacity() + step, size)));
    }

    const std::vector<T>& Items() const { return lent ? *lent : items; }
    /// The elements, to be changed.
    std::vector<T>& Own() {
        stamp.Renew();
        if constexpr (std::is_copy_constructible_v<T>) {
            if (lent) [[unlikely]] {
                items = *lent;
                lent.reset();
            }
        }
        return items;
    }
    void Forget() {
        stamp.Renew();
        lent.reset();
        std::vector<T>().swap(items);
    }

    mutable std::vector<T> items;  ///< empty while they are lent
    mutable std::shared_ptr<const std::vector<T>> lent;
    ArrayStamp stamp;
};

}  // namespace quillon

#include "platform/array.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <numeric>
#include <vector>

namespace quillon {
namespace {

struct tagSample {
    double x;
    int number;
    friend bool operator==(const tagSample&, const tagSample&) = default;
};

using Array = CArray<int>;

TEST(CArray, GrowsByAnEighthBetween4And1024) {
    Array array;
    Array::Index capacity = 0;
    std::vector<Array::Index> steps;
    for (int i = 0; i < 20000; ++i) {
        const Array::Index before = array.GetSize();
        ASSERT_EQ(array.Add(i), i);
        if (array.GetCapacity() == capacity) continue;
        const Array::Index expected = std::min<Array::Index>(1024, std::max<Array::Index>(4, before / 8));
        ASSERT_EQ(array.GetCapacity(), capacity + expected) << "at " << before;
        capacity = array.GetCapacity();
        steps.push_back(expected);
    }
    EXPECT_EQ((std::vector<Array::Index>(steps.begin(), steps.begin() + 12)),
              (std::vector<Array::Index>{4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 5, 5}));
    EXPECT_EQ(steps.back(), 1024);
    for (int i = 0; i < 20000; ++i) ASSERT_EQ(array[i], i);
}

TEST(CArray, ZeroFillsNewElements) {
    CArray<tagSample> array;
    array.SetSize(2);
    array[1] = {3.5, 4};
    array.SetSize(1);
    array.SetSize(40);
    for (const tagSample& sample : array) EXPECT_EQ(sample, (tagSample{0.0, 0}));
}

TEST(CArray, InsertsAndRemoves) {
    Array array;
    for (const int n : {1, 2, 3}) array.Add(n);
    array.InsertAt(0, 0);
    array.InsertAt(4, 4);
    array.RemoveAt(1);
    EXPECT_EQ((std::vector<int>(array.begin(), array.end())), (std::vector<int>{0, 2, 3, 4}));
    array.SetAt(3, 9);
    array.ElementAt(0) = 8;
    EXPECT_EQ(array.GetAt(3) + array.GetAt(0), 17);
}

TEST(CArray, InsertsAnElementOfItsOwn) {
    Array array;
    for (int i = 0; i < 4; ++i) array.Add(i);
    ASSERT_EQ(array.GetCapacity(), 4);
    array.Add(array[3]);
    array.InsertAt(0, array[4]);
    EXPECT_EQ(array[5], 3);
    EXPECT_EQ(array[0], 3);
}

TEST(CArray, RaisesOnWrongIndexes) {
    Array array;
    array.SetSize(2);
    const Array& constant = array;
    for (const Array::Index index : {Array::Index{-1}, Array::Index{2}, Array::Index{1} << 40}) {
        EXPECT_FALSE(array.IsValidIndex(index));
        EXPECT_THROW(array[index], InvalidArgument);
        EXPECT_THROW(constant[index], InvalidArgument);
        EXPECT_THROW(array.GetAt(index), InvalidArgument);
        EXPECT_THROW(array.SetAt(index, 1), InvalidArgument);
        EXPECT_THROW(array.RemoveAt(index), InvalidArgument);
    }
    EXPECT_THROW(array.InsertAt(-1, 0), InvalidArgument);
    EXPECT_THROW(array.InsertAt(3, 0), InvalidArgument);
    EXPECT_THROW(array.SetSize(-1), InvalidArgument);
    EXPECT_EQ(array.GetSize(), 2);
}

TEST(CArray, AdoptsAFilledVector) {
    std::vector<int> tight(1000);
    std::iota(tight.begin(), tight.end(), 0);
    const int* const storage = tight.data();
    Array array;
    array.Adopt(std::move(tight));
    EXPECT_EQ(array.GetData(), storage) << "not copied";
    EXPECT_EQ(array[999], 999);

    std::vector<int> roomy(1000, 5);
    roomy.reserve(4000);
    array.Adopt(std::move(roomy));
    EXPECT_EQ(array.GetCapacity(), 1000);
    EXPECT_EQ(array.GetSize(), 1000);
    array.Adopt({});
    EXPECT_EQ(array.GetCapacity(), 0);
}

TEST(CArray, EveryWayToChangeItGivesAnotherStampAndLeavesWhatWasLent) {
    const std::vector<std::function<void(Array&)>> changes = {
        [](Array& a) { a.SetSize(2); },       [](Array& a) { a.SetSize(0); },     [](Array& a) { a.Add(4); },
        [](Array& a) { a.InsertAt(1, 4); },   [](Array& a) { a.RemoveAt(0); },    [](Array& a) { a[1] = 4; },
        [](Array& a) { a.SetAt(2, 4); },      [](Array& a) { *a.GetData() = 4; }, [](Array& a) { *a.begin() = 4; },
        [](Array& a) { *(a.end() - 1) = 4; }, [](Array& a) { a.Adopt({4, 4}); },  [](Array& a) { a.ElementAt(0) = 4; },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        Array array;
        array.Adopt({1, 2, 3});
        const Array& readOnly = array;
        const std::uint64_t stamp = array.GetStamp();
        const auto lent = array.Share();
        const Array copy = array;
        EXPECT_EQ(readOnly[1] + *readOnly.begin() + readOnly.GetSize(), 6);
        EXPECT_EQ(array.GetStamp(), stamp) << "reading changes nothing";
        EXPECT_EQ(copy.GetStamp(), stamp);
        EXPECT_EQ(array.Share(), lent) << "one and the same";
        changes[i](array);
        EXPECT_NE(array.GetStamp(), stamp) << i;
        EXPECT_NE(array.Share(), lent) << i;
        EXPECT_EQ(*lent, (std::vector<int>{1, 2, 3})) << i;
        EXPECT_EQ(copy.GetAt(1), 2) << i;
        EXPECT_NE(*array.Share(), *lent) << i;
    }
    Array from;
    from.Adopt({1});
    const std::uint64_t stamp = from.GetStamp();
    const Array to = std::move(from);
    EXPECT_EQ(to.GetStamp(), stamp);
    EXPECT_NE(from.GetStamp(), stamp) << "NOLINT: it holds nothing now";
}

}  // namespace
}  // namespace quillon

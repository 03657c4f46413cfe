#include "scene/item_maker.h"

#include <gtest/gtest.h>

#include <latch>
#include <memory>

namespace quillon {
namespace {

std::shared_ptr<const void> Number(int value) {
    return std::make_shared<const int>(value);
}

std::vector<int> NumbersOf(const std::vector<ItemMaker::Made>& made) {
    std::vector<int> numbers;
    for (const ItemMaker::Made& one : made) numbers.push_back(*static_cast<const int*>(one.data.get()));
    return numbers;
}

TEST(ItemMaker, MakesInTurnAndTellsOfEach) {
    std::atomic<int> told = 0;
    {
        ItemMaker maker([&] { ++told; });
        std::vector<std::uint64_t> tickets;
        for (int i = 0; i < 5; ++i) tickets.push_back(maker.Ask([i](const ItemMaker::Stop&) { return Number(i); }));
        maker.Wait();
        const std::vector<ItemMaker::Made> made = maker.Take();
        EXPECT_EQ(NumbersOf(made), (std::vector<int>{0, 1, 2, 3, 4}));
        for (std::size_t i = 0; i < made.size(); ++i) EXPECT_EQ(made[i].ticket, tickets[i]);
        EXPECT_TRUE(maker.Take().empty());
    }
    EXPECT_EQ(told, 5);
}

TEST(ItemMaker, WhatIsDroppedIsStoppedAndNeverTaken) {
    ItemMaker maker([] {});
    std::latch started(1);
    const std::uint64_t running = maker.Ask([&](const ItemMaker::Stop& stop) {
        started.count_down();
        while (!stop) std::this_thread::yield();
        return Number(1);
    });
    const std::uint64_t waiting = maker.Ask([](const ItemMaker::Stop&) { return Number(2); });
    maker.Ask([](const ItemMaker::Stop& stop) { return Number(stop ? 4 : 3); });
    started.wait();
    maker.Drop(waiting);
    maker.Drop(running);
    maker.Wait();
    EXPECT_EQ(NumbersOf(maker.Take()), (std::vector<int>{3})) << "the next is not stopped with the one before";
    const std::uint64_t made = maker.Ask([](const ItemMaker::Stop&) { return Number(5); });
    maker.Wait();
    maker.Drop(made);
    EXPECT_TRUE(maker.Take().empty());
}

TEST(ItemMaker, StopsAtItsEnd) {
    std::latch started(1);
    std::atomic<bool> wasStopped = false, ranOn = false;
    {
        ItemMaker maker([] {});
        maker.Ask([&](const ItemMaker::Stop& stop) {
            started.count_down();
            while (!stop) std::this_thread::yield();
            wasStopped = true;
            return Number(1);
        });
        maker.Ask([&](const ItemMaker::Stop&) {
            ranOn = true;
            return Number(2);
        });
        started.wait();
    }
    EXPECT_TRUE(wasStopped);
    EXPECT_FALSE(ranOn);
}

}  // namespace
}  // namespace quillon

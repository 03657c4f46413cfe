#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace quillon {

/// Makes things on a thread of its own, one after another, so that nobody waits for them: the data of items, pictures.
/// All calls come from one thread, that of the user interface.
class ItemMaker {
public:
    /// True: nobody wants any more what is being made.
    using Stop = std::atomic<bool>;
    /// Works only with what it owns. May give anything once it is stopped.
    using Make = std::function<std::shared_ptr<const void>(const Stop& stop)>;
    struct Made {
        std::uint64_t ticket = 0;
        std::shared_ptr<const void> data;
    };

    /// `whenReady` is called on the maker's thread each time that something can be taken.
    explicit ItemMaker(std::function<void()> whenReady);
    /// Stops what is being made and waits for its end.
    ~ItemMaker();
    ItemMaker(const ItemMaker&) = delete;
    ItemMaker& operator=(const ItemMaker&) = delete;

    /// Puts something at the end of the queue. The ticket is never 0 and never given twice.
    std::uint64_t Ask(Make make);
    /// Takes it from the queue, or stops it. It is not among what is taken from then on.
    void Drop(std::uint64_t ticket);
    /// Takes it from the queue if its turn hasn't come yet; true if so.
    bool Withdraw(std::uint64_t ticket);
    /// What has been made since the last call.
    std::vector<Made> Take();
    /// Waits until nothing is left to be made.
    void Wait();

private:
    struct Wanted {
        std::uint64_t ticket = 0;
        Make make;
    };
    void Run();

    const std::function<void()> ready;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Wanted> queue;  // guarded by `mutex`, as are the next three
    std::vector<Made> made;
    std::uint64_t current = 0;  // the ticket of what is being made; 0: none
    bool hasEnded = false;
    Stop stop = false;
    std::uint64_t lastTicket = 0;
    std::thread thread;  // last: it starts when all else is there
};

}  // namespace quillon

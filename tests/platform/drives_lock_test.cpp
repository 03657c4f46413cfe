#include "platform/drives_lock.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

#include "platform/child_process.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

/// A folder whose file system keeps its locks on each host to itself.
class FarLock : public DrivesLock {
public:
    using DrivesLock::DrivesLock;

protected:
    bool AreLocksCertain() const override { return false; }
};

std::string ThisHost() {
    std::array<char, 256> name{};
    ::gethostname(name.data(), name.size() - 1);
    return name.data();
}

TEST(DrivesLock, OneProgramAtATimeHoldsAFolder) {
    ScratchDrives drives;
    DrivesLock first(drives.Root(), "Workbench"), second(drives.Root(), "Tool");
    EXPECT_EQ(first.Look(), DRIVES_HOLD::FREE);
    ASSERT_TRUE(first.Take());
    for (const bool fromMaybe : {false, true}) {
        EXPECT_FALSE(second.Take(fromMaybe));
        ASSERT_TRUE(second.Holder());
        EXPECT_EQ(HolderText(*second.Holder()), Format("Workbench, process %d on %s", ::getpid(), ThisHost().c_str()));
        EXPECT_EQ(second.Look(), DRIVES_HOLD::HELD);
    }
    EXPECT_NEAR(static_cast<double>(second.Holder()->since), static_cast<double>(::time(nullptr)), 60);
    first.Release();
    EXPECT_EQ(second.Look(), DRIVES_HOLD::FREE);
    EXPECT_TRUE(second.Take());
    EXPECT_FALSE(first.Take());
}

TEST(DrivesLock, OfAKilledProgramIsStale) {
    ScratchDrives drives;
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    ChildProcess other([&] {
        DrivesLock lock(drives.Root(), "Other");
        if (::write(ready[1], lock.Take() ? "y" : "n", 1) != 1) return 1;
        for (;;) ::pause();
        return 0;
    });
    char taken = 'n';
    ASSERT_EQ(::read(ready[0], &taken, 1), 1);
    ASSERT_EQ(taken, 'y');
    DrivesLock lock(drives.Root(), "Mine");
    EXPECT_EQ(lock.Look(), DRIVES_HOLD::HELD);
    EXPECT_EQ(lock.Holder().value_or(DrivesHolder()).program, "Other");
    EXPECT_FALSE(lock.Take());
    other.Kill();
    EXPECT_EQ(lock.Look(), DRIVES_HOLD::FREE);
    EXPECT_TRUE(lock.Take());
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST(DrivesLock, OfAnotherHostIsTheOperatorsToJudge) {
    ScratchDrives drives;
    const std::filesystem::path file = drives.Root() / ".lock";
    const auto leave = [&](const std::string& words) { std::ofstream(file) << words; };
    leave("bridge\x07\n4711\nQuillon\n1790000000\n");
    FarLock lock(drives.Root(), "Mine");
    EXPECT_EQ(lock.Look(), DRIVES_HOLD::MAYBE_HELD);
    EXPECT_FALSE(lock.Take());
    EXPECT_EQ(HolderText(*lock.Holder()), "Quillon, process 4711 on bridge ");
    EXPECT_EQ(DrivesLock(drives.Root(), "Near").Look(), DRIVES_HOLD::FREE) << "no other host reaches this disk";
    EXPECT_TRUE(lock.Take(true));
    lock.Release();

    for (const std::string& words :
         {std::string(), ThisHost() + "\n1\nQuillon\n", std::string(9000, 'x'), std::string("\n\n\n")}) {
        leave(words);
        DrivesLock near(drives.Root(), "Mine");
        EXPECT_TRUE(near.Take()) << words.substr(0, 40);
    }
}

TEST(DrivesLock, SaysWhyItCantBeHad) {
    ScratchDrives drives;
    DrivesLock nowhere(drives.Root() / "none", "Mine");
    EXPECT_EQ(nowhere.Look(), DRIVES_HOLD::FREE);
    EXPECT_FALSE(nowhere.Take());
    EXPECT_EQ(nowhere.GetFault(), "there is no such file or folder");
    EXPECT_FALSE(nowhere.Holder());
}

}  // namespace
}  // namespace quillon

#include "platform/password.h"

#include <gtest/gtest.h>

#include "platform/headless.h"

namespace quillon {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using enum PASSWORD_ANSWER;

class Password : public ::testing::Test {
protected:
    std::string Kept() const { return profile.GetText("Password", "Hash", "(none)"); }

    MemoryProfile profile;
    ManualClock clock;
    PasswordLock lock{profile, clock};
};

TEST_F(Password, IsKeptAsASaltedHash) {
    EXPECT_FALSE(lock.IsPasswordPresent());
    EXPECT_EQ(lock.Check("anchor"), WRONG);
    ASSERT_TRUE(lock.Set("anchor"));
    EXPECT_TRUE(lock.IsPasswordPresent());
    EXPECT_EQ(lock.Check("anchor"), RIGHT);
    EXPECT_TRUE(Kept().starts_with("$y$"));
    EXPECT_EQ(Kept().find("anchor"), std::string::npos);
    const std::string first = Kept();
    ASSERT_TRUE(lock.Set("anchor"));
    EXPECT_NE(Kept(), first) << "salted anew";

    PasswordLock later(profile, clock);
    EXPECT_EQ(later.Check("anchor"), RIGHT) << "it outlives the run";
    later.Clear();
    EXPECT_FALSE(lock.IsPasswordPresent());
    EXPECT_EQ(lock.Check(""), WRONG);
}

TEST_F(Password, IsTakenByItsBytes) {
    ASSERT_TRUE(lock.Set("K\xE4lte 1"));
    for (const std::string_view other : {"K\xC3\xA4lte 1", "k\xE4lte 1", "K\xE4lte 1 "}) {
        EXPECT_EQ(lock.Check(other), WRONG);
        clock.Advance(seconds(600));
    }
    EXPECT_EQ(lock.Check(std::string_view("K\xE4lte 1\0x", 9)), WRONG);
    clock.Advance(seconds(600));
    EXPECT_EQ(lock.Check("K\xE4lte 1"), RIGHT);
}

TEST_F(Password, RefusesWhatItCannotKeepWhole) {
    ASSERT_TRUE(lock.Set(std::string(511, 'a')));
    EXPECT_EQ(lock.Check(std::string(511, 'a')), RIGHT);
    EXPECT_EQ(lock.Check(std::string(510, 'a')), WRONG);
    EXPECT_FALSE(lock.Set(""));
    EXPECT_FALSE(lock.Set(std::string(512, 'a')));
    EXPECT_FALSE(lock.Set(std::string_view("a\0b", 3)));
    EXPECT_EQ(lock.Check(std::string(511, 'a')), RIGHT) << "the old one stays";
}

TEST_F(Password, StaysLockedOnADamagedHash) {
    for (const char* damaged : {"x", "$y$", "$y$j9T$", "*0", "anchor", "$y$j9T$TXQuks5hNiVXc1SwzXc2Z0$"}) {
        profile.SetText("Password", "Hash", damaged);
        profile.SetInt("Password", "Wrong", 0);
        PasswordLock damagedLock(profile, clock);
        EXPECT_TRUE(damagedLock.IsPasswordPresent());
        EXPECT_EQ(damagedLock.Check("anchor"), WRONG) << damaged;
        EXPECT_EQ(damagedLock.Check(damaged), WRONG) << damaged;
    }
}

TEST_F(Password, SlowsGuessingDown) {
    ASSERT_TRUE(lock.Set("anchor"));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(lock.Check("x"), WRONG);
    for (const int wait : {2, 4, 8, 16, 32, 64, 128, 256, 300, 300}) {
        clock.Advance(seconds(wait) - milliseconds(1));
        EXPECT_EQ(lock.Check("anchor"), WAIT) << wait;
        EXPECT_EQ(lock.Check("x"), WAIT) << "doesn't count";
        clock.Advance(milliseconds(1));
        EXPECT_EQ(lock.Check("x"), WRONG) << wait;
    }
    clock.Advance(seconds(300));
    EXPECT_EQ(lock.Check("anchor"), RIGHT);
    EXPECT_EQ(lock.Check("x"), WRONG);
    EXPECT_EQ(lock.Check("x"), WRONG);
    EXPECT_EQ(lock.Check("anchor"), RIGHT) << "a right one starts the count anew";
}

TEST_F(Password, TheWaitOutlivesARestart) {
    ASSERT_TRUE(lock.Set("anchor"));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(lock.Check("x"), WRONG);
    clock.Advance(seconds(2));
    EXPECT_EQ(lock.Check("x"), WRONG);
    PasswordLock restarted(profile, clock);
    EXPECT_EQ(restarted.Check("anchor"), WAIT);
    EXPECT_EQ(restarted.Complaint(WAIT), "Too many wrong passwords. Wait for 4 s.");
    clock.Advance(seconds(4));
    EXPECT_EQ(restarted.Check("anchor"), RIGHT);
    EXPECT_EQ(PasswordLock(profile, clock).Check("anchor"), RIGHT);
}

TEST_F(Password, ForgetsTheWaitingWithTheOldPassword) {
    ASSERT_TRUE(lock.Set("anchor"));
    for (int i = 0; i < 3; ++i) lock.Check("x");
    ASSERT_EQ(lock.Check("anchor"), WAIT);
    ASSERT_TRUE(lock.Set("cable"));
    EXPECT_EQ(lock.Check("cable"), RIGHT);
}

}  // namespace
}  // namespace quillon

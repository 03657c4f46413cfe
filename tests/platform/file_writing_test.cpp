#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "platform/child_process.h"
#include "platform/file.h"
#include "platform/file_calls.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

const char* const kPath = "C:\\Job\\Wrecks.csv";

class FileWriting : public ::testing::Test {
protected:
    FileWriting() { drives.MakeFolder("C:\\Job"); }

    bool Save(std::string_view bytes, std::string_view path = kPath) {
        CStdioFile file(drives.Files());
        if (!file.OpenForWriting(path, FILE_MODE::BINARY)) return false;
        file.WriteString(bytes);
        return file.Commit();
    }
    fs::path Native(std::string_view path = kPath) { return drives.Files().Native(path); }
    std::string Read(std::string_view path = kPath) { return drives.Read(path); }
    mode_t ModeOf(std::string_view path = kPath) {
        struct stat status {};
        return ::stat(Native(path).c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }
    /// Names in the job's folder, so that nothing is left lying about unseen.
    std::set<std::string> Names() {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Native("C:\\Job"))) names.insert(entry.path().filename());
        return names;
    }
    /// Lets everybody at the folder of the test, so that a process without rights fails where it should.
    void OpenFolders() {
        ::chmod(drives.Root().c_str(), 0777);
        ::chmod(Native("C:\\").c_str(), 0777);
        ::chmod(Native("C:\\Job").c_str(), 0777);
    }

    ScratchDrives drives;
};

const std::set<std::string> kOnlyTheFile = {"Wrecks.csv"};

TEST_F(FileWriting, LeavesTheOldFileWithoutACommit) {
    Save("old");
    {
        CStdioFile dropped(drives.Files());
        ASSERT_TRUE(dropped.OpenForWriting(kPath));
        dropped.WriteString("new");
        EXPECT_EQ(Read(), "old") << "while writing";
    }
    CStdioFile file(drives.Files());
    ASSERT_TRUE(file.OpenForWriting(kPath));
    file.WriteString("new");
    file.Close();
    EXPECT_FALSE(file.Commit());
    ASSERT_TRUE(file.OpenForWriting(kPath));
    ASSERT_TRUE(file.OpenForReading(kPath)) << "reading in place of writing drops what was written";
    EXPECT_EQ(Read(), "old");
    EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(FileWriting, RefusesWhatCannotBeReplaced) {
    drives.MakeFolder("C:\\Job\\Folder");
    ASSERT_EQ(::mkfifo(Native("C:\\Job\\pipe").c_str(), 0600), 0);
    fs::create_symlink("circle", Native("C:\\Job\\circle"));
    // A device of the test's own, where the user may make one: a mistake must not cost the machine its /dev/null.
    ::mknod(Native("C:\\Job\\device").c_str(), S_IFCHR | 0666, makedev(1, 3));
    const bool device = fs::is_character_file(Native("C:\\Job\\device"));
    const std::set<std::string> names = Names();
    for (const std::string path : {"C:\\Job\\Folder", "C:\\Job\\Folder\\", "C:\\Job\\pipe", "C:\\Job\\circle",
                                   "C:\\Job\\device", "C:\\None\\a", "E:\\a", "", "C:\\", "C:\\Job\\pipe\\a"}) {
        if (path == "C:\\Job\\device" && !device) continue;
        EXPECT_FALSE(Save("x", path)) << path;
    }
    EXPECT_EQ(Names(), names);
    EXPECT_FALSE(fs::exists(".new~"));
}

/// Lets the `failing`th call fail (from 1), writes in small pieces, and notes the calls.
class FailingCalls : public FileCalls {
public:
    explicit FailingCalls(int call = 0, int error = 0) : failing(call), code(error) {}

    int Open(const char* path, int flags, mode_t mode) override {
        return Fails("open") ? -1 : FileCalls::Open(path, flags, mode);
    }
    int Lock(int fd) override { return Fails("lock") ? -1 : FileCalls::Lock(fd); }
    int Truncate(int fd) override { return Fails("truncate") ? -1 : FileCalls::Truncate(fd); }
    ssize_t Write(int fd, const void* bytes, std::size_t size) override {
        return Fails("write") ? -1 : FileCalls::Write(fd, bytes, std::min<std::size_t>(size, 1000));
    }
    int Sync(int fd) override { return Fails("sync") ? -1 : FileCalls::Sync(fd); }
    int Rename(const char* from, const char* to) override { return Fails("rename") ? -1 : FileCalls::Rename(from, to); }

    bool HasFailed() const { return count >= failing; }
    const std::string& Names() const { return names; }

private:
    bool Fails(const char* name) {
        names += (names.empty() ? "" : " ") + std::string(name);
        errno = code;
        return ++count == failing;
    }
    int failing;
    int code;
    int count = 0;
    std::string names;
};

TEST_F(FileWriting, TellsTheObserver) {
    struct Log : CommitObserver {
        void OnCommitted(const FileCommit& commit) override {
            entries.push_back(Format("%s: %s > ", commit.path.c_str(), commit.before.value_or("(none)").c_str()) +
                              std::string(commit.after));
        }
        void OnSaveFailed(const FailedSave& failed) override { entries.push_back(failed.path + ": " + failed.reason); }
        std::vector<std::string> entries;
    } log;
    drives.Files().SetCommitObserver(&log);
    Save("one");
    Save("two");
    CStdioFile dropped(drives.Files());
    ASSERT_TRUE(dropped.OpenForWriting(kPath));
    dropped.Close();
    Save("x", "C:\\None\\a");
    Save("x", "C:\\Job");
    ASSERT_TRUE(dropped.OpenForWriting(kPath));
    Save("x");
    dropped.Close();
    FailingCalls full(4, ENOSPC);
    drives.Files().SetCalls(full);
    Save("x");
    Save("");
    drives.Files().SetCommitObserver(nullptr);
    Save("three");
    EXPECT_EQ(log.entries,
              (std::vector<std::string>{"C:\\Job\\Wrecks.csv: (none) > one", "C:\\Job\\Wrecks.csv: one > two",
                                        "C:\\None\\a: there is no such file or folder", "C:\\Job: it is a folder",
                                        "C:\\Job\\Wrecks.csv: another program is writing it",
                                        "C:\\Job\\Wrecks.csv: the disk is full", "C:\\Job\\Wrecks.csv: two > "}));
}

// ---- Writers side by side ----

TEST_F(FileWriting, RefusesASecondWriterOfThisProcess) {
    CStdioFile first(drives.Files()), second(drives.Files());
    ASSERT_TRUE(first.OpenForWriting(kPath));
    EXPECT_FALSE(second.OpenForWriting("c:/Job/Wrecks.csv"));
    EXPECT_TRUE(second.OpenForWriting("C:\\Job\\other.csv")) << "another file";
    first.WriteString("first");
    ASSERT_TRUE(first.Commit());
    ASSERT_TRUE(second.OpenForWriting(kPath));
    EXPECT_FALSE(first.OpenForWriting(kPath));
    second.Close();
    EXPECT_TRUE(first.OpenForWriting(kPath));
    first.Close();
    EXPECT_EQ(Read(), "first");
    EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(FileWriting, RefusesASecondWriterOfAnotherProcessAndTakesOverFromAKilledOne) {
    Save("old");
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    ChildProcess writer([&] {
        CStdioFile file(drives.Files());
        const bool open = file.OpenForWriting(kPath);
        file.WriteString("half of the new f");
        if (::write(ready[1], open ? "y" : "n", 1) != 1) return 1;
        for (;;) ::pause();
        return 0;
    });
    char open = 'n';
    ASSERT_EQ(::read(ready[0], &open, 1), 1);
    ASSERT_EQ(open, 'y');
    EXPECT_FALSE(Save("mine"));
    writer.Kill();
    EXPECT_EQ(Read(), "old");
    EXPECT_EQ(Names().size(), 2u) << "the new file of the killed writer";
    EXPECT_TRUE(Save("mine"));
    EXPECT_EQ(Read(), "mine");
    EXPECT_EQ(Names(), kOnlyTheFile);
    ::close(ready[0]);
    ::close(ready[1]);

    CStdioFile held(drives.Files());
    ASSERT_TRUE(held.OpenForWriting(kPath));
    EXPECT_EQ(ChildProcess([&] { return Save("theirs") ? 1 : 0; }).Wait(), 0);
    held.Close();
    EXPECT_EQ(ChildProcess([&] { return Save("theirs") ? 0 : 1; }).Wait(), 0);
    EXPECT_EQ(Read(), "theirs");
}

/// A power cut or a kill leaves a new file behind: another user's must not stand in the way for good.
TEST_F(FileWriting, TakesOverWhatAKilledWriterOfAnotherUserLeft) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can stand for another user";
    OpenFolders();
    const std::string leftover = std::string(kPath) + ".new~";
    const auto leave = [&](mode_t mode, bool old) {
        drives.Write(leftover, "half of");
        ::chmod(Native(leftover).c_str(), mode);
        if (old) fs::last_write_time(Native(leftover), fs::file_time_type::clock::now() - std::chrono::minutes(2));
    };
    const auto saveAsNobody = [&](const char* bytes) { return AsNobody([&] { return Save(bytes) ? 0 : 1; }) == 0; };
    leave(0644, false);
    EXPECT_TRUE(saveAsNobody("over a readable one"));
    leave(0600, true);
    EXPECT_TRUE(saveAsNobody("over an old one")) << "unreadable, and no writer takes two minutes";
    EXPECT_EQ(Read(), "over an old one");
    EXPECT_EQ(Names(), kOnlyTheFile);

    leave(0600, false);
    EXPECT_FALSE(saveAsNobody("x")) << "it may be being written";
    leave(0644, true);
    ASSERT_EQ(::chmod(Native("C:\\Job").c_str(), 01777), 0);
    EXPECT_FALSE(saveAsNobody("x")) << "the folder doesn't allow it";
    ::chmod(Native("C:\\Job").c_str(), 0777);

    fs::remove(Native());
    CStdioFile living(drives.Files());
    ASSERT_TRUE(living.OpenForWriting(kPath));
    EXPECT_FALSE(saveAsNobody("x")) << "one that is being written";
    living.WriteString("mine");
    EXPECT_TRUE(living.Commit());
    EXPECT_EQ(Read(), "mine");
}

TEST_F(FileWriting, NeverNamesWhatAnotherWriterBegan) {
    CStdioFile first(drives.Files()), second(drives.Files());
    ASSERT_TRUE(first.OpenForWriting(kPath));
    fs::remove(Native(std::string(kPath) + ".new~"));
    ASSERT_TRUE(second.OpenForWriting(kPath));
    first.WriteString("first");
    EXPECT_FALSE(first.Commit());
    second.WriteString("second");
    EXPECT_TRUE(second.Commit());
    EXPECT_EQ(Read(), "second");
    EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(FileWriting, ClearsLeftoversAtAStart) {
    drives.Write("C:\\Job\\a.csv.new~", "half");
    drives.Write("C:\\Job\\Below\\b.csv.new~", "half");
    drives.MakeFolder("C:\\Job\\folder.new~");
    drives.Write("C:\\Job\\new~", "the user's own");
    CStdioFile living(drives.Files());
    ASSERT_TRUE(living.OpenForWriting(kPath));
    EXPECT_EQ(FileSystem(drives.Root(), "Quillon", FILE_ACCESS::READ_ONLY).ClearLeftovers("C:\\Job"), 0u);
    EXPECT_EQ(drives.Files().ClearLeftovers("C:\\Job"), 1u);
    EXPECT_EQ(drives.Files().ClearLeftovers("C:\\None"), 0u);
    EXPECT_TRUE(living.Commit());
    EXPECT_EQ(Names(), (std::set<std::string>{"Below", "folder.new~", "new~", "Wrecks.csv"}));
}

/// A file of a size of its own, from which its number can be told and any damage seen.
std::string Numbered(int number) {
    std::mt19937 random(static_cast<unsigned>(number));
    std::string bytes = Format("%d\n", number);
    for (std::size_t n = random() % 60000; n > 0; --n) bytes += static_cast<char>('a' + (random() & 15));
    return bytes + Format("\n%d", number);
}

bool IsNumbered(const std::string& bytes) {
    return bytes == Numbered(Atoi(bytes));
}

TEST_F(FileWriting, GivesReadersAWholeFileWhileWritersRace) {
    Save(Numbered(1));
    std::vector<std::unique_ptr<ChildProcess>> writers;
    for (int writer = 1; writer <= 3; ++writer) {
        writers.push_back(std::make_unique<ChildProcess>([&] {
            int saved = 0;
            // Each gets through at least once, however busy the machine is.
            for (int i = 0; i < 100 || saved == 0; ++i) saved += Save(Numbered(writer * 1000 + i % 100)) ? 1 : 0;
            return saved > 0 ? 0 : 1;
        }));
    }
    for (int i = 0; i < 200; ++i) {
        CStdioFile file(drives.Files());
        std::string bytes;
        ASSERT_TRUE(file.OpenForReading(kPath, FILE_MODE::BINARY));
        ASSERT_TRUE(file.ReadAll(bytes, 100000));
        ASSERT_TRUE(IsNumbered(bytes)) << bytes.size() << " bytes";
    }
    for (const auto& writer : writers) EXPECT_EQ(writer->Wait(), 0);
    EXPECT_TRUE(IsNumbered(Read()));
    EXPECT_EQ(Names(), kOnlyTheFile);
}

// ---- Nothing lost ----

TEST_F(FileWriting, LosesNothingWhenKilledAtAnyMoment) {
    std::mt19937 random(2601);
    int last = 1;
    int changes = 0;
    ASSERT_TRUE(Save(Numbered(last)));
    for (int round = 0; round < 60; ++round) {
        ChildProcess writer([&] {
            for (int number = last + 1;; ++number) {
                if (!Save(Numbered(number))) return 1;
            }
        });
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 30000));
        writer.Kill();
        const std::string bytes = Read();
        ASSERT_TRUE(IsNumbered(bytes)) << "round " << round << ": " << bytes.size() << " bytes";
        const int number = Atoi(bytes);
        ASSERT_GE(number, last);
        changes += number > last ? 1 : 0;
        last = number;
    }
    EXPECT_GT(changes, 0) << "no round got as far as a save";
    ASSERT_TRUE(Save("after"));
    EXPECT_EQ(Names(), kOnlyTheFile);
}

TEST_F(FileWriting, StandsWholeWhicheverStepFails) {
    const std::string fresh(4500, 'n');
    for (const int code : {EIO, ENOSPC, EDQUOT, ENOLCK}) {
        for (const std::string before : {"(none)", "old"}) {
            int step = 1;
            for (bool over = false; !over; ++step) {
                fs::remove(Native());
                if (before == "old") drives.Write(kPath, before);
                FailingCalls calls(step, code);
                drives.Files().SetCalls(calls);
                const bool saved = Save(fresh);
                over = !calls.HasFailed();
                EXPECT_TRUE(Read() == (saved ? fresh : before)) << "errno " << code << " at " << calls.Names();
                EXPECT_EQ(Names(), Read() == "(none)" ? std::set<std::string>() : kOnlyTheFile);
                EXPECT_TRUE(saved || !over);
                if (HasFailure()) return;
            }
            EXPECT_EQ(step, 13) << "a new step needs its place here";
        }
    }
}

TEST_F(FileWriting, IsOnTheDiskBeforeItTakesItsName) {
    FailingCalls calls;
    drives.Files().SetCalls(calls);
    ASSERT_TRUE(Save(std::string(2500, 'n')));
    EXPECT_EQ(calls.Names(), "open lock truncate write write write sync rename sync");
}

TEST_F(FileWriting, LeavesTheOldFileOnAFullDisk) {
    Save("old");
    const int result = ChildProcess([&] {
                           ::signal(SIGXFSZ, SIG_IGN);
                           const rlimit limit{4096, 4096};
                           if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 2;
                           if (Save(std::string(100000, 'n'))) return 3;
                           return Read() == "old" && Names() == kOnlyTheFile ? 0 : 4;
                       }).Wait();
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Read(), "old");
    EXPECT_EQ(Names(), kOnlyTheFile);
}

// ---- Rights and links ----

TEST_F(FileWriting, KeepsTheModeOfTheFile) {
    for (const mode_t mode : {0600u, 0640u, 0666u, 0755u}) {
        Save("old");
        ASSERT_EQ(::chmod(Native().c_str(), mode), 0);
        ASSERT_TRUE(Save("new"));
        EXPECT_EQ(ModeOf(), mode);
    }
    const mode_t mask = ::umask(027);
    Save("x", "C:\\Job\\fresh");
    ::umask(mask);
    EXPECT_EQ(ModeOf("C:\\Job\\fresh"), 0640u) << "a new file follows the mask of the user";
}

TEST_F(FileWriting, KeepsTheOwnerOfTheFile) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser writes files of others";
    Save("old");
    ASSERT_EQ(::chown(Native().c_str(), 1234, 2345), 0);
    ASSERT_EQ(::chmod(Native().c_str(), 0664), 0);
    ASSERT_TRUE(Save("new"));
    struct stat status {};
    ASSERT_EQ(::stat(Native().c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1234u);
    EXPECT_EQ(status.st_gid, 2345u);
    EXPECT_EQ(ModeOf(), 0664u);
}

TEST_F(FileWriting, WritesWhereALinkPoints) {
    drives.MakeFolder("C:\\Store");
    drives.Write("C:\\Store\\real.csv", "old");
    fs::create_symlink("../Store/real.csv", Native());
    fs::create_symlink(Native(), Native("C:\\Job\\second"));
    fs::create_symlink("../Store/missing.csv", Native("C:\\Job\\dangling"));
    const std::set<std::string> names = Names();
    ASSERT_TRUE(Save("new", "C:\\Job\\second"));
    EXPECT_EQ(Read("C:\\Store\\real.csv"), "new");
    ASSERT_TRUE(Save("made", "C:\\Job\\dangling"));
    EXPECT_EQ(Read("C:\\Store\\missing.csv"), "made");
    EXPECT_EQ(Names(), names);
    EXPECT_TRUE(fs::is_symlink(Native("C:\\Job\\second")));
    EXPECT_TRUE(fs::is_symlink(Native("C:\\Job\\dangling")));

    CStdioFile first(drives.Files()), second(drives.Files());
    ASSERT_TRUE(first.OpenForWriting(kPath));
    EXPECT_FALSE(second.OpenForWriting("C:\\Store\\real.csv")) << "the same file by another name";
}

TEST_F(FileWriting, FollowsNoLinkInTheNewFilesPlace) {
    drives.Write("C:\\precious", "precious");
    fs::create_symlink("../precious", Native(std::string(kPath) + ".new~"));
    EXPECT_FALSE(Save("new"));
    EXPECT_EQ(Read("C:\\precious"), "precious");
}

}  // namespace
}  // namespace quillon

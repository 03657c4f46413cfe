// What the operator does, undone and done again: files byte for byte, panes and messages.

#include "job/acts.h"

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

#include "host/job.h"
#include "panes/boundary_pane.h"
#include "panes/route_pane.h"
#include "panes/structure_pane.h"
#include "panes/waypoint_pane.h"
#include "platform/child_process.h"
#include "platform/file_calls.h"
#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/pane_driver.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using Files = std::map<std::string, std::string>;

/// Of the walk over all panes; of the long one, which takes some ten seconds and is run by hand.
constexpr std::size_t kWalkedActs = 200, kLongWalk = 2000;

/// Nothing is flushed, which is most of the time that a save takes; from the `last`th step on that changes a file's
/// name, nothing works.
class TestCalls : public FileCalls {
public:
    explicit TestCalls(int lastStep = -1, bool killed = false) : last(lastStep), kills(killed) {}
    int Open(const char* path, int flags, mode_t mode) override {
        return Stopped() ? -1 : FileCalls::Open(path, flags, mode);
    }
    ssize_t Write(int fd, const void* bytes, std::size_t size) override {
        return Stopped() ? -1 : FileCalls::Write(fd, bytes, size);
    }
    int Sync(int) override { return 0; }
    int Rename(const char* from, const char* to) override { return Step() ? -1 : FileCalls::Rename(from, to); }
    int Remove(const char* path) override { return Step() ? -1 : FileCalls::Remove(path); }

private:
    bool Stopped() const {
        errno = EIO;
        return last >= 0 && count >= last;
    }
    bool Step() {
        ++count;
        if (kills && count == last) ::raise(SIGKILL);
        return Stopped();
    }
    int last;
    bool kills;
    int count = 0;
};

class Told : public JobObserver {
public:
    void OnDrawingChanged() override { log.emplace_back("drawing"); }
    void OnPointShown(tagXY) override { log.emplace_back("point"); }
    void OnClearanceStale() override { log.emplace_back("stale"); }
    void OnFeatureUpdate(KIND kind) override { log.push_back("update " + std::string(KindOf(kind).name)); }
    void OnFocusFeature(KIND) override { log.emplace_back("focus"); }
    void OnGeodesyChanged() override { log.emplace_back("geodesy"); }
    void OnActsChanged() override { ++changes; }
    std::vector<std::string> log;
    int changes = 0;
};

class ActsTest : public ::testing::Test {
protected:
    ActsTest() {
        // Kinds share the names of their files, and with them settings, but no data: a route's file is rewritten.
        for (const JobKind& kind : JobKinds()) {
            for (const char stem : {'A', 'B', 'C'}) {
                drives.Write(FileOf(kind.id, stem),
                             "500000,6000000,500100.1234,6000100\r\n500300,6000400,500500,6000800,Pilot\r\n"
                             "500900,6000700,501500,6001800\r\n");
            }
        }
        for (const char* const shape : {"Frame", "Tower"}) {
            drives.Write(Format("C:\\MyData\\Structures\\%s.dxf", shape),
                         "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
        }
        drives.Write("C:\\Job\\Field.dat",
                     "STRUCTURE 1\nNAME East\nSHAPE Frame\nSHOW 1\n500000.000E 6000000.000\nHEIGHT 1.00\n"
                     "HEADING 45.0\nLENGTH 30.00\n");
        List("Boundary_List", "Boundary", KIND::BOUNDARY, "AB");
        List("Route_List", "Route", KIND::ROUTE, "AB");
        List("Sail_Line_List", "SailLine", KIND::SAIL_LINE, "C");
        List("GRID_Waypoints", "", KIND::WAYPOINT, "A");
        List("Pipelines", "", KIND::PIPELINE, "AC");
        drives.Write("C:\\MySettings\\Host\\Structure_List.FLS", "[Structure]\r\nC:\\Job\\Field.dat\r\n");
        drives.Write("C:\\MySettings\\Host\\Structure_List.INI", "Edit File Index = 0\r\nEdit Point Index = 0\r\n");
        drives.Write("C:\\MySettings\\Host\\Active_Pipeline.INI", "Path = " + FileOf(KIND::PIPE_ROUTE, 'C') + "\r\n");
        Open(calls);
    }
    static std::string FileOf(KIND kind, char stem) {
        return Format("C:\\%s\\%c.csv", std::string(KindOf(kind).name).c_str(), stem);
    }
    void List(const std::string& name, const std::string& head, KIND kind, std::string_view stems) {
        std::string text = "[" + head + "]\r\n";
        for (const char stem : stems) text += FileOf(kind, stem) + "\r\n";
        drives.Write("C:\\MySettings\\Host\\" + name + ".FLS", text);
    }

    /// A new run over the same drives.
    void Open(FileCalls& fileCalls) {
        job.reset();
        platform = std::make_unique<HeadlessPlatform>(drives.Root(), "Host");
        platform->Files().SetCalls(fileCalls);
        job = std::make_unique<Job>(*platform);
        job->Open();
        job->SetObserver(&told);
    }
    template <class Pane>
    Pane& PaneOf(KIND kind) {
        return dynamic_cast<Pane&>(*job->PaneOf(kind));
    }
    CBoundaryPane& Boundary() { return PaneOf<CBoundaryPane>(KIND::BOUNDARY); }
    bool Type(CPropertyPane& pane, UINT row, std::string_view text) {
        return user::Type(pane.GetPropertyList(), *pane.GetPropertyList().FindItemByData(row), text);
    }
    std::vector<std::string> Pump() {
        platform->Messages().Pump();
        return std::exchange(told.log, {});
    }
    std::vector<std::string> DoneNames() {
        std::vector<std::string> names;
        for (const Act& act : job->Acts()->Done()) names.push_back(act.name);
        return names;
    }
    /// All but what the program makes anew by itself: caches, conversions, widths of columns, the reference point of
    /// grid shifts.
    Files AllFiles() {
        Files files;
        for (const auto& entry : fs::recursive_directory_iterator(drives.Root())) {
            const std::string name = entry.path().filename();
            if (!entry.is_regular_file() || name == "NTv2.INI" || name.ends_with(".DTM") || name.ends_with(".DIG") ||
                name.ends_with("_Column_State.INI"))
                continue;
            std::ifstream in(entry.path(), std::ios::binary);
            files[entry.path().lexically_relative(drives.Root()).string()] = {std::istreambuf_iterator<char>(in), {}};
        }
        return files;
    }
    /// The names of the files in which two states differ.
    static std::vector<std::string> Changed(const Files& now, const Files& was) {
        std::vector<std::string> names;
        for (const auto& [path, bytes] : now) {
            if (!was.contains(path) || was.at(path) != bytes) names.push_back(path);
        }
        for (const auto& [path, bytes] : was) {
            if (!now.contains(path)) names.push_back(path + " gone");
        }
        return names;
    }

    ScratchDrives drives{"Host"};
    TestCalls calls;
    Told told;
    std::unique_ptr<HeadlessPlatform> platform;
    std::unique_ptr<Job> job;
};

// ---- What is an act ----

TEST_F(ActsTest, AreNamedByPaneAndRowOrButton) {
    CFeaturePane& pane = Boundary();
    EXPECT_TRUE(Type(Boundary(), BOUNDARY_COLOUR, "Red"));
    EXPECT_TRUE(Type(Boundary(), BOUNDARY_COLOUR, "Red")) << "writes nothing: no act";
    user::Click(pane.GetTable(), 1);
    user::Select(pane.GetCombo(), 1);
    EXPECT_TRUE(Type(Boundary(), BOUNDARY_DISPLAY, "False"));
    EXPECT_TRUE(Type(PaneOf<CRoutePane>(KIND::ROUTE), ROUTE_CORRIDOR_COLOUR, "Green"));
    platform->AnswerFiles({FileOf(KIND::ROUTE, 'C'), FileOf(KIND::PIPELINE, 'A')});
    user::Press(pane.GetAddButton());
    user::Press(pane.GetRemoveButton());
    EXPECT_THAT(DoneNames(),
                ElementsAre("Boundary: Colour", "Boundary: Display", "Route: Corridor Colour", "Boundary: Add File"))
        << "the last is open until its messages are delivered";
    Pump();
    EXPECT_EQ(DoneNames().back(), "Boundary: Remove File");
    EXPECT_EQ(told.changes, 5);
    // The pane leaves a structure that was only added unwritten.
    CStructurePane& structures = PaneOf<CStructurePane>(KIND::STRUCTURE);
    const Files before = AllFiles();
    EXPECT_TRUE(user::Edit(structures.GetPropertyList(),
                           *structures.GetPropertyList().FindItemByData(STRUCTURE_BUTTONS), std::int32_t{0}));
    Pump();
    EXPECT_EQ(DoneNames().back(), "Structure: Add");
    EXPECT_THAT(drives.Read("C:\\Job\\Field.dat"), ::testing::HasSubstr("Structure 2"));
    EXPECT_TRUE(job->Undo());
    EXPECT_THAT(Changed(AllFiles(), before), IsEmpty());
    EXPECT_EQ(job->Record().structures.GetPointCount(0), 1);
    // What is written beside the controls is an act too, if it is more than a cursor.
    ASSERT_TRUE(job->SelectPoint({KIND::BOUNDARY, 0, 2}));
    Pump();
    EXPECT_EQ(job->Acts()->Undone().size(), 1u) << "looking round costs nothing";
    job->Record().routes[0].SaveOrder();
    EXPECT_TRUE(Type(Boundary(), BOUNDARY_COLOUR, "Blue"));
    Pump();
    EXPECT_THAT(job->Acts()->Undone(), IsEmpty());
    EXPECT_EQ(*std::prev(DoneNames().end(), 2), "Change of A_DATA_ORDER.INI");
}

TEST_F(ActsTest, PanesAndMessagesFollow) {
    CFeaturePane& pane = Boundary();
    EXPECT_FALSE(job->Undo());
    user::Select(pane.GetCombo(), 1);
    EXPECT_TRUE(Type(Boundary(), BOUNDARY_COLOUR, "Red"));
    const auto messages = Pump();
    user::Select(pane.GetCombo(), 0);
    EXPECT_TRUE(job->Undo());
    EXPECT_EQ(pane.GetCombo().GetCurSel(), 1) << "what was undone is shown";
    EXPECT_EQ(pane.GetPropertyList().FindItemByData(BOUNDARY_COLOUR)->FormatProperty(), "Blue");
    EXPECT_EQ(Pump(), messages);
    EXPECT_TRUE(job->Redo());
    EXPECT_EQ(pane.GetPropertyList().FindItemByData(BOUNDARY_COLOUR)->FormatProperty(), "Red");
    EXPECT_EQ(Pump(), messages);
    EXPECT_FALSE(job->Redo());

    EXPECT_TRUE(Type(Boundary(), BOUNDARY_DISPLAY, "False"));
    Pump();
    user::Press(pane.GetRemoveButton());
    const auto removal = Pump();
    EXPECT_TRUE(job->Undo());
    EXPECT_EQ(job->Record().boundaries.GetCount(), 2);
    EXPECT_EQ(pane.GetCombo().GetLBText(pane.GetCombo().GetCurSel()), "B");
    EXPECT_EQ(pane.GetTable().GetItemCount(), 3);
    EXPECT_FALSE(job->Record().boundaries[1].Status);
    EXPECT_EQ(Pump(), removal);
    EXPECT_TRUE(job->Redo());
    EXPECT_EQ(job->Record().boundaries.GetCount(), 1);
    EXPECT_EQ(pane.GetCombo().GetCount(), 1);
    job->GoToAct(0);
    EXPECT_EQ(job->Acts()->Undone().size(), 3u);
    EXPECT_TRUE(job->Record().boundaries[1].Status);
    job->GoToAct(2);
    EXPECT_FALSE(job->Record().boundaries[1].Status);
}

TEST_F(ActsTest, NeverOverwriteWhatAnotherProgramHasChanged) {
    constexpr std::string_view kRoute = "C:\\Route\\A.csv", kOriginal = "C:\\Route\\A (original).csv";
    const Files start = AllFiles();
    EXPECT_TRUE(Type(PaneOf<CRoutePane>(KIND::ROUTE), ROUTE_LABEL_MODE, "None"));
    Pump();
    for (const std::string_view path : {kRoute, kOriginal}) {
        const std::string ours = drives.Read(path);
        drives.Write(path, "1,2\r\n3,4\r\n");
        const Files before = AllFiles();
        EXPECT_FALSE(job->Undo());
        EXPECT_THAT(Changed(AllFiles(), before), IsEmpty());
        EXPECT_EQ(platform->Calls().back(),
                  "warning: Not undone: Route: Label\n" + std::string(path) + ": another program has changed it since");
        EXPECT_EQ(job->Acts()->Done().size(), 1u);
        drives.Write(path, ours);
    }
    EXPECT_TRUE(job->Undo());
    EXPECT_THAT(Changed(AllFiles(), start), IsEmpty());
    drives.Write(kOriginal, "there was none");
    EXPECT_FALSE(job->Redo());
    EXPECT_THAT(platform->Calls().back(), StartsWith("warning: Not done again: "));
}

TEST_F(ActsTest, AreBoundedByTheirBytes) {
    job.reset();
    JobRecord record(platform->Files());
    record.Load();
    constexpr std::size_t kMost = 4000;
    ActHistory history(*platform, record, kMost);
    const auto write = [&](const std::string& name, std::size_t size, bool isResult = false) {
        const UserAct act(*platform, name);
        CStdioFile file(platform->Files());
        ASSERT_TRUE(file.OpenForWriting("C:\\Job\\" + name));
        if (isResult) file.SetIsResult();
        file.WriteString(std::string(size, 'x'));
        ASSERT_TRUE(file.Commit());
    };
    for (const char* const name : {"1", "2", "3"}) write(name, 1000);
    write("large", kMost);
    ASSERT_EQ(history.Done().size(), 3u) << "what alone is too large isn't kept";
    write("4", 1000);
    write("an export", 10, true);
    ASSERT_LE(history.Done().size(), 3u);
    EXPECT_GT(history.Done().size(), 1u);
    EXPECT_NE(history.Done().front().name, "1");
    EXPECT_EQ(history.Done().back().name, "4");
    EXPECT_TRUE(history.Undo().done);
    EXPECT_FALSE(drives.Exists("C:\\Job\\4"));
}

// ---- A walk over all panes ----

class ActsWalkTest : public ActsTest {
protected:
    std::size_t Below(std::size_t count) { return count == 0 ? 0 : random() % count; }

    void TypeRow(CMyDockablePane& pane) {
        const std::vector<ListRow> rows = AllRows(pane);
        if (rows.empty()) return;
        const auto [list, row] = rows[Below(rows.size())];
        if (row->GetKind() == ROW_KIND::PASSWORD) return;
        if (row->GetKind() == ROW_KIND::DUAL_BUTTON) {
            user::Edit(*list, *row, static_cast<std::int32_t>(Below(2)));
            return;
        }
        const std::vector<RowChoice> choices = row->GetChoices();
        user::Type(*list, *row, choices.empty() ? AnotherText(*row) : choices[Below(choices.size())].text);
    }
    void PressButton(CMyDockablePane& pane) {
        std::vector<CButton*> buttons;
        for (CControl* const control : pane.GetControls()) {
            if (auto* const button = dynamic_cast<CButton*>(control)) buttons.push_back(button);
        }
        if (buttons.empty()) return;
        const KIND kind = KindOfPane(pane.GetDlgCtrlID());
        const auto stem = static_cast<char>('A' + Below(3));
        platform->AnswerFiles({FileOf(kind == KIND::NONE ? KIND::BOUNDARY : kind, stem)});
        user::Press(*buttons[Below(buttons.size())]);
    }
    void Look(CMyDockablePane& pane) {
        for (CControl* const control : pane.GetControls()) {
            if (auto* const combo = dynamic_cast<CComboBox*>(control)) {
                user::Select(*combo, static_cast<int>(Below(static_cast<std::size_t>(combo->GetCount()))));
            }
        }
        if (CListCtrl* const table = TableOf(pane)) user::Click(*table, static_cast<int>(Below(4)));
        job->SelectPoint(
            {static_cast<KIND>(Below(kKindCount)), static_cast<int>(Below(3)), static_cast<int>(Below(3))});
    }
    void Step() {
        CMyDockablePane& pane = *job->Panes()[Below(job->Panes().size())];
        const std::size_t what = Below(20);
        if (what < 15) {
            TypeRow(pane);
        } else if (what < 17) {
            PressButton(pane);
        } else {
            Look(pane);
        }
        if (Below(8) != 0) Pump();
    }
    /// Does acts until so many are kept. The first is no look round, which would be part of none.
    void Walk(std::size_t acts) {
        EXPECT_TRUE(Type(Boundary(), BOUNDARY_COLOUR, "Red"));
        while (job->Acts()->Done().size() < acts) Step();
        Pump();
    }

    /// What stands in the list for a file without a point comes and goes with the way that it was read.
    static bool IsStub(JobRecord& record, const JobKind& kind, int file) {
        const CFileListBase* const list = kind.list(record);
        return list && list->IsStub(file);
    }
    static std::string TextOf(CMyDockablePane& pane) {
        std::string text;
        for (const auto& [list, row] : AllRows(pane)) text += row->GetName() + "=" + row->FormatProperty() + "|";
        const CListCtrl* const table = TableOf(pane);
        for (int row = 0; table && row < table->GetItemCount(); ++row) {
            for (int column = 0; column < table->GetColumnCount(); ++column)
                text += table->GetItemText(row, column) + "|";
        }
        return text;
    }
    /// All that the panes can show of a job, and all its points.
    static std::vector<std::string> Tables(Job& shown) {
        std::vector<std::string> texts;
        JobRecord& record = shown.Record();
        for (const JobKind& kind : JobKinds()) {
            for (int i = 0; i < kind.fileCount(record); ++i) {
                std::string text = std::string(kind.name) + " " + kind.path(record, i);
                for (int point = 0; !IsStub(record, kind, i) && point < kind.pointCount(record, i); ++point) {
                    text += Format(" %.3lf %.3lf", kind.point(record, i, point).x, kind.point(record, i, point).y);
                }
                texts.push_back(text + (kind.isDisplayed(record, i) ? "" : " hidden"));
            }
        }
        for (const auto& pane : shown.Panes()) {
            if (auto* const files = dynamic_cast<CFeaturePane*>(pane.get())) {
                for (int i = 0; i < files->GetCombo().GetCount(); ++i) {
                    files->GetCombo().SetCurSel(i);
                    files->OnCombo();
                    if (IsStub(record, KindOf(KindOfPane(pane->GetDlgCtrlID())), i)) continue;
                    texts.push_back(files->GetCombo().GetLBText(i) + ": " + TextOf(*pane));
                }
            } else if (KindOfPane(pane->GetDlgCtrlID()) == KIND::PIPE_ROUTE && !record.pipeRoute.GetPath().empty()) {
                texts.push_back(TextOf(*pane));
            }
        }
        return texts;
    }
    /// The lines in which two lists differ.
    static std::vector<std::string> Differences(const std::vector<std::string>& are,
                                                const std::vector<std::string>& were) {
        std::vector<std::string> lines;
        for (std::size_t i = 0; i < std::max(are.size(), were.size()); ++i) {
            const std::string is = i < are.size() ? are[i] : "(none)", was = i < were.size() ? were[i] : "(none)";
            if (is != was) lines.push_back(is + "\n   was " + was + "\n");
        }
        return lines;
    }
    void UndoAll() {
        while (!job->Acts()->Done().empty()) {
            const std::size_t undone = job->Acts()->Undone().size();
            ASSERT_TRUE(job->Undo()) << platform->Calls().back();
            if (Below(4) != 0) Pump();
            ASSERT_EQ(job->Acts()->Undone().size(), undone + 1) << "something else was written";
        }
        Pump();
    }
    void RedoAll() {
        while (!job->Acts()->Undone().empty()) {
            ASSERT_TRUE(job->Redo()) << platform->Calls().back();
            if (Below(4) != 0) Pump();
        }
        Pump();
    }

    void GoThereAndBack(std::size_t acts) {
        const Files firstFiles = AllFiles();
        const std::vector<std::string> firstTables = Tables(*job);
        Walk(acts);
        const Files lastFiles = AllFiles();
        const std::vector<std::string> lastTables = Tables(*job);
        EXPECT_NE(lastFiles, firstFiles);
        UndoAll();
        EXPECT_THAT(Changed(AllFiles(), firstFiles), IsEmpty());
        EXPECT_THAT(Differences(Tables(*job), firstTables), IsEmpty());
        RedoAll();
        EXPECT_THAT(Changed(AllFiles(), lastFiles), IsEmpty());
        EXPECT_THAT(Differences(Tables(*job), lastTables), IsEmpty());
        // What is held is what a new start would read.
        HeadlessPlatform later(drives.Root(), "Host");
        Job started(later);
        started.Open();
        EXPECT_THAT(Differences(Tables(started), lastTables), IsEmpty());
        EXPECT_THAT(Changed(AllFiles(), lastFiles), IsEmpty());
    }

    std::mt19937 random{20};
};

TEST_F(ActsWalkTest, GoesBackToTheStartAndOnToTheEnd) {
    GoThereAndBack(kWalkedActs);
}
TEST_F(ActsWalkTest, DISABLED_GoesALongWay) {
    GoThereAndBack(kLongWalk);
}

/// Every act of a walk is undone and done again while the file system stops working at one step after the other; a new
/// start finds all of the act's files before it or behind it.
TEST_F(ActsWalkTest, AKillLeavesAllFilesOfAnActOnOneSide) {
    constexpr std::size_t kActs = 20;
    Walk(kActs);
    std::size_t stops = 0;
    int kills = 0;
    for (bool back : {true, false}) {
        const auto waiting = [&] { return back ? job->Acts()->Done().size() : job->Acts()->Undone().size(); };
        while (waiting() > 0) {
            const Files before = AllFiles();
            ASSERT_TRUE(back ? job->Undo() : job->Redo());
            Pump();
            const Files after = AllFiles();
            ASSERT_TRUE(back ? job->Redo() : job->Undo());
            Pump();
            ASSERT_THAT(Changed(AllFiles(), before), IsEmpty());
            bool whole = false;
            for (int last = 1; !whole; ++last) {
                // A process of its own goes on from here and ends at that step; now and then by force.
                const bool killed = last % 3 == 0;
                TestCalls stopping(last, killed);
                ChildProcess run([&] {
                    platform->Files().SetCalls(stopping);
                    return (back ? job->Undo() : job->Redo()) ? 0 : 1;
                });
                whole = run.Wait() == 0;
                kills += killed;
                ++stops;
                HeadlessPlatform later(drives.Root(), "Host");
                later.Files().SetCalls(calls);
                Job started(later);
                started.Open();
                const Files found = AllFiles();
                ASSERT_TRUE(found == before || found == after)
                    << "step " << last << ::testing::PrintToString(Changed(found, before))
                    << ::testing::PrintToString(Changed(found, after));
                if (whole) {
                    ASSERT_THAT(Changed(found, after), IsEmpty());
                }
                for (const auto& [path, bytes] : found) {
                    if (!before.contains(path)) fs::remove(drives.Root() / path);
                }
                for (const auto& [path, bytes] : before) {
                    if (!found.contains(path) || found.at(path) != bytes) {
                        std::ofstream(drives.Root() / path, std::ios::binary) << bytes;
                    }
                }
            }
            ASSERT_TRUE(back ? job->Undo() : job->Redo());
            Pump();
        }
    }
    EXPECT_GT(stops, 4 * kActs);
    EXPECT_GE(kills, 10);
}

}  // namespace
}  // namespace quillon

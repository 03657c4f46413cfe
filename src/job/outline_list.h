#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "target/barge.h"
#include "target/seabed_template.h"

namespace quillon {

/// What the targets of a job's vessels and templates are taken from.
struct TargetSources {
    CGridWaypointList& waypoints;
    CSailLineList& sailLines;
    const CJobGeodesy& geodesy;
};

/// The vessels of a job, or its seabed templates: those that the chart shows, one of them in the pane. Their settings
/// files lie in the folder of vessels; which of them the job has, and where each stands now, is kept in a settings file
/// of the list's own.
///
/// A target is known by the path of its file: it goes along when the lists of waypoints and sail lines change their
/// order, and is lost, not another one, when its file leaves the job.
class COutlineList {
public:
    COutlineList(FileSystem& fileSystem, std::string_view listName, const TargetSources& targets)
        : files(fileSystem), settingsName(listName), sources(targets) {}
    virtual ~COutlineList() = default;
    COutlineList(const COutlineList&) = delete;
    COutlineList& operator=(const COutlineList&) = delete;

    /// Reads the list and all that it names, after the lists of features. A name without a file keeps its place.
    void Load();
    bool Save() const;

    int GetCount() const { return static_cast<int>(members.size()); }
    bool IsValidIndex(int index) const { return index >= 0 && index < GetCount(); }
    /// InvalidArgument for an index outside the list.
    COutline& operator[](int index) const;
    /// Regardless of case; -1 for none.
    int Find(std::string_view name) const;

    /// The one in the pane; -1 and null where the list is empty.
    int GetCurrentIndex() const { return current; }
    COutline* GetCurrent() const { return current < 0 ? nullptr : &(*this)[current]; }
    /// Saves the list.
    void SetCurrent(int index);

    /// Where the object stands now; none until it is told.
    const std::optional<tagXY>& PlaceOf(int index) const { return At(index).place; }
    /// Saves the list.
    void SetPlace(int index, std::optional<tagXY> place);

    /// Each of these gives the new member's index, which becomes the current one, or -1 with the reason in `fault`.

    /// With a settings file of its own, which must not be there yet.
    int AddNew(std::string_view name, std::string_view outlineFile, std::string& fault);
    /// A settings file of the folder; one from elsewhere is copied there unless it would take another's place.
    int Open(std::string_view path, std::string& fault);
    /// Takes it off the list; its settings file stays. The next one becomes the current.
    void RemoveAt(int index);

    /// Another outline, with the extent that it has. False, with the reason, if it can't be read; the old one stays.
    bool SetOutlineFile(int index, std::string_view path, std::string& fault);

    /// Brings the targets in line with the lists of features and with the grid. What that changes is saved. True if
    /// anything did.
    bool FollowSources();
    /// Reads anew what stands in files whose bytes were put back. True if one of them is the list's or a member's.
    /// Members that are no longer listed live on until they are dropped.
    bool ReadRestored(std::span<const std::string> paths);
    /// Nobody holds what has left the list.
    void DropRetired() { retired.clear(); }
    virtual std::string_view Extension() const = 0;
    /// What people call one of its members: "Vessel".
    virtual std::string_view Label() const = 0;
    /// Where the settings files lie.
    std::string Folder() const;
    FileSystem& GetFiles() const { return files; }

protected:
    virtual std::unique_ptr<COutline> Make() const = 0;

private:
    /// A record of a file of a list.
    struct Place {
        int file = -1;
        int index = -1;
        friend bool operator==(const Place&, const Place&) = default;
    };
    /// Where a target was last seen in the lists of features.
    struct Source {
        std::string path;  ///< empty while there is no target
        Place at;
    };
    struct Member {
        std::unique_ptr<COutline> object;
        std::optional<tagXY> place;
        Source waypoint;
        Source sailLine;
    };

    const Member& At(int index) const;
    Member& At(int index) { return const_cast<Member&>(std::as_const(*this).At(index)); }
    void LoadMember(Member& member) const;
    /// A member that isn't in the list yet.
    Member MakeMember(std::string_view name) const;
    int Append(Member member);
    bool IsFree(std::string_view name, std::string& fault) const;
    void NoteSources(Member& member) const;
    template <class List, class Held>
    static std::optional<Place> LookAgain(const List& list, const Source& seen, const Place& at, const Held& held);
    bool FollowWaypoint(Member& member);
    bool FollowSailLine(Member& member);

    FileSystem& files;
    std::string settingsName;
    TargetSources sources;
    std::vector<Member> members;
    std::vector<Member> retired;
    int current = -1;
};

template <class Object>
class COutlineListOf final : public COutlineList {
public:
    using COutlineList::COutlineList;
    Object* GetCurrent() const { return static_cast<Object*>(COutlineList::GetCurrent()); }
    std::string_view Extension() const override { return Object::kExtension; }
    std::string_view Label() const override { return Object::kLabel; }

protected:
    std::unique_ptr<COutline> Make() const override { return std::make_unique<Object>(GetFiles()); }
};

using CVesselList = COutlineListOf<CBarge>;
using CTemplateList = COutlineListOf<CTemplate>;

}  // namespace quillon

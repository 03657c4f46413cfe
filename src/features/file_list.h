#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "features/source_file.h"
#include "platform/errors.h"
#include "platform/file.h"

namespace quillon {

/// The edit cursor of a list: which file, and which point of it, the host and the listing work on. -1 is none.
struct FeatureEditState {
    std::int32_t editActive = 0;
    std::int16_t editFileIndex = -1;
    std::int32_t editPointIndex = -1;
    std::int16_t thirdIndex = -1;
    std::array<std::string, 3> work;
    std::uint32_t workWord = 0;
    friend bool operator==(const FeatureEditState&, const FeatureEditState&) = default;
};

/// The files of one kind that are loaded for a job, in their order. The base holds what doesn't depend on the kind: the
/// edit cursor, the changed flag, and the list's own two settings files.
///
/// The cursor's file index is -1 or a valid member, its point index -1 or valid in that member.
class CFileListBase {
public:
    explicit CFileListBase(FileSystem& fileSystem) : files(fileSystem) {}
    virtual ~CFileListBase() = default;
    CFileListBase(const CFileListBase&) = delete;
    CFileListBase& operator=(const CFileListBase&) = delete;

    virtual int GetCount() const = 0;
    /// `index` is valid.
    virtual const std::string& GetPath(int index) const = 0;
    virtual int GetPointCount(int index) const = 0;
    /// Reads the file and puts it at the end of the list, then saves the list. A path that is a member already,
    /// regardless of case, is passed over. True if the list holds the path in the end; whether a file of no use is kept
    /// depends on the kind.
    bool Add(std::string_view path);
    /// Destroys the member. `index` is valid. Moves no cursor and saves nothing.
    virtual void RemoveAt(int index) = 0;

    /// What stood on the disk when the member was read; null if its kind keeps no account of it.
    virtual const CSourceFile* GetSource(int index) const = 0;
    /// Whether the member has no data: its file was of no use.
    virtual bool IsStub(int index) const = 0;

    struct Changed {
        int index;
        DISK_CHANGE change;
        friend bool operator==(const Changed&, const Changed&) = default;
    };
    /// The members whose files another program has changed since they were read.
    std::vector<Changed> ChangedOnDisk() const;
    /// Reads a member's file anew, in its place; its display choices stay, and the edit cursor where its point is still
    /// there. A member without data is read with its settings, as at its first time. False, with the member as it was,
    /// if the file can't be opened. `index` is valid.
    bool ReadAgain(int index);
    /// Puts a new feature in the member's place, read with its settings as at a start. False, with the member as it
    /// was, if none comes of the file. `index` is valid.
    bool ReadWhole(int index);

    /// Whether the path is that of the list's own file of paths.
    bool IsPathsFile(std::string_view path) const;
    /// Whether the path is that of the file that the list keeps its cursor in.
    bool IsCursorFile(std::string_view path) const;
    /// Brings the members in line with the file of paths: those that stay keep their place in memory, the others are
    /// dropped or read. The members that came, in their order. Writes nothing and moves no cursor.
    std::vector<int> ReadPathsAgain();
    /// Puts the cursor where its file says.
    void ReadCursorAgain();

    bool IsEmpty() const { return GetCount() == 0; }
    bool IsValidIndex(int index) const { return index >= 0 && index < GetCount(); }
    /// The member with this path, regardless of case; -1 for none.
    int Find(std::string_view path) const;

    /// Points the cursor at a file and a point of it. A negative argument keeps what the cursor holds; what isn't there
    /// becomes -1. All else in the edit state is reset.
    virtual void SetEditCursor(int fileIndex, int pointIndex);
    void ResetEditCursor() { editState = {}; }

    /// Rewrites the list's settings files. False if the file of paths can't be written.
    bool Save() const;

    FileSystem& GetFiles() const { return files; }
    const std::string& GetSettingsName() const { return settingsName; }
    /// The host's, before anything else.
    void SetSettingsName(std::string_view name) { settingsName = name; }

    FeatureEditState editState;
    bool changed = false;  ///< something that the host draws was changed by a pane

protected:
    friend void LoadFileList(CFileListBase& list);

    /// Reads the file and appends it, without a look at the members and without saving. With `keepUseless` a file that
    /// gives nothing is kept in any case.
    virtual bool AppendFile(std::string_view path, bool keepUseless) = 0;
    virtual bool ReadMemberAgain(int index) = 0;
    /// Moves a member to a place further ahead.
    virtual void MoveMember(int from, int to) = 0;
    /// The head of the section that the paths are listed under.
    virtual std::string_view GetSection() const = 0;
    /// Whether the list keeps its cursor in an "INI" file.
    virtual bool HasCursorFile() const { return true; }
    std::vector<std::string> GetPaths() const;

private:
    std::vector<std::string> StoredPaths() const;

    FileSystem& files;
    std::string settingsName;
};

/// A list that owns its features. A feature has GetPath and GetSize.
template <class Feature>
class CFileList : public CFileListBase {
public:
    using CFileListBase::CFileListBase;

    int GetCount() const override { return static_cast<int>(members.size()); }
    const std::string& GetPath(int index) const override { return (*this)[index].GetPath(); }
    int GetPointCount(int index) const override { return static_cast<int>((*this)[index].GetSize()); }
    /// InvalidArgument for an index outside the list.
    Feature& operator[](int index) { return *members[Checked(index)]; }
    const Feature& operator[](int index) const { return *members[Checked(index)]; }
    void Append(std::unique_ptr<Feature> feature) { members.push_back(std::move(feature)); }
    void RemoveAt(int index) override { members.erase(members.begin() + static_cast<std::ptrdiff_t>(Checked(index))); }
    const CSourceFile* GetSource(int index) const override {
        if constexpr (std::is_base_of_v<CSourceFile, Feature>) return &(*this)[index];
        return nullptr;
    }
    bool IsStub(int index) const override {
        if constexpr (requires(const Feature& feature) { feature.IsStub(); }) return (*this)[index].IsStub();
        return false;
    }

protected:
    bool ReadMemberAgain(int index) override {
        if constexpr (requires(Feature & feature) { feature.ReadAgain(); }) return (*this)[index].ReadAgain();
        return false;
    }
    void MoveMember(int from, int to) override {
        const auto begin = members.begin();
        std::rotate(begin + to, begin + from, begin + from + 1);
    }

private:
    std::size_t Checked(int index) const {
        if (!IsValidIndex(index)) throw InvalidArgument("list index out of range");
        return static_cast<std::size_t>(index);
    }

    std::vector<std::unique_ptr<Feature>> members;
};

/// The host's side of a list's settings files, for its start: adds each path of the "FLS" file, then applies the two
/// indexes of the "INI" file. The settings name must be set. Nothing is written, so that a start that is cut short
/// loses nothing, and a file that can't be read today (a drive that isn't there yet) keeps its place in the list.
void LoadFileList(CFileListBase& list);

}  // namespace quillon

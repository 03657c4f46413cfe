#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/config_file.h"
#include "foundation/folders.h"
#include "foundation/paths.h"
#include "platform/errors.h"
#include "platform/file.h"
#include "platform/text.h"

namespace quillon {

/// The background files of one kind that are loaded for a job, in their order. It owns them. An `Item` is made of the
/// file system and has a `fileName`, its path.
template <class Item>
class CBackgroundList {
public:
    explicit CBackgroundList(FileSystem& fileSystem) : files(fileSystem) {}
    virtual ~CBackgroundList() = default;
    CBackgroundList(const CBackgroundList&) = delete;
    CBackgroundList& operator=(const CBackgroundList&) = delete;

    int GetCount() const { return static_cast<int>(items.size()); }
    bool IsEmpty() const { return items.empty(); }
    bool IsValidIndex(int index) const { return index >= 0 && index < GetCount(); }
    /// InvalidArgument for an index outside the list.
    Item& operator[](int index) { return *items[Checked(index)]; }
    const Item& operator[](int index) const { return *items[Checked(index)]; }

    /// Keeps the entry for as long as somebody holds it, also when it has left the list.
    std::shared_ptr<const Item> Share(int index) const { return items[Checked(index)]; }

    /// A new entry at the end that holds its path and isn't read yet. Null if the path names no file, or a file that is
    /// in the list, regardless of case.
    Item* Add(std::string_view path) {
        if (SplitPath(path).name.empty()) return nullptr;
        for (const auto& item : items) {
            if (EqualNoCase(item->fileName, path)) return nullptr;
        }
        items.push_back(std::make_shared<Item>(files));
        items.back()->fileName = path;
        return items.back().get();
    }
    /// Takes the entry out and hands it over, so that its memory can be given back elsewhere than under a lock.
    std::shared_ptr<Item> Remove(int index) {
        const auto at = items.begin() + static_cast<std::ptrdiff_t>(Checked(index));
        std::shared_ptr<Item> removed = std::move(*at);
        items.erase(at);
        return removed;
    }

    /// Puts another entry in the place of one.
    void Replace(int index, std::shared_ptr<Item> fresh) { items[Checked(index)] = std::move(fresh); }

    /// Writes the paths to the list's settings file. False if it can't be written.
    bool Save() const {
        std::vector<std::string> paths;
        for (const auto& item : items) {
            if (!item->fileName.empty()) paths.push_back(item->fileName);
        }
        CConfigFile file(files);
        if (!file.OpenSettingsForWrite(GetSettingsName())) return false;
        file.WriteSection(GetSection(), paths);
        return file.Commit();
    }
    std::string GetSettingsPath() const { return quillon::GetSettingsPath(files, GetSettingsName()); }
    /// Brings the entries in line with the paths of the settings file; the places of those that came, not read yet.
    std::vector<int> ReadPathsAgain() {
        const std::vector<std::shared_ptr<Item>> before = std::exchange(items, {});
        LoadPaths();
        std::vector<int> came;
        for (int i = 0; i < GetCount(); ++i) {
            auto& item = items[Checked(i)];
            const auto held = std::find_if(before.begin(), before.end(),
                                           [&](const auto& old) { return EqualNoCase(old->fileName, item->fileName); });
            if (held == before.end()) {
                came.push_back(i);
            } else {
                item = *held;
            }
        }
        return came;
    }
    /// Adds the paths of the settings file. Nothing is read but that file, and a path that leads nowhere today keeps
    /// its place.
    void LoadPaths() {
        CConfigFile file(files);
        std::string_view line;
        if (!file.OpenForRead(GetSettingsName())) return;
        file.ReadLine(line);  // the section's head
        while (file.ReadLine(line)) Add(Trim(line));
    }

protected:
    virtual std::string_view GetSettingsName() const = 0;
    virtual std::string_view GetSection() const = 0;

private:
    std::size_t Checked(int index) const {
        if (!IsValidIndex(index)) throw InvalidArgument("list index out of range");
        return static_cast<std::size_t>(index);
    }

    FileSystem& files;
    std::vector<std::shared_ptr<Item>> items;
};

}  // namespace quillon

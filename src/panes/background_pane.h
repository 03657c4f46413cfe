#pragma once

#include <mutex>
#include <span>
#include <string>
#include <string_view>

#include "background/background_list.h"
#include "frame/file_strip.h"
#include "panes/property_pane.h"
#include "platform/mutex.h"

namespace quillon {

/// What tells a pane over a list of background drawings from another one without code.
struct BackgroundPaneTraits {
    CFileStrip::Ids strip;
    std::string_view filter;  ///< of the file question
    std::span<const RowEffect> effects;
};

/// The pattern of the panes over background drawings: the strip of the list on top, and below it the properties of the
/// combo's file. A file that is added loads behind its window, and the host's mutex is held meanwhile.
///
/// List and mutex are the host's and outlive the pane. All calls on the user-interface thread.
class CBackgroundPane : public CPropertyPane {
public:
    CBackgroundPane(Platform& platform, const BackgroundPaneTraits& paneTraits);

    void SetupComboBox();
    /// Shows the first file whose bare name is `name`, in whatever capitals; the first of all if there is none.
    void SetUseFile(const char* name);
    void Refresh() override;

    // Handlers.
    void OnAdd();
    void OnRemove();
    void OnCombo();
    LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) override;
    void OnCommand(UINT control) override;

    // The controls, for a host that shows them and for tests.
    CComboBox& GetCombo() { return strip.GetCombo(); }
    CColourButton& GetAddButton() { return strip.GetAddButton(); }
    CButton* GetFileButton() override { return &strip.GetAddButton(); }
    CColourButton& GetRemoveButton() { return strip.GetRemoveButton(); }

protected:
    bool CreateOver(CWnd* parent, UINT id, std::string_view title, CMutex& listMutex);
    /// The file that the pane shows; -1 without one.
    int Current() const { return currentIndex >= 0 && currentIndex < Count() ? currentIndex : -1; }
    std::unique_lock<CMutex> Lock() { return std::unique_lock(*mutex); }

    // ---- What a pane says of its own kind. `index` is a valid file; before `Create` there is none. ----

    virtual int Count() const = 0;
    virtual const std::string& PathOf(int index) const = 0;
    virtual void BuildFileRows(int index) = 0;
    /// Stores the row's value and refreshes the rows that hang on it. False if the file had that value.
    virtual bool StoreFileRow(int index, CMFCPropertyGridProperty& row) = 0;
    virtual void SaveFileRow(int index, std::uint8_t save) = 0;
    /// Appends the file and loads it behind its window. False if it is there already.
    virtual bool AddFile(const std::string& path) = 0;
    virtual void RemoveFile(int index) = 0;
    virtual void SaveList() = 0;

    /// Adds the rows of a box, which only show. `lastFormat` is that of the maximum northing.
    void AddExtentRows(tagXY least, tagXY most, std::string_view lastFormat);
    /// Adds the rows that tell of the file, to the group that stands last.
    void AddStampRows(CMFCPropertyGridProperty& group, const std::string& size, const std::string& date);

private:
    void BuildPropertyRows() override;
    bool StoreRow(CMFCPropertyGridProperty& row) override { return StoreFileRow(Current(), row); }
    void SaveFile(std::uint8_t save) override;
    int LayOutTop(int width) override { return strip.LayOut(width); }

    const BackgroundPaneTraits& traits;
    CFileStrip strip;
    CMutex* mutex = nullptr;
    int currentIndex = -1;
};

/// The part of it that hangs on the type of the list.
template <class Item>
class CBackgroundListPane : public CBackgroundPane {
public:
    using CBackgroundPane::CBackgroundPane;

protected:
    CBackgroundList<Item>& List() const { return *list; }
    void SetList(CBackgroundList<Item>& hostList) { list = &hostList; }

    int Count() const override { return list ? list->GetCount() : 0; }
    const std::string& PathOf(int index) const override { return (*list)[index].fileName; }
    void RemoveFile(int index) override {
        std::shared_ptr<Item> removed;  // its memory is given back behind the lock
        const auto lock = Lock();
        removed = list->Remove(index);
    }
    void SaveList() override { list->Save(); }

private:
    CBackgroundList<Item>* list = nullptr;
};

}  // namespace quillon

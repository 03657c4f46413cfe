#pragma once

#include <vector>

#include "features/gpx.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "frame/colour_picker_combo.h"
#include "panes/dialog_table.h"
#include "platform/dialog_controls.h"

namespace quillon {

/// Lets the operator tick the tracks of a GPX file that the chart shows, and choose their colour and dots. Each choice
/// is stored at once; that of the button goes to the file with the next tick.
class CGpxTracksDlg : public CColourDialogEx {
public:
    static constexpr UINT kTracks = 101, kSelectAll = 102, kColour = 103, kShowDots = 104;

    explicit CGpxTracksDlg(Platform& owner, CWnd* parent = nullptr);
    /// Lent; before the dialog is shown.
    void SetData(CGPX* data) { gpx = data; }

    void OnCommand(UINT control) override;

protected:
    void OnInitDialog() override;

private:
    void OnTrack(int row);
    void OnSelectAll();
    void ShowCaption();
    CGPX& Data() const;

    CGPX* gpx = nullptr;
    CDialogTable list;
    CColourButton selectButton, closeButton;
    CStatic colourText;
    CColourPickerComboBoxEx colour;
    CCheckBox dots;
};

/// Lists the points of one track with its legs.
class CGpxTracksDisplayDlg : public CColourDialogEx {
public:
    static constexpr UINT kTrack = 101, kPoints = 102;

    explicit CGpxTracksDisplayDlg(Platform& owner, CWnd* parent = nullptr);
    void SetData(CGPX* data) { gpx = data; }

    void OnCommand(UINT control) override;
    CListCtrl& GetTable() { return table; }
    bool IsResizable() const override { return true; }

protected:
    void OnInitDialog() override;
    void OnSize(tagSIZE size) override;

private:
    /// Fills the table with the points of the track.
    void Display();

    CGPX* gpx = nullptr;
    int track = 0;
    CStatic trackText;
    CComboBox tracks;
    CDialogTable table;
    CColourButton closeButton;
};

/// The time since the start of a track: "1 Day 02:03:04", minutes and seconds alone below an hour.
std::string TotalTimeText(double seconds);

}  // namespace quillon

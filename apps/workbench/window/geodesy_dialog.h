#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <vector>

#include "geodesy/grid_search.h"
#include "geodesy/job_geodesy.h"

namespace quillon {

/// The choice of the job's grid: one of the catalogue, found by words, or parameters of one's own; the ellipsoid, and
/// an optional shift file. What the choice amounts to is told while it is made, and one that can't be worked on can't
/// be taken.
class GeodesyDialog : public QDialog {
public:
    GeodesyDialog(QWidget* parent, FileSystem& files, const GeodesyChoice& now);

    /// What was chosen; not `chosen` for no grid. After an accepted `exec`.
    const GeodesyChoice& Choice() const { return choice; }

    // For tests.
    QLineEdit& Search() { return *search; }
    QTreeWidget& Grids() { return *grids; }
    QTabWidget& Tabs() { return *tabs; }
    QComboBox& Ellipsoids() { return *ellipsoids; }
    QPushButton& Take() { return *take; }
    const QLabel& Told() const { return *told; }

private:
    struct Figure {
        QLineEdit* field;
        double GeodesyChoice::*member;
    };

    QWidget* MakeCatalogue();
    QWidget* MakeOwn();
    QLayout* MakeDatum();
    void ShowChoice();
    void ListGrids();
    void SelectGrid(std::int32_t type, std::int32_t zone);
    /// Takes the fields into the choice and tells what it amounts to.
    void Follow();
    bool TakeFields(GeodesyChoice& wanted) const;
    bool TakeFigures(GeodesyChoice& wanted, const std::vector<Figure>& figures) const;
    void ChooseShiftFile();

    FileSystem& files;
    GeodesyChoice choice;
    QTabWidget* tabs;
    QLineEdit* search = nullptr;
    QTreeWidget* grids = nullptr;
    QComboBox* variant = nullptr;  ///< hemisphere or axis of a catalogue grid
    QLabel* variantLabel = nullptr;
    QComboBox* projection = nullptr;
    QLineEdit* ownName = nullptr;
    QComboBox* ellipsoids = nullptr;
    QLineEdit* ownEllipsoid = nullptr;
    QLineEdit* shiftFile = nullptr;
    std::vector<Figure> gridFigures;
    std::vector<Figure> axes;
    QLabel* told = nullptr;
    QPushButton* take = nullptr;
    bool showing = false;  ///< the fields are being filled
};

}  // namespace quillon

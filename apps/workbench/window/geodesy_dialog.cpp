#include "window/geodesy_dialog.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>

#include "geodesy/grid_search.h"
#include "platform/text.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr QSize kSize = {760, 620};

/// The projections that can be made from parameters of one's own.
struct OwnProjection {
    const char* name;
    std::int32_t type;
    std::int32_t subtype;
    bool hasScale;
    bool hasParallels;
};
constexpr std::array<OwnProjection, 9> kOwnProjections = {{{"Transverse Mercator", TRANSVERSE_MERCATOR, 0, true, false},
                                                           {"Mercator, scale factor", MERCATOR, 0, true, false},
                                                           {"Mercator, standard parallel", MERCATOR, 1, false, true},
                                                           {"Lambert, one parallel", LAMBERT, 0, true, false},
                                                           {"Lambert, two parallels", LAMBERT, 1, false, true},
                                                           {"Cassini", CASSINI, 0, true, false},
                                                           {"Stereographic", STEREOGRAPHIC, 0, true, false},
                                                           {"Stereographic, polar", STEREOGRAPHIC, 2, true, false},
                                                           {"Polyconic", POLYCONIC, 0, true, false}}};

QString EllipsoidName(std::int32_t row) {
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(row);
    return ToQString(ellipsoid.comment.empty() ? ellipsoid.name : ellipsoid.name + " " + ellipsoid.comment);
}

/// A field for a number, with a point in every locale.
class NumberField : public QLineEdit {
public:
    void Set(double value) { setText(QString::number(value, 'g', 15)); }
    /// False, and the field is marked, where there is no number.
    bool Take(double& value) {
        bool isNumber = false;
        const double read = QLocale::c().toDouble(text().trimmed(), &isNumber);
        if (isNumber) value = read;
        return isNumber;
    }
};

class GeodesyDialog : public QDialog {
public:
    GeodesyDialog(QWidget* parent, CJobGeodesy& jobGeodesy) : QDialog(parent), geodesy(jobGeodesy) {
        setWindowTitle("Grid of the Job");
        auto* const all = new QVBoxLayout(this);
        all->addWidget(MakeSearch());
        all->addWidget(MakeOwn());
        all->addLayout(MakeRest());
        all->addWidget(complaint = new QLabel);
        complaint->setWordWrap(true);
        all->addWidget(MakeButtons());
        Show(geodesy.IsChosen() ? geodesy.Choice() : GeodesyChoice());
        resize(kSize);
        search->setFocus();
    }

private:
    // ---- Parts ----

    QWidget* MakeSearch() {
        auto* const box = new QWidget;
        auto* const column = new QVBoxLayout(box);
        column->setContentsMargins(0, 0, 0, 0);
        search = new QLineEdit;
        search->setPlaceholderText("Search the grids by name, area or number");
        search->setClearButtonEnabled(true);
        column->addWidget(search);
        grids = new QTreeWidget;
        grids->setRootIsDecorated(false);
        grids->setUniformRowHeights(true);
        grids->setHeaderLabels({"Grid", "Family", "Area", "Number"});
        column->addWidget(grids);
        connect(search, &QLineEdit::textChanged, this, [this] { FillGrids(); });
        connect(search, &QLineEdit::returnPressed, this, [this] { grids->setFocus(); });
        connect(grids, &QTreeWidget::currentItemChanged, this, [this] { FollowGrid(); });
        return box;
    }
    QWidget* MakeOwn() {
        own = new QGroupBox("Parameters of one's own");
        own->setCheckable(true);
        auto* const form = new QFormLayout(own);
        form->addRow("Projection", projection = new QComboBox);
        for (const OwnProjection& each : kOwnProjections) projection->addItem(each.name);
        form->addRow("Name", ownName = new QLineEdit);
        const auto pair = [form](const char* label, NumberField*& first, NumberField*& second) {
            auto* const row = new QHBoxLayout;
            row->addWidget(first = new NumberField);
            row->addWidget(second = new NumberField);
            form->addRow(label, row);
        };
        pair("Origin: latitude, longitude (degrees)", originLatitude, originLongitude);
        pair("False easting, false northing (m)", falseEasting, falseNorthing);
        pair("Standard parallels (degrees)", firstParallel, secondParallel);
        form->addRow("Scale factor", scale = new NumberField);
        connect(own, &QGroupBox::toggled, this, [this] { FollowGrid(); });
        connect(projection, &QComboBox::currentIndexChanged, this, [this] { FollowProjection(); });
        return own;
    }
    QLayout* MakeRest() {
        auto* const form = new QFormLayout;
        form->addRow(variantLabel = new QLabel("Hemisphere"), variant = new QComboBox);
        form->addRow("Ellipsoid", ellipsoid = new QComboBox);
        for (std::int32_t row = 0; row < CEllipsoid::kCatalogueRows; ++row) ellipsoid->addItem(EllipsoidName(row), row);
        ellipsoid->addItem("Axes of one's own", GeodesyChoice::kOwn);
        auto* const axes = new QHBoxLayout;
        axes->addWidget(ellipsoidName = new QLineEdit);
        ellipsoidName->setPlaceholderText("Name");
        axes->addWidget(semiMajor = new NumberField);
        semiMajor->setToolTip("Semi-major axis, metres");
        axes->addWidget(inverseFlattening = new NumberField);
        inverseFlattening->setToolTip("Inverse flattening");
        form->addRow(axesLabel = new QLabel("Name, semi-major axis, 1/f"), axes);
        auto* const file = new QHBoxLayout;
        file->addWidget(shiftFile = new QLineEdit);
        auto* const browse = new QPushButton("&Browse...");
        file->addWidget(browse);
        form->addRow("Shift file (kept, not applied)", file);
        connect(ellipsoid, &QComboBox::currentIndexChanged, this, [this] { FollowEllipsoid(); });
        connect(browse, &QPushButton::clicked, this, [this] { Browse(); });
        return form;
    }
    QWidget* MakeButtons() {
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        QPushButton* const none = buttons->addButton("&No Grid", QDialogButtonBox::ResetRole);
        none->setToolTip("Work without a grid: no latitudes are shown");
        none->setAutoDefault(false);
        connect(none, &QPushButton::clicked, this, [this] {
            geodesy.Clear();
            Keep();
        });
        connect(buttons, &QDialogButtonBox::accepted, this, [this] { Agree(); });
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        return buttons;
    }

    // ---- What is shown ----

    void Show(const GeodesyChoice& choice) {
        before = choice;
        own->setChecked(choice.zone == GeodesyChoice::kOwn);
        for (std::size_t i = 0; i < kOwnProjections.size(); ++i) {
            const OwnProjection& each = kOwnProjections[i];
            const bool isIt = each.type == choice.type && each.subtype == choice.subtype;
            if (own->isChecked() && isIt) projection->setCurrentIndex(static_cast<int>(i));
        }
        ownName->setText(ToQString(choice.gridName));
        originLatitude->Set(choice.originLatitude);
        originLongitude->Set(choice.originLongitude);
        falseEasting->Set(choice.falseEasting);
        falseNorthing->Set(choice.falseNorthing);
        scale->Set(choice.scale);
        firstParallel->Set(choice.firstParallel);
        secondParallel->Set(choice.secondParallel);
        ellipsoid->setCurrentIndex(ellipsoid->findData(choice.ellipsoid));
        ellipsoidName->setText(ToQString(choice.ellipsoidName));
        semiMajor->Set(choice.semiMajor);
        inverseFlattening->Set(choice.inverseFlattening);
        shiftFile->setText(ToQString(choice.shiftFile));
        FillGrids();
        FollowEllipsoid();
        FollowProjection();
    }
    /// The grids found; the one chosen stays the current one where it is among them.
    void FillGrids() {
        const GridListing* const current = CurrentGrid();
        const std::int32_t type = current ? current->type : before.type, zone = current ? current->zone : before.zone;
        grids->clear();
        QTreeWidgetItem* chosen = nullptr;
        for (const GridListing* const grid : FindGrids(FromQString(search->text()))) {
            auto* const item =
                new QTreeWidgetItem(grids, {ToQString(grid->name), ToQString(grid->family), ToQString(grid->area),
                                            QString("%1/%2").arg(grid->type).arg(grid->zone)});
            item->setData(0, Qt::UserRole, QVariant::fromValue(reinterpret_cast<quintptr>(grid)));
            if (grid->type == type && grid->zone == zone) chosen = item;
        }
        for (int i = 0; i < grids->columnCount(); ++i) grids->resizeColumnToContents(i);
        if (!chosen) chosen = grids->topLevelItem(0);
        if (chosen) grids->setCurrentItem(chosen);
        if (chosen) grids->scrollToItem(chosen, QAbstractItemView::PositionAtCenter);
        FollowGrid();
    }
    const GridListing* CurrentGrid() const {
        const QTreeWidgetItem* const item = grids->currentItem();
        return item ? reinterpret_cast<const GridListing*>(item->data(0, Qt::UserRole).value<quintptr>()) : nullptr;
    }
    /// What the grid leaves to choose beside it.
    void FollowGrid() {
        const GridListing* const grid = own->isChecked() ? nullptr : CurrentGrid();
        grids->setEnabled(!own->isChecked());
        search->setEnabled(!own->isChecked());
        for (QObject* const child : own->children()) {
            if (auto* const field = qobject_cast<QWidget*>(child)) field->setVisible(own->isChecked());
        }
        FollowProjection();
        const bool isUtm = grid && grid->type == UTM_GRID, isAxis = grid && grid->type == NORWEGIAN_AXES;
        const int chosen = before.subtype;
        variant->clear();
        if (isUtm) {
            variantLabel->setText("Hemisphere");
            variant->addItem("North", 0);
            variant->addItem("South", 1);
        }
        if (isAxis) {
            variantLabel->setText("Axis");
            for (int axis = 1; axis <= 8; ++axis) variant->addItem(QString::number(axis), axis);
        }
        const int place = variant->findData(chosen);
        variant->setCurrentIndex(place >= 0 ? place : 0);
        variant->setVisible(isUtm || isAxis);
        variantLabel->setVisible(isUtm || isAxis);
        const bool isFixed = grid && grid->ellipsoid >= 0;
        if (isFixed) ellipsoid->setCurrentIndex(ellipsoid->findData(grid->ellipsoid));
        ellipsoid->setEnabled(!isFixed);
        ellipsoid->setToolTip(isFixed ? "The grid brings its ellipsoid" : "");
        complaint->clear();
    }
    void FollowProjection() {
        const OwnProjection& each = kOwnProjections[static_cast<std::size_t>(projection->currentIndex())];
        scale->setEnabled(each.hasScale);
        firstParallel->setEnabled(each.hasParallels);
        secondParallel->setEnabled(each.hasParallels && each.type == LAMBERT);
    }
    void FollowEllipsoid() {
        const bool isOwn = ellipsoid->currentData().toInt() == GeodesyChoice::kOwn;
        for (QWidget* const field : {static_cast<QWidget*>(ellipsoidName), static_cast<QWidget*>(semiMajor),
                                     static_cast<QWidget*>(inverseFlattening), static_cast<QWidget*>(axesLabel)}) {
            field->setVisible(isOwn);
        }
    }
    void Browse() {
        const QString file = QFileDialog::getOpenFileName(this, "Shift File", shiftFile->text(),
                                                          "Grid Shift Files (*.gsb);;All Files (*)", nullptr,
                                                          QFileDialog::DontUseNativeDialog);
        if (!file.isEmpty()) shiftFile->setText(file);
    }

    // ---- What is chosen ----

    bool TakeNumbers(GeodesyChoice& choice) {
        return originLatitude->Take(choice.originLatitude) && originLongitude->Take(choice.originLongitude) &&
               falseEasting->Take(choice.falseEasting) && falseNorthing->Take(choice.falseNorthing) &&
               scale->Take(choice.scale) && firstParallel->Take(choice.firstParallel) &&
               secondParallel->Take(choice.secondParallel) && semiMajor->Take(choice.semiMajor) &&
               inverseFlattening->Take(choice.inverseFlattening);
    }
    void Agree() {
        GeodesyChoice choice = before;
        const GridListing* const grid = CurrentGrid();
        if (!TakeNumbers(choice)) return Complain("One of the fields holds no number.");
        if (own->isChecked()) {
            const OwnProjection& each = kOwnProjections[static_cast<std::size_t>(projection->currentIndex())];
            choice.type = each.type;
            choice.subtype = each.subtype;
            choice.zone = GeodesyChoice::kOwn;
            choice.gridName = FromQString(ownName->text().trimmed());
        } else if (!grid) {
            return Complain("No grid is chosen from the list.");
        } else {
            choice.type = grid->type;
            choice.zone = grid->zone;
            choice.subtype = variant->count() > 0 ? variant->currentData().toInt() : 0;
        }
        choice.ellipsoid = ellipsoid->currentData().toInt();
        choice.ellipsoidName = FromQString(ellipsoidName->text().trimmed());
        choice.shiftFile = FromQString(shiftFile->text().trimmed());
        const GEODESY_FAULT fault = geodesy.Choose(choice);
        if (fault != GEODESY_FAULT::NONE) return Complain(ToQString(FaultText(fault)) + ".");
        Keep();
    }
    void Keep() {
        if (!geodesy.Save()) return Complain("The choice holds until the program ends: its file can't be written.");
        accept();
    }
    void Complain(const QString& text) { complaint->setText("<b>" + text.toHtmlEscaped() + "</b>"); }

    CJobGeodesy& geodesy;
    GeodesyChoice before;
    QLineEdit* search = nullptr;
    QTreeWidget* grids = nullptr;
    QGroupBox* own = nullptr;
    QComboBox* projection = nullptr;
    QLineEdit* ownName = nullptr;
    NumberField *originLatitude = nullptr, *originLongitude = nullptr, *falseEasting = nullptr,
                *falseNorthing = nullptr, *scale = nullptr, *firstParallel = nullptr, *secondParallel = nullptr;
    QLabel* variantLabel = nullptr;
    QComboBox* variant = nullptr;
    QComboBox* ellipsoid = nullptr;
    QLabel* axesLabel = nullptr;
    QLineEdit* ellipsoidName = nullptr;
    NumberField *semiMajor = nullptr, *inverseFlattening = nullptr;
    QLineEdit* shiftFile = nullptr;
    QLabel* complaint = nullptr;
};

}  // namespace

bool ChooseGeodesy(QWidget* parent, CJobGeodesy& geodesy) {
    const GeodesyChoice before = geodesy.Choice();
    GeodesyDialog(parent, geodesy).exec();
    return geodesy.Choice() != before;
}

}  // namespace quillon

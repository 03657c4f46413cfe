#include "window/geodesy_dialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "platform/text.h"
#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr int kOwnTab = 1;
constexpr int kTypeRole = Qt::UserRole;
constexpr int kZoneRole = Qt::UserRole + 1;

/// The projections that stand on parameters of one's own.
struct OwnProjection {
    const char* name;
    std::int32_t type;
    std::int32_t subtype;
};
constexpr std::array<OwnProjection, 9> kProjections = {{
    {"Transverse Mercator", TRANSVERSE_MERCATOR, 0},
    {"Mercator, scale at the equator", MERCATOR, 0},
    {"Mercator, false northing at the equator", MERCATOR, 1},
    {"Lambert, one parallel", LAMBERT, 0},
    {"Lambert, two parallels", LAMBERT, 1},
    {"Cassini-Soldner", CASSINI, 0},
    {"Polyconic", POLYCONIC, 0},
    {"Stereographic, oblique", STEREOGRAPHIC, 0},
    {"Stereographic, polar", STEREOGRAPHIC, 2},
}};

/// A plain number with a point; false for any other text.
bool ReadFigure(const QString& text, double& value) {
    bool isNumber = false;
    const double read = QLocale::c().toDouble(text.trimmed(), &isNumber);
    if (isNumber) value = read;
    return isNumber;
}

QString FigureText(double value) {
    std::string text;
    AppendShortest(text, value);
    return QString::fromStdString(text);
}

std::size_t ProjectionOf(const GeodesyChoice& choice) {
    for (std::size_t i = 0; i < kProjections.size(); ++i) {
        if (kProjections[i].type == choice.type && kProjections[i].subtype == choice.subtype) return i;
    }
    return 0;
}

}  // namespace

GeodesyDialog::GeodesyDialog(QWidget* parent, FileSystem& fileSystem, const GeodesyChoice& now)
    : QDialog(parent), files(fileSystem), choice(now), tabs(new QTabWidget) {
    setWindowTitle("Grid and Datum");
    auto* const all = new QVBoxLayout(this);
    tabs->addTab(MakeCatalogue(), "&Catalogue");
    tabs->addTab(MakeOwn(), "&Own parameters");
    all->addWidget(tabs, 1);
    all->addLayout(MakeDatum());
    told = new QLabel;
    told->setWordWrap(true);
    told->setMinimumHeight(2 * fontMetrics().lineSpacing() + 4);
    all->addWidget(told);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    take = buttons->addButton("&Use This Grid", QDialogButtonBox::AcceptRole);
    connect(take, &QPushButton::clicked, this, &QDialog::accept);
    QPushButton* const none = buttons->addButton("&No Grid", QDialogButtonBox::ResetRole);
    none->setToolTip("Positions are plain eastings and northings; no latitude is shown");
    connect(none, &QPushButton::clicked, this, [this] {
        choice.chosen = false;
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    all->addWidget(buttons);
    ShowChoice();
    connect(tabs, &QTabWidget::currentChanged, this, [this] { Follow(); });
    resize(720, 560);
    search->setFocus();
}

QWidget* GeodesyDialog::MakeCatalogue() {
    auto* const page = new QWidget;
    auto* const rows = new QVBoxLayout(page);
    search = new QLineEdit;
    search->setPlaceholderText("Name, area or number: north sea, utm 31, 1/14");
    search->setClearButtonEnabled(true);
    connect(search, &QLineEdit::textChanged, this, [this] { ListGrids(); });
    rows->addWidget(search);
    grids = new QTreeWidget;
    grids->setRootIsDecorated(false);
    grids->setUniformRowHeights(true);
    grids->setAllColumnsShowFocus(true);
    grids->setHeaderLabels({"Grid", "Family", "Area"});
    grids->header()->setStretchLastSection(true);
    grids->setColumnWidth(0, 280);
    grids->setColumnWidth(1, 160);
    connect(grids, &QTreeWidget::currentItemChanged, this, [this] { Follow(); });
    connect(grids, &QTreeWidget::itemActivated, this, [this] {
        if (take->isEnabled()) accept();
    });
    rows->addWidget(grids, 1);
    auto* const line = new QHBoxLayout;
    line->addWidget(variantLabel = new QLabel);
    line->addWidget(variant = new QComboBox);
    line->addStretch();
    connect(variant, &QComboBox::currentIndexChanged, this, [this] { Follow(); });
    rows->addLayout(line);
    return page;
}

QWidget* GeodesyDialog::MakeOwn() {
    auto* const page = new QWidget;
    auto* const form = new QFormLayout(page);
    projection = new QComboBox;
    for (const OwnProjection& own : kProjections) projection->addItem(own.name);
    connect(projection, &QComboBox::currentIndexChanged, this, [this] { Follow(); });
    form->addRow("&Projection", projection);
    form->addRow("Na&me", ownName = new QLineEdit);
    connect(ownName, &QLineEdit::textChanged, this, [this] { Follow(); });
    const struct {
        const char* label;
        double GeodesyChoice::*member;
    } figures[] = {{"Latitude of origin, degrees", &GeodesyChoice::originLatitude},
                   {"Longitude of origin, degrees", &GeodesyChoice::originLongitude},
                   {"False easting, metres", &GeodesyChoice::falseEasting},
                   {"False northing, metres", &GeodesyChoice::falseNorthing},
                   {"Scale factor", &GeodesyChoice::scale},
                   {"First parallel, degrees", &GeodesyChoice::firstParallel},
                   {"Second parallel, degrees", &GeodesyChoice::secondParallel}};
    for (const auto& figure : figures) {
        auto* const field = new QLineEdit;
        connect(field, &QLineEdit::textChanged, this, [this] { Follow(); });
        form->addRow(figure.label, field);
        gridFigures.push_back({field, figure.member});
    }
    return page;
}

QLayout* GeodesyDialog::MakeDatum() {
    auto* const form = new QFormLayout;
    ellipsoids = new QComboBox;
    for (std::int32_t row = 0; row < CEllipsoid::kCatalogueRows; ++row) {
        CEllipsoid ellipsoid;
        if (!ellipsoid.SetEllipsoid(row)) continue;
        const QString name = ToQString(ellipsoid.name);
        ellipsoids->addItem(ellipsoid.comment.empty() ? name : name + " " + ToQString(ellipsoid.comment), row);
    }
    ellipsoids->addItem("Own axes", GeodesyChoice::kOwn);
    ellipsoids->setMaxVisibleItems(20);
    connect(ellipsoids, &QComboBox::currentIndexChanged, this, [this] { Follow(); });
    form->addRow("&Ellipsoid", ellipsoids);
    auto* const own = new QHBoxLayout;
    own->addWidget(ownEllipsoid = new QLineEdit, 2);
    ownEllipsoid->setPlaceholderText("Name");
    connect(ownEllipsoid, &QLineEdit::textChanged, this, [this] { Follow(); });
    const struct {
        const char* tip;
        double GeodesyChoice::*member;
    } figures[] = {{"Semi-major axis, metres", &GeodesyChoice::semiMajor},
                   {"Inverse flattening", &GeodesyChoice::inverseFlattening}};
    for (const auto& figure : figures) {
        auto* const field = new QLineEdit;
        field->setToolTip(figure.tip);
        field->setAccessibleName(figure.tip);
        connect(field, &QLineEdit::textChanged, this, [this] { Follow(); });
        own->addWidget(field, 1);
        axes.push_back({field, figure.member});
    }
    form->addRow("Own axes", own);
    auto* const shift = new QHBoxLayout;
    shift->addWidget(shiftFile = new QLineEdit);
    shiftFile->setPlaceholderText("None; a grid shift file that belongs to the job is kept here, not applied");
    connect(shiftFile, &QLineEdit::textChanged, this, [this] { Follow(); });
    auto* const browse = new QPushButton("&Browse...");
    connect(browse, &QPushButton::clicked, this, [this] { ChooseShiftFile(); });
    shift->addWidget(browse);
    form->addRow("Shift file", shift);
    return form;
}

void GeodesyDialog::ChooseShiftFile() {
    const QString file = QFileDialog::getOpenFileName(this, "Grid Shift File", shiftFile->text(),
                                                      "Grid shift files (*.gsb *.GSB);;All files (*)", nullptr,
                                                      QFileDialog::DontUseNativeDialog);
    if (!file.isEmpty()) shiftFile->setText(file);
}

void GeodesyDialog::ShowChoice() {
    showing = true;
    const bool own = choice.zone == GeodesyChoice::kOwn;
    tabs->setCurrentIndex(own ? kOwnTab : 0);
    for (const Figure& figure : gridFigures) figure.field->setText(FigureText(choice.*figure.member));
    for (const Figure& figure : axes) figure.field->setText(FigureText(choice.*figure.member));
    if (own) projection->setCurrentIndex(static_cast<int>(ProjectionOf(choice)));
    ownName->setText(ToQString(choice.gridName));
    ownEllipsoid->setText(ToQString(choice.ellipsoidName));
    shiftFile->setText(ToQString(choice.shiftFile));
    ellipsoids->setCurrentIndex(ellipsoids->findData(choice.ellipsoid));
    ListGrids();
    if (!own) SelectGrid(choice.type, choice.zone);
    showing = false;
    Follow();
    if (!own && (choice.type == UTM_GRID || choice.type == NORWEGIAN_AXES)) {
        variant->setCurrentIndex(variant->findData(choice.subtype));
    }
}

void GeodesyDialog::ListGrids() {
    const QTreeWidgetItem* const before = grids->currentItem();
    const auto type = before ? before->data(0, kTypeRole).toInt() : choice.type;
    const auto zone = before ? before->data(0, kZoneRole).toInt() : choice.zone;
    const bool wasShowing = std::exchange(showing, true);
    grids->clear();
    QList<QTreeWidgetItem*> items;
    for (const GridListing* const grid : FindGrids(FromQString(search->text()))) {
        auto* const item = new QTreeWidgetItem({ToQString(grid->name), ToQString(grid->family), ToQString(grid->area)});
        item->setData(0, kTypeRole, grid->type);
        item->setData(0, kZoneRole, grid->zone);
        items.push_back(item);
    }
    grids->addTopLevelItems(items);
    SelectGrid(type, zone);
    if (!grids->currentItem() && !items.isEmpty()) grids->setCurrentItem(items.front());
    showing = wasShowing;
    Follow();
}

void GeodesyDialog::SelectGrid(std::int32_t type, std::int32_t zone) {
    for (int row = 0; row < grids->topLevelItemCount(); ++row) {
        QTreeWidgetItem* const item = grids->topLevelItem(row);
        if (item->data(0, kTypeRole).toInt() != type || item->data(0, kZoneRole).toInt() != zone) continue;
        grids->setCurrentItem(item);
        grids->scrollToItem(item, QAbstractItemView::PositionAtCenter);
        return;
    }
}

bool GeodesyDialog::TakeFigures(GeodesyChoice& wanted, const std::vector<Figure>& figures) const {
    bool all = true;
    for (const Figure& figure : figures) all = ReadFigure(figure.field->text(), wanted.*figure.member) && all;
    return all;
}

bool GeodesyDialog::TakeFields(GeodesyChoice& wanted) const {
    wanted.chosen = true;
    wanted.ellipsoid = ellipsoids->currentData().toInt();
    wanted.ellipsoidName = FromQString(ownEllipsoid->text());
    wanted.gridName = FromQString(ownName->text());
    wanted.shiftFile = FromQString(shiftFile->text());
    const bool own = tabs->currentIndex() == kOwnTab;
    const bool areAxes = TakeFigures(wanted, axes) || wanted.ellipsoid != GeodesyChoice::kOwn;
    const bool areFigures = TakeFigures(wanted, gridFigures) || !own;
    if (own) {
        const OwnProjection& chosen = kProjections[static_cast<std::size_t>(projection->currentIndex())];
        wanted.type = chosen.type;
        wanted.subtype = chosen.subtype;
        wanted.zone = GeodesyChoice::kOwn;
        return areAxes && areFigures;
    }
    const QTreeWidgetItem* const item = grids->currentItem();
    if (!item) return false;
    wanted.type = item->data(0, kTypeRole).toInt();
    wanted.zone = item->data(0, kZoneRole).toInt();
    wanted.subtype = variant->count() > 0 ? variant->currentData().toInt() : 0;
    return areAxes;
}

void GeodesyDialog::Follow() {
    if (showing || !take) return;
    // A grid of two forms, or of eight, asks for the one meant.
    const QTreeWidgetItem* const item = grids->currentItem();
    const int type = item ? item->data(0, kTypeRole).toInt() : -1;
    if (variant->property("type").toInt() != type || variant->count() == 0) {
        showing = true;
        variant->setProperty("type", type);
        variant->clear();
        if (type == UTM_GRID) {
            variant->addItem("Northern hemisphere", 0);
            variant->addItem("Southern hemisphere", 1);
        }
        for (int axis = 1; type == NORWEGIAN_AXES && axis <= 8; ++axis)
            variant->addItem(QString("Axis %1").arg(axis), axis);
        showing = false;
    }
    variant->setVisible(variant->count() > 0);
    variantLabel->setVisible(variant->count() > 0);
    variantLabel->setText(type == NORWEGIAN_AXES ? "Axis" : "Hemisphere");
    const bool ownAxes = ellipsoids->currentData().toInt() == GeodesyChoice::kOwn;
    ownEllipsoid->setEnabled(ownAxes);
    for (const Figure& figure : axes) figure.field->setEnabled(ownAxes);

    GeodesyChoice wanted = choice;
    const bool areNumbers = TakeFields(wanted);
    // A trial of its own: the job keeps its grid until the choice is taken.
    CJobGeodesy trial(files);
    const GEODESY_FAULT fault = areNumbers ? trial.Choose(wanted) : GEODESY_FAULT::NONE;
    const bool usable = areNumbers && fault == GEODESY_FAULT::NONE;
    take->setEnabled(usable);
    if (usable) {
        choice = wanted;
        told->setText(ToQString(trial.GridText() + " on " + trial.DatumText()));
        ellipsoids->setToolTip(trial.Grid().ellipsoidFixed ? "This grid brings an ellipsoid of its own" : "");
        ellipsoids->setEnabled(!trial.Grid().ellipsoidFixed);
    } else if (!item && tabs->currentIndex() != kOwnTab) {
        told->setText("No grid has these words.");
    } else {
        told->setText(areNumbers ? "This can't be used: " + ToQString(FaultText(fault)) + "."
                                 : "A figure is missing or is no number; type a point, not a comma.");
    }
    QPalette colours = palette();
    if (!usable) colours.setColor(QPalette::WindowText, WarningOn(colours.color(QPalette::Window)));
    told->setPalette(colours);
}

}  // namespace quillon

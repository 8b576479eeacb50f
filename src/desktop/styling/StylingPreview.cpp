// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/AnnotationPreview.h"
#include "desktop/application/ProgressPanel.h"
#include "desktop/application/Texts.h"
#include "desktop/map/MapView.h"
#include "desktop/styling/StylingForm.h"
#include "desktop/styling/frmBkgndStyle.h"
#include "platform/AsciiCase.h"
#include "render/RoundLengths.h"
#include "render/package/StylePens.h"
#include "util/Numbers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <cmath>

/// The drawing of the styling window, and how the style looks on it.
namespace vexlator::desktop {

namespace {

using background::DrawingChange;
using render::Box;

constexpr render::Argb flashColour = 0xFFFF7800;
constexpr std::int32_t flashWeight = 90;  ///< hundredths of a millimetre
constexpr int flashes = 4;                ///< on, off, on, off

/// Packages round coordinates.
bool AreAlike(const Box& a, const Box& b) {
    double slack = 0.02 * std::max({a.maxX - a.minX, a.maxY - a.minY, 1e-9});
    return std::abs(a.minX - b.minX) <= slack && std::abs(a.minY - b.minY) <= slack &&
           std::abs(a.maxX - b.maxX) <= slack && std::abs(a.maxY - b.maxY) <= slack;
}

}  // namespace

// --- Work

void frmBkgndStyle::Work(const QString& what, std::function<void(config::Run&)> work,
                         std::function<void()> done) {
    if (run_.IsRunning()) return;
    statusBar()->showMessage(what);
    run_.Start(std::move(work), [this, done = std::move(done)](bool isDone) {
        progress_->Stop({});
        statusBar()->removeWidget(progress_);
        statusBar()->clearMessage();
        UpdateControls();
        if (isDone) done();
    });
    progress_->Follow(run_.Talk());
    // A status bar is as high as whatever is in it, hidden or not.
    statusBar()->addPermanentWidget(progress_, 1);
    progress_->show();
    UpdateControls();
}

void frmBkgndStyle::Read(const DrawingOrder& order, std::function<void()> done) {
    auto shown = std::make_shared<std::shared_ptr<const StyledDrawing>>();
    Work(
        Texts::tr("Reading the drawing…"), [=](config::Run& run) { *shown = ReadStyledDrawing(run, order); },
        [this, shown, done = std::move(done)] {
            TakeDrawing(*shown);
            done();
        });
}

void frmBkgndStyle::TakeDrawing(std::shared_ptr<const StyledDrawing> shown) {
    shown_ = std::move(shown);
    mapShowsPackage_ = false;
    ShowScene(shown_->scene);
    form_->ShowEntity({});
    ShowLists();
    ShowTitle();
    UpdateControls();
    Restyle();
}

void frmBkgndStyle::ShowScene(std::shared_ptr<const render::Scene> scene) {
    Box ground = form_->map->Shown().Ground();
    bool staysInPlace = AreAlike(extents_, scene->Extents());
    extents_ = scene->Extents();
    flash_.stop();
    if (scene->ItemCount() == 0) {
        form_->map->SetScene(nullptr);
        return form_->map->SetNotice(Texts::tr("There is nothing to see in it."));
    }
    form_->map->SetScene(std::move(scene));
    if (staysInPlace) form_->map->ShowGround(ground);
}

void frmBkgndStyle::CatchUp() {
    if (!shown_ || run_.IsRunning()) return;
    if (shown_->order.changes != state_.changes) {
        DrawingOrder order = shown_->order;
        order.changes = state_.changes;
        return Read(order, [this] { CatchUp(); });
    }
    bool isOnMap = mapShowsPackage_ && onDevice_ == state_;
    if (form_->btnDevice->isChecked() && !isOnMap) deviceLater_.start();
}

// --- Changes of the drawing

void frmBkgndStyle::ChangeDrawing(const QString& what, const DrawingChange& change, const QString& told) {
    DrawingOrder order = shown_->order;
    order.changes.push_back(change);
    Read(order, [this, what, change, told] {
        background::StyledState after = state_;
        after.changes = shown_->order.changes;
        if (change.kind == DrawingChange::Kind::Relayer) {
            after.style.layerOnField = change.field;
            AddMissingLayers(after.style.rows, shown_->layers);
        }
        Change(what, std::move(after));
        if (!told.isEmpty()) Tell(told);
    });
}

void frmBkgndStyle::ShowAnnotation() {
    QString caption = form_->btnApplyAnno->text();
    form_->btnApplyAnno->setText(Texts::tr("busy"));
    DrawingOrder order = shown_->order;
    order.annotation = state_.style;
    auto shown = std::make_shared<std::shared_ptr<const StyledDrawing>>();
    run_.Start([=](config::Run& run) { *shown = ReadStyledDrawing(run, order); },
               [this, shown, caption](bool isDone) {
                   form_->btnApplyAnno->setText(caption);
                   form_->btnDevice->setChecked(false);
                   if (isDone) TakeDrawing(*shown);
                   UpdateControls();
                   CatchUp();
               });
    UpdateControls();
}

void frmBkgndStyle::ListAttributes() {
    form_->lstXprops->clear();
    for (const std::string& name : shown_->attributes) form_->lstXprops->addItem(Text(name));
    if (shown_->attributes.empty())
        statusBar()->showMessage(Texts::tr("The drawing has no attributes"), 5000);
}

void frmBkgndStyle::AskToRelayer() {
    const QListWidgetItem* item = form_->lstXprops->currentItem();
    if (!item || !shown_ || run_.IsRunning()) return;
    QString name = item->text();
    if (!Asks(Texts::tr("Are you sure you want to relayer on Propery:'%1'").arg(name))) return;
    ChangeDrawing(Texts::tr("relayering"),
                  {.kind = DrawingChange::Kind::Relayer, .field = name.toStdString()}, {});
}

void frmBkgndStyle::RunTool() {
    enum Tool { Scale, Move };
    switch (form_->lstTools->currentIndex()) {
        case Scale:
            if (Asks(Texts::tr("Scale draing from ft into metres")))
                ChangeDrawing(Texts::tr("scaling"), {.kind = DrawingChange::Kind::ScaleFeetToMetres},
                              Texts::tr("Scaled OK"));
            break;
        case Move:
            Tell(Texts::tr("Move Drawing from one coordinate to another"));
            picksPlace_ = true;
            form_->map->setCursor(Qt::CrossCursor);
            form_->map->setFocus();
            statusBar()->showMessage(
                Texts::tr("Click the point on the map that is to be moved, or press Enter for the middle; "
                          "Escape ends"));
            break;
        default:
            form_->map->Fit();
    }
}

void frmBkgndStyle::EndPicking() {
    picksPlace_ = false;
    form_->map->unsetCursor();
    statusBar()->clearMessage();
}

void frmBkgndStyle::Move(render::PlanePoint from) {
    EndPicking();
    int decimals = std::max(2, render::DecimalsOf(1 / form_->map->Shown().Scale()));
    from = {util::RoundFixed(from.x, decimals), util::RoundFixed(from.y, decimals)};
    QString text = Text(background::PlaceText(from));
    for (bool isEntered = true;;) {
        text = QInputDialog::getText(this, Texts::tr("Move"), Texts::tr("Move To.."), QLineEdit::Normal, text,
                                     &isEntered);
        if (!isEntered) return;
        if (auto to = background::PlaceOf(text.toStdString()))
            return ChangeDrawing(Texts::tr("move"),
                                 {.kind = DrawingChange::Kind::Move, .from = from, .to = *to},
                                 Texts::tr("Moved OK"));
        Tell(Texts::tr("Two numbers with a comma between, as in %1").arg(Text(background::PlaceText(from))));
    }
}

// --- What was clicked

void frmBkgndStyle::ShowEntity(std::optional<std::size_t> item) {
    form_->ShowEntity({});
    if (!item || !shown_ || mapShowsPackage_) return;
    drawing::Entity entity = shown_->drawing->entityAt(shown_->scene->SourceOf(*item).entity);
    QStringList lines;
    for (const std::string& line : background::EntityLines(entity)) lines << Text(line);
    form_->ShowEntity(lines.join(QStringLiteral("   ")));
    if (entity.layerName() != background::annotationLayer) SelectLayer(entity.layerName());
}

void frmBkgndStyle::SelectLayer(const std::string& layer) {
    auto row = background::RowOfLayer(state_.style.rows, layer);
    if (!row) {
        if (!background::CanStandInStyle(layer))
            return statusBar()->showMessage(
                Texts::tr("A style file cannot hold the name of layer %1: it looks like DEFAULT")
                    .arg(Text(layer)),
                8000);
        if (!Asks(Text(layer) + Texts::tr(" layer Not Found. Add Now?"))) return;
        ChangeStyle(Texts::tr("row for a layer"), [&](auto& style) {
            style.rows.push_back(background::StyleRow{layer, "", "", ""});
        });
        row = state_.style.rows.size() - 1;
    }
    QModelIndex index = table_.index(static_cast<int>(*row), 0);
    form_->grdStyle->setCurrentIndex(index);
    form_->grdStyle->scrollTo(index);
}

// --- Looks

void frmBkgndStyle::Restyle() {
    if (!shown_ || mapShowsPackage_) return;
    std::vector<background::StyleRow> rows = state_.style.rows;
    if (form_->chkSimple->isChecked()) UseOneColour(rows);
    styles_ = std::make_unique<background::LayerStyles>(rows, table_.Mobile());
    render::StyledLayers styled = StyleLayers(*shown_->scene, *styles_, table_.Mobile());
    pens_ = std::move(styled.pens);
    hidden_ = std::move(styled.hidden);
    flash_.stop();
    form_->map->SetStyle(pens_, hidden_);
}

/// The layers of a row light up for a moment, hidden ones too.
void frmBkgndStyle::Flash(int row) {
    if (row == flashRow_) return;
    flashRow_ = row;
    if (!shown_ || mapShowsPackage_ || !styles_) return;
    form_->map->SetStyle(pens_, hidden_);
    flashesLeft_ = flashes;
    flash_.start();
}

void frmBkgndStyle::ShowFlash() {
    bool isOn = flashesLeft_-- % 2 == 0, isOver = flashesLeft_ < 0 || flashRow_ < 0;
    if (isOver) flash_.stop();
    if (isOver || !isOn) return form_->map->SetStyle(pens_, hidden_);
    const std::string& name = state_.style.rows.at(static_cast<std::size_t>(flashRow_)).layer;
    bool isDefault = platform::SameNoCase(name, background::defaultRowName);
    render::Pen lit;
    lit.line = flashColour;
    lit.fill = render::WithAlpha(flashColour, 0x80);
    lit.weight = flashWeight;
    render::LayerPens pens = pens_;
    std::vector<bool> hidden = hidden_;
    std::span<const render::SceneLayer> layers = shown_->scene->Layers();
    for (std::size_t i = 0; i < layers.size(); ++i) {
        bool isLit = isDefault ? styles_->StyleFor(layers[i].name) == styles_->StyleFor(name)
                               : platform::SameNoCase(layers[i].name, name);
        if (!isLit) continue;
        hidden[i] = false;
        for (std::size_t column = 0; column < render::pensPerLayer; ++column)
            pens[i * render::pensPerLayer + column] = lit;
    }
    form_->map->SetStyle(std::move(pens), std::move(hidden));
}

void frmBkgndStyle::ShowDevice() {
    if (!shown_ || run_.IsRunning()) return;
    if (!form_->btnDevice->isChecked()) return TakeDrawing(shown_);
    auto scene = std::make_shared<std::shared_ptr<const render::Scene>>();
    bool isSimple = form_->chkSimple->isChecked();
    background::StyledState state = state_;
    statusBar()->showMessage(Texts::tr("Building the package…"));
    run_.Start([=, order = shown_->order](
                   config::Run& run) { *scene = DeviceScene(run, order, state.style, isSimple); },
               [this, scene, state](bool isDone) {
                   statusBar()->clearMessage();
                   UpdateControls();
                   if (!isDone) form_->btnDevice->setChecked(false);
                   if (!form_->btnDevice->isChecked()) return CatchUp();
                   onDevice_ = state;
                   mapShowsPackage_ = true;
                   form_->ShowEntity({});
                   ShowScene(*scene);
                   CatchUp();
               });
    UpdateControls();
}

}  // namespace vexlator::desktop

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/styling/StylingForm.h"

#include "desktop/application/Texts.h"
#include "desktop/map/MapView.h"
#include "desktop/mobilestyles/StyleSample.h"
#include "desktop/styling/LookDelegate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleValidator>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace vexlator::desktop {

namespace {

QHBoxLayout* Row(std::initializer_list<QWidget*> widgets) {
    auto* row = new QHBoxLayout;
    for (QWidget* widget : widgets) row->addWidget(widget);
    row->addStretch(1);
    return row;
}

/// Nothing is a height too: that of each feature.
class HeightValidator : public QDoubleValidator {
public:
    explicit HeightValidator(QObject* parent) : QDoubleValidator(0, 1e9, 6, parent) {
        setNotation(StandardNotation);
        setLocale(QLocale::c());
    }
    State validate(QString& text, int& position) const override {
        return text.isEmpty() ? Acceptable : QDoubleValidator::validate(text, position);
    }
    void fixup(QString& text) const override { text.clear(); }
};

}  // namespace

StylingForm::StylingForm(QAbstractItemModel& rows) : looks(new LookDelegate(this)), map(new MapView) {
    MakeGrid(rows);
    auto* left = new QSplitter(Qt::Vertical);
    left->addWidget(Rows());
    left->addWidget(Lists());
    left->setStretchFactor(0, 3);
    left->setStretchFactor(1, 1);
    left->setChildrenCollapsible(false);
    left->setSizes({fontMetrics().height() * 24, fontMetrics().height() * 14});
    auto* halves = new QSplitter;
    halves->addWidget(left);
    halves->addWidget(Preview());
    halves->setStretchFactor(0, 5);
    halves->setStretchFactor(1, 6);
    halves->setSizes({fontMetrics().averageCharWidth() * 110, fontMetrics().averageCharWidth() * 80});
    halves->setChildrenCollapsible(false);
    auto* column = new QVBoxLayout(this);
    column->addWidget(halves);
}

QPushButton* StylingForm::Button(const char* name, const char* caption, const char* help) {
    auto* button = new QPushButton(Texts::tr(caption));
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(Texts::tr(help));
    return button;
}

QLabel* StylingForm::Label(const char* caption, QWidget* buddy) {
    auto* label = new QLabel(Texts::tr(caption));
    label->setBuddy(buddy);
    return label;
}

QListWidget* StylingForm::List(const char* name, const char* purpose) {
    auto* list = new QListWidget;
    list->setObjectName(QString::fromLatin1(name));
    list->setAccessibleName(Texts::tr(purpose));
    list->setToolTip(Texts::tr(purpose));
    list->setItemDelegate(new ClearCheckDelegate(list));
    list->setMinimumHeight(fontMetrics().height() * 5);
    return list;
}

void StylingForm::MakeGrid(QAbstractItemModel& rows) {
    grdStyle = new QTableView;
    grdStyle->setObjectName(QStringLiteral("grdStyle"));
    grdStyle->setAccessibleName(Texts::tr("Styles of the layers"));
    grdStyle->setModel(&rows);
    grdStyle->setItemDelegate(looks);
    grdStyle->setIconSize(SampleSize());
    grdStyle->setMouseTracking(true);
    grdStyle->setAlternatingRowColors(true);
    grdStyle->setWordWrap(false);
    grdStyle->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                              QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    grdStyle->verticalHeader()->hide();
    grdStyle->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 12);
    QHeaderView* header = grdStyle->horizontalHeader();
    header->setHighlightSections(false);
    header->setMinimumSectionSize(fontMetrics().averageCharWidth() * 7);
    header->setResizeContentsPrecision(0);  // rows that are seen: a style may have thousands
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    grdStyle->setMinimumWidth(fontMetrics().averageCharWidth() * 78);
}

QWidget* StylingForm::Rows() {
    btnStyleSerach = Button("btnStyleSerach", QT_TRANSLATE_NOOP("vexlator", "&Open style…"),
                            QT_TRANSLATE_NOOP("vexlator", "Opens a background styling file"));
    btnSave = Button("btnSave", QT_TRANSLATE_NOOP("vexlator", "&Save style…"),
                     QT_TRANSLATE_NOOP("vexlator", "Writes the background styling file"));
    btnReset = Button("btnReset", QT_TRANSLATE_NOOP("vexlator", "Rese&t"),
                      QT_TRANSLATE_NOOP("vexlator", "Empties the style and lists the drawing's layers anew"));
    btnGetLayers = Button("btnGetLayers", QT_TRANSLATE_NOOP("vexlator", "&Get layers"),
                          QT_TRANSLATE_NOOP("vexlator", "Adds a row for every layer that has none"));
    btnApply = Button("btnApply", QT_TRANSLATE_NOOP("vexlator", "&Apply"),
                      QT_TRANSLATE_NOOP("vexlator", "Shows the styles on the map; changes show at once too"));
    btnMobileStyleEditor = Button("btnMobileStyleEditor", QT_TRANSLATE_NOOP("vexlator", "&Mobile styles…"),
                                  QT_TRANSLATE_NOOP("vexlator", "Opens the mobile style file in its editor"));
    chkSimple = new QCheckBox(Texts::tr("S&imple styling"));
    chkSimple->setObjectName(QStringLiteral("chkSimple"));
    chkSimple->setPalette(WithClearChecks(chkSimple->palette()));
    chkSimple->setToolTip(Texts::tr("One colour serves points, lines and areas"));
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(Row({btnStyleSerach, btnSave, btnReset}));
    column->addWidget(grdStyle, 1);
    column->addLayout(Row({btnGetLayers, btnApply, btnMobileStyleEditor, chkSimple}));
    return box;
}

QWidget* StylingForm::Lists() {
    auto* tabs = new QTabWidget;
    tabs->addTab(AttributePage(), Texts::tr("Attributes"));
    tabs->addTab(AnnotationPage(), Texts::tr("Annotation"));
    tabs->addTab(LayerPage(), Texts::tr("Relayer"));
    tabs->addTab(ToolPage(), Texts::tr("Tools"));
    return tabs;
}

QWidget* StylingForm::AttributePage() {
    lstOptimisedXprops =
        List("lstOptimisedXprops", QT_TRANSLATE_NOOP("vexlator", "Attributes that the package keeps"));
    cboSearch = new QComboBox;
    cboSearch->setObjectName(QStringLiteral("cboSearch"));
    cboSearch->setAccessibleName(Texts::tr("Attribute that the device can search by"));
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(Label(QT_TRANSLATE_NOOP("vexlator", "&Kept in the package:"), lstOptimisedXprops));
    column->addWidget(lstOptimisedXprops, 1);
    column->addLayout(Row({Label(QT_TRANSLATE_NOOP("vexlator", "Sea&rch by:"), cboSearch), cboSearch}));
    return page;
}

QWidget* StylingForm::AnnotationPage() {
    lstAnnotationFields =
        List("lstAnnotationFields",
             QT_TRANSLATE_NOOP("vexlator",
                               "Attributes shown as annotation, in this order; drag to reorder, or press "
                               "Alt+Up and Alt+Down"));
    lstAnnotationFields->setDragDropMode(QAbstractItemView::InternalMove);
    txtAnnoHeight = new QLineEdit;
    txtAnnoHeight->setObjectName(QStringLiteral("txtAnnoHeight"));
    txtAnnoHeight->setAccessibleName(Texts::tr("Fixed height of annotation, in units of the drawing"));
    txtAnnoHeight->setPlaceholderText(Texts::tr("by feature"));
    txtAnnoHeight->setValidator(new HeightValidator(txtAnnoHeight));
    txtAnnoHeight->setMaximumWidth(fontMetrics().averageCharWidth() * 16);
    btnApplyAnno = Button("btnApplyAnno", QT_TRANSLATE_NOOP("vexlator", "Apply"),
                          QT_TRANSLATE_NOOP("vexlator", "Shows the annotation on the map"));
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(Label(QT_TRANSLATE_NOOP("vexlator", "S&hown as annotation:"), lstAnnotationFields));
    column->addWidget(lstAnnotationFields, 1);
    column->addLayout(Row({Label(QT_TRANSLATE_NOOP("vexlator", "Fi&xed height:"), txtAnnoHeight),
                           txtAnnoHeight, btnApplyAnno}));
    return page;
}

QWidget* StylingForm::LayerPage() {
    lstXprops = List("lstXprops", QT_TRANSLATE_NOOP("vexlator", "Attributes to relayer the drawing by"));
    btnLayerByXProp = Button("btnLayerByXProp", QT_TRANSLATE_NOOP("vexlator", "&List attributes"),
                             QT_TRANSLATE_NOOP("vexlator",
                                               "Lists the drawing's attributes; the one that you "
                                               "choose names the layers"));
    lblLayerOn = new QLabel;
    lblLayerOn->setObjectName(QStringLiteral("lblLayerOn"));
    auto* help = new QLabel(Texts::tr("The value of the attribute becomes the feature's layer."));
    help->setWordWrap(true);
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(help);
    column->addWidget(lstXprops, 1);
    column->addLayout(Row({btnLayerByXProp, lblLayerOn}));
    return page;
}

QWidget* StylingForm::ToolPage() {
    lstTools = new QComboBox;
    lstTools->setObjectName(QStringLiteral("lstTools"));
    lstTools->setAccessibleName(Texts::tr("Tools"));
    lstTools->addItem(Texts::tr("Scale"));
    lstTools->addItem(Texts::tr("Move"));
    lstTools->addItem(Texts::tr("Show"));
    cmdTools = Button("cmdTools", QT_TRANSLATE_NOOP("vexlator", "&Run"),
                      QT_TRANSLATE_NOOP("vexlator", "Runs the chosen tool on the drawing"));
    auto* help =
        new QLabel(Texts::tr("Scale: from feet into metres. Move: a point that you click lands on "
                             "coordinates that you type. Show: the whole drawing."));
    help->setWordWrap(true);
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addLayout(Row({Label(QT_TRANSLATE_NOOP("vexlator", "Too&l:"), lstTools), lstTools, cmdTools}));
    column->addWidget(help);
    column->addStretch(1);
    return page;
}

void StylingForm::ShowEntity(const QString& lines) {
    lblEntity->setText(lines.isEmpty() ? Texts::tr("Click a feature to see what it is and to select its row.")
                                       : lines);
}

QWidget* StylingForm::Preview() {
    btnPreview = Button("btnPreview", QT_TRANSLATE_NOOP("vexlator", "&Preview a file…"),
                        QT_TRANSLATE_NOOP("vexlator", "Opens a drawing, or a GIS or CAD file"));
    btnDevice = Button("btnDevice", QT_TRANSLATE_NOOP("vexlator", "As on the &device"),
                       QT_TRANSLATE_NOOP("vexlator", "Builds the package and shows what is in it"));
    btnDevice->setCheckable(true);
    btnQuickConvert =
        Button("btnQuickConvert", QT_TRANSLATE_NOOP("vexlator", "&Quick convert"),
               QT_TRANSLATE_NOOP("vexlator", "Hands drawing and style to the selection window, for Go"));
    map->setObjectName(QStringLiteral("drawing"));
    map->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    lblEntity = new QLabel;
    lblEntity->setObjectName(QStringLiteral("lblEntity"));
    lblEntity->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    lblEntity->setWordWrap(true);
    lblEntity->setAccessibleName(Texts::tr("The feature that was clicked"));
    lblEntity->setMinimumHeight(fontMetrics().height() * 2);
    ShowEntity({});
    auto* box = new QWidget;
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(Row({btnPreview, btnDevice, btnQuickConvert}));
    column->addWidget(map, 1);
    column->addWidget(lblEntity);
    return box;
}

}  // namespace vexlator::desktop

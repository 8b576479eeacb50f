// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableView;
class QToolButton;
class QAbstractItemModel;

namespace vexlator::desktop {

class MapView;
class LookDelegate;

/// The controls of the styling window, where they stand. Their names are those of the members.
class StylingForm : public QWidget {
public:
    explicit StylingForm(QAbstractItemModel& rows);

    QPushButton *btnStyleSerach, *btnSave, *btnGetLayers, *btnReset, *btnApply, *btnMobileStyleEditor,
        *btnLayerByXProp, *btnApplyAnno, *btnPreview, *btnQuickConvert, *btnDevice, *cmdTools;
    QTableView* grdStyle;
    LookDelegate* looks;
    QListWidget *lstXprops, *lstOptimisedXprops, *lstAnnotationFields;
    QComboBox *cboSearch, *lstTools;
    QLineEdit* txtAnnoHeight;
    QCheckBox* chkSimple;
    QLabel *lblEntity, *lblLayerOn;
    MapView* map;

    /// What was clicked; "": nothing.
    void ShowEntity(const QString& lines);

private:
    QPushButton* Button(const char* name, const char* caption, const char* help);
    QLabel* Label(const char* caption, QWidget* buddy);
    QListWidget* List(const char* name, const char* purpose);
    void MakeGrid(QAbstractItemModel& rows);
    QWidget* Rows();
    QWidget* Lists();
    QWidget* AttributePage();
    QWidget* AnnotationPage();
    QWidget* LayerPage();
    QWidget* ToolPage();
    QWidget* Preview();
};

}  // namespace vexlator::desktop

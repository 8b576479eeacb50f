// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/mobilestyles/MobileFieldDelegate.h"

#include "background/styling/MobileStyleLook.h"
#include "background/styling/MobileStyles.h"
#include "desktop/application/Texts.h"
#include "desktop/mobilestyles/MobileStyleTable.h"
#include "desktop/mobilestyles/StyleSample.h"

#include <QColorDialog>
#include <QComboBox>
#include <algorithm>

namespace vexlator::desktop {

namespace {

using background::MobileField;

void AddColours(QComboBox& box) {
    box.setIconSize(SampleSize());
    for (const background::NamedColour& colour : background::styleColours)
        box.addItem(ColourIcon(Text(colour.name)), Text(colour.name));
    box.addItem(Texts::tr("Other colour…"));
    QObject::connect(&box, &QComboBox::activated, &box, [&box](int chosen) {
        if (chosen != box.count() - 1) return;
        QColor colour = QColorDialog::getColor(Qt::black, &box);
        box.setEditText(colour.isValid() ? colour.name() : QString());
    });
}

void AddChoices(QComboBox& box, MobileField field) {
    if (field == MobileField::Type) box.addItems({"P", "S", "A"});
    if (field == MobileField::Colour) AddColours(box);
    if (field == MobileField::Pattern)
        for (std::string_view name : background::mobilePatterns) box.addItem(Text(name));
    if (field == MobileField::Symbol)
        for (std::string_view name : background::mobileSymbols) box.addItem(Text(name));
}

}  // namespace

QWidget* MobileFieldDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                           const QModelIndex& index) const {
    MobileField field = MobileStyleTable::FieldOf(index.column());
    if (field == MobileField::Name || field == MobileField::Width)
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    AddChoices(*box, field);
    box->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return box;
}

/// Lists are wider than the cells that they choose for.
void MobileFieldDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                               const QModelIndex&) const {
    QRect place = option.rect;
    place.setWidth(std::max(place.width(), editor->sizeHint().width()));
    place.moveRight(std::min(place.right(), editor->parentWidget()->width() - 1));
    editor->setGeometry(place);
}

void MobileFieldDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* box = qobject_cast<QComboBox*>(editor);
    if (!box) return QStyledItemDelegate::setEditorData(editor, index);
    QString value = index.data(Qt::EditRole).toString();
    box->setCurrentIndex(box->findText(value, Qt::MatchFixedString));
    box->setEditText(value);
}

void MobileFieldDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                       const QModelIndex& index) const {
    auto* box = qobject_cast<QComboBox*>(editor);
    if (!box) return QStyledItemDelegate::setModelData(editor, model, index);
    model->setData(index, box->currentText().trimmed(), Qt::EditRole);
}

}  // namespace vexlator::desktop

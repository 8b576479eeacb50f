// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/styling/LookDelegate.h"

#include "desktop/application/Texts.h"
#include "desktop/mobilestyles/StyleSample.h"
#include "desktop/styling/StyleTable.h"

#include <QComboBox>
#include <QListView>
#include <QStandardItemModel>
#include <QTimer>

namespace vexlator::desktop {

namespace {

enum LookRole { NameRole = Qt::UserRole, SelectsFileRole };

void AddLook(QComboBox& box, const StyleTable& table, background::StyleColumn column, const QString& name) {
    QString number = table.NumberText(name);
    QString shown = number.isEmpty() ? name : Texts::tr("%1 (%2)").arg(name, number);
    box.addItem(table.IconOf(column, name), shown, name);
}

void AddLine(QComboBox& box, const QString& line) {
    box.addItem(line);
    qobject_cast<QStandardItemModel*>(box.model())->item(box.count() - 1)->setEnabled(false);
}

/// The entries of the column's list, which bars separate.
void AddLooks(QComboBox& box, const StyleTable& table, background::StyleColumn column) {
    QStringList entries =
        Text(table.Mobile().ListFor(background::MobileTypeOf(column))).split(QLatin1Char('|'));
    QString selectFile = entries.takeLast();
    for (const QString& entry : entries)
        if (entry.startsWith(QLatin1String("-----")))
            AddLine(box, entry);
        else
            AddLook(box, table, column, entry);
    box.addItem(selectFile);
    box.setItemData(box.count() - 1, true, SelectsFileRole);
}

}  // namespace

QWidget* LookDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    auto* table = dynamic_cast<const StyleTable*>(index.model());
    if (!table || !IsLook(StyleTable::ColumnOf(index)))
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto* box = new QComboBox(parent);
    box->setAccessibleName(table->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    box->setIconSize(SampleSize());
    AddLooks(*box, *table, StyleTable::ColumnOf(index));
    box->view()->setMinimumWidth(box->view()->sizeHintForColumn(0) + 24);
    connect(box, &QComboBox::activated, this, [this, box](int chosen) {
        auto* delegate = const_cast<LookDelegate*>(this);
        bool selectsFile = box->itemData(chosen, SelectsFileRole).toBool();
        if (!selectsFile) emit delegate->commitData(box);
        emit delegate->closeEditor(box);
        if (selectsFile && selectFile) selectFile();
    });
    QTimer::singleShot(0, box, [box] { box->showPopup(); });
    return box;
}

void LookDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* box = qobject_cast<QComboBox*>(editor);
    if (!box) return QStyledItemDelegate::setEditorData(editor, index);
    // The entries that are no looks have no name either.
    QString look = index.data(Qt::EditRole).toString();
    box->setCurrentIndex(look.isEmpty() ? -1 : box->findData(look, NameRole, Qt::MatchFixedString));
}

void LookDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    auto* box = qobject_cast<QComboBox*>(editor);
    if (!box) return QStyledItemDelegate::setModelData(editor, model, index);
    QVariant name = box->currentData(NameRole);
    if (name.isValid()) model->setData(index, name, Qt::EditRole);
}

void LookDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    ClearCheckDelegate::initStyleOption(option, index);
    option->decorationSize = SampleSize();
}

}  // namespace vexlator::desktop

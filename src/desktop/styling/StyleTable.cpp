// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/styling/StyleTable.h"

#include "desktop/application/Texts.h"
#include "desktop/mobilestyles/StyleSample.h"

#include <algorithm>

namespace vexlator::desktop {

namespace {

using background::StyleColumn;
using background::StyleRow;

constexpr const char* headings[] = {
    QT_TRANSLATE_NOOP("vexlator", "Layer"), QT_TRANSLATE_NOOP("vexlator", "Points"),
    QT_TRANSLATE_NOOP("vexlator", "Lines"), QT_TRANSLATE_NOOP("vexlator", "Areas"),
    QT_TRANSLATE_NOOP("vexlator", "Thick"), QT_TRANSLATE_NOOP("vexlator", "Zoom"),
    QT_TRANSLATE_NOOP("vexlator", "Hide")};
constexpr const char* helps[] = {
    QT_TRANSLATE_NOOP("vexlator", "DEFAULT is for layers that have no row, or say nothing in theirs"),
    QT_TRANSLATE_NOOP("vexlator", "Colour or mobile style of points, symbols and texts"),
    QT_TRANSLATE_NOOP("vexlator", "Colour or mobile style of open lines"),
    QT_TRANSLATE_NOOP("vexlator", "Colour or mobile style of closed lines"),
    QT_TRANSLATE_NOOP("vexlator", "The device draws the layer with thick lines"),
    QT_TRANSLATE_NOOP("vexlator", "The device shows the layer only when it has zoomed in"),
    QT_TRANSLATE_NOOP("vexlator", "The layer is left out of the package")};

}  // namespace

StyleTable::StyleTable() : mobile_(std::make_shared<background::MobileStyles>()) {}

void StyleTable::Show(const std::vector<StyleRow>& rows) {
    if (rows.size() != rows_.size()) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
        return;
    }
    for (int row = 0; row < rowCount(); ++row) {
        StyleRow& shown = rows_[static_cast<std::size_t>(row)];
        if (shown == rows[static_cast<std::size_t>(row)]) continue;
        shown = rows[static_cast<std::size_t>(row)];
        emit dataChanged(index(row, 0), index(row, background::styleColumns - 1));
    }
}

void StyleTable::UseSimple(bool simple) {
    simple_ = simple;
    emit headerDataChanged(Qt::Horizontal, 1, 1);
}

void StyleTable::UseMobileStyles(std::shared_ptr<const background::MobileStyles> styles) {
    mobile_ = std::move(styles);
    known_.clear();
    for (std::string_view name : mobile_->NamesOf("")) known_.emplace(name, true);
    icons_.clear();
    if (!rows_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, background::styleColumns - 1));
}

QIcon StyleTable::IconOf(StyleColumn column, const QString& look) const {
    auto [known, isNew] = icons_.try_emplace({static_cast<int>(column), look});
    if (!isNew) return known->second;
    std::string name = look.toStdString();
    bool isColour = background::ColourCode(name).has_value();
    known->second = isColour
                        ? ColourIcon(look)
                        : StyleIcon(Text(background::MobileTypeOf(column)),
                                    background::LookOfFields(mobile_->FieldsOf(mobile_->NumberOf(name))));
    return known->second;
}

QString StyleTable::NumberText(const QString& look) const {
    std::string name = look.toStdString();
    if (background::ColourCode(name)) return {};
    QString number = QString::number(mobile_->NumberOf(name));
    return known_.contains(name) ? number : Texts::tr("%1, not found").arg(number);
}

int StyleTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int StyleTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : background::styleColumns;
}

QVariant StyleTable::data(const QModelIndex& index, int role) const {
    StyleColumn column = ColumnOf(index);
    const std::string& cell = CellOf(rows_[static_cast<std::size_t>(index.row())], column);
    if (role == Qt::EditRole) return Text(cell);
    if (IsFlag(column)) return FlagData(background::IsFlagOn(cell), role);
    if (IsLook(column)) return LookData(index, Text(cell), role);
    return role == Qt::DisplayRole || role == Qt::ToolTipRole ? Text(cell) : QVariant();
}

QVariant StyleTable::LookData(const QModelIndex& index, const QString& look, int role) const {
    if (look.isEmpty()) return {};
    QString number = NumberText(look);
    switch (role) {
        case Qt::DisplayRole:
            return number.isEmpty() ? look : Texts::tr("%1 (%2)").arg(look, number);
        case Qt::ToolTipRole:
            return number.isEmpty() ? look : Texts::tr("Mobile style %1, number %2").arg(look, number);
        case Qt::DecorationRole:
            return IconOf(ColumnOf(index), look);
        default:
            return {};
    }
}

QVariant StyleTable::FlagData(bool isOn, int role) const {
    if (role == Qt::CheckStateRole) return isOn ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::AccessibleTextRole) return isOn ? Texts::tr("on") : Texts::tr("off");
    return {};
}

QVariant StyleTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::ToolTipRole) return Texts::tr(helps[section]);
    if (role != Qt::DisplayRole) return {};
    if (simple_ && section == 1) return Texts::tr("Colour");
    return Texts::tr(headings[section]);
}

Qt::ItemFlags StyleTable::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    StyleColumn column = ColumnOf(index);
    if (IsLook(column)) flags |= Qt::ItemIsEditable;
    if (IsFlag(column)) flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool StyleTable::setData(const QModelIndex& index, const QVariant& value, int role) {
    bool isCheck = role == Qt::CheckStateRole;
    if (!isCheck && role != Qt::EditRole) return false;
    edited(index.row(), ColumnOf(index),
           isCheck ? std::string(background::FlagText(value.toInt() == Qt::Checked))
                   : value.toString().toStdString());
    return true;
}

}  // namespace vexlator::desktop

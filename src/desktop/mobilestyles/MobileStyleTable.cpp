// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/mobilestyles/MobileStyleTable.h"

#include "desktop/application/Texts.h"
#include "desktop/mobilestyles/StyleSample.h"

#include <QApplication>
#include <QStyle>
#include <algorithm>

namespace vexlator::desktop {

namespace {

constexpr const char* headings[] = {
    QT_TRANSLATE_NOOP("vexlator", "Number"),  QT_TRANSLATE_NOOP("vexlator", "Sample"),
    QT_TRANSLATE_NOOP("vexlator", "Name"),    QT_TRANSLATE_NOOP("vexlator", "Type"),
    QT_TRANSLATE_NOOP("vexlator", "Colour"),  QT_TRANSLATE_NOOP("vexlator", "Width"),
    QT_TRANSLATE_NOOP("vexlator", "Pattern"), QT_TRANSLATE_NOOP("vexlator", "Symbol")};

}  // namespace

void MobileStyleTable::Refresh() {
    std::vector<std::size_t> lines;
    for (std::size_t i = 0; i < file_.LineCount(); ++i)
        if (file_.IsStyle(i)) lines.push_back(i);
    if (lines == lines_) {
        if (!lines_.empty()) emit dataChanged(index(0, 0), index(rowCount() - 1, columns - 1));
        return;
    }
    beginResetModel();
    lines_ = std::move(lines);
    endResetModel();
}

int MobileStyleTable::RowOf(std::size_t line) const {
    return static_cast<int>(std::lower_bound(lines_.begin(), lines_.end(), line) - lines_.begin());
}

int MobileStyleTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant MobileStyleTable::data(const QModelIndex& index, int role) const {
    std::size_t line = LineOf(index.row());
    std::string fault = file_.FaultOf(line);
    if (role == Qt::ToolTipRole) return Text(fault);
    if (index.column() == Number) {
        if (role == Qt::DisplayRole) return qulonglong(line);
        if (role == Qt::DecorationRole && !fault.empty())
            return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
        if (role == Qt::AccessibleDescriptionRole) return Text(fault);
        return {};
    }
    if (index.column() == Sample) {
        if (role == Qt::DecorationRole)
            return StyleIcon(Text(file_.Field(line, background::MobileField::Type)),
                             background::LookOfFields(file_.FieldsOf(line)));
        return {};
    }
    if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
    return Text(file_.Field(line, FieldOf(index.column())));
}

QVariant MobileStyleTable::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return Texts::tr(headings[section]);
}

Qt::ItemFlags MobileStyleTable::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() >= FirstField ? flags | Qt::ItemIsEditable : flags;
}

bool MobileStyleTable::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || index.column() < FirstField) return false;
    edited(LineOf(index.row()), FieldOf(index.column()), value.toString());
    return true;
}

}  // namespace vexlator::desktop

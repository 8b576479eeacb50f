// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/MobileStyles.h"
#include "background/styling/StyleEdits.h"
#include "util/NoCaseMap.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace vexlator::desktop {

/// The rows of a style as a grid shows them: looks with swatches, flags as check boxes.
class StyleTable : public QAbstractTableModel {
public:
    StyleTable();

    void Show(const std::vector<background::StyleRow>& rows);
    const std::vector<background::StyleRow>& Rows() const { return rows_; }
    void UseSimple(bool simple);
    void UseMobileStyles(std::shared_ptr<const background::MobileStyles> styles);
    const background::MobileStyles& Mobile() const { return *mobile_; }

    static background::StyleColumn ColumnOf(const QModelIndex& index) {
        return static_cast<background::StyleColumn>(index.column());
    }
    /// How a colour or mobile style of that column looks.
    QIcon IconOf(background::StyleColumn column, const QString& look) const;
    /// The number of a mobile style, and whether the file lacks it; "" for a colour.
    QString NumberText(const QString& look) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Asks for a change, which a call of Show() answers.
    std::function<void(int row, background::StyleColumn, const std::string&)> edited;

private:
    QVariant LookData(const QModelIndex& index, const QString& look, int role) const;
    QVariant FlagData(bool isOn, int role) const;

    std::vector<background::StyleRow> rows_;
    std::shared_ptr<const background::MobileStyles> mobile_;
    util::NoCaseMap<bool> known_;  ///< names of mobile styles
    bool simple_ = false;
    mutable std::map<std::pair<int, QString>, QIcon> icons_;
};

}  // namespace vexlator::desktop

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/MobileStyleFile.h"

#include <QAbstractTableModel>
#include <functional>
#include <vector>

namespace vexlator::desktop {

/// The styles of a mobile style file, a row each: number, sample, then its fields.
class MobileStyleTable : public QAbstractTableModel {
public:
    enum Column { Number, Sample, FirstField };
    static constexpr int columns = FirstField + background::mobileFields;

    explicit MobileStyleTable(const background::MobileStyleFile& file) : file_(file) { Refresh(); }

    /// After the file has changed.
    void Refresh();
    std::size_t LineOf(int row) const { return lines_[static_cast<std::size_t>(row)]; }
    /// The row of a line, or of the next style.
    int RowOf(std::size_t line) const;
    static background::MobileField FieldOf(int column) {
        return static_cast<background::MobileField>(column - FirstField);
    }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : columns; }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Asks for a change, which a call of Refresh() answers.
    std::function<void(std::size_t line, background::MobileField, const QString&)> edited;

private:
    const background::MobileStyleFile& file_;
    std::vector<std::size_t> lines_;
};

}  // namespace vexlator::desktop

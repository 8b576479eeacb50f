// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "georef/Assessment.h"

#include <QAbstractTableModel>
#include <QUndoStack>
#include <functional>
#include <string>

namespace vexlator::desktop {

/// The control points as a table, a row each, with how they fit. Every change can be undone.
class PointsModel : public QAbstractTableModel {
public:
    enum Column { Number, Pixel, Ground, ErrorPixels, ErrorGround, ColumnCount };
    static constexpr int sortRole = Qt::UserRole;

    /// `readGround` makes what was typed an entry of the list, and tells people how it was understood.
    explicit PointsModel(std::function<std::string(const std::string& typed)> readGround);

    const georef::PointEntries& Points() const { return points_; }
    const georef::Assessment& Standing() const { return standing_; }
    georef::Fit::Order Order() const { return order_; }
    QUndoStack& Undo() { return undo_; }

    /// In place of all; nothing is left to undo.
    void Load(const georef::PointEntries& points, georef::Fit::Order order);
    void SetOrder(georef::Fit::Order order);

    /// @name Changes
    /// Those with the same gesture, other than 0, are undone together.
    /// @{
    void SetPoints(georef::PointEntries points, const QString& what, int gesture = 0);
    int Add(util::PlanePoint pixel);
    void Move(int number, util::PlanePoint pixel, int gesture);
    void SetGround(int number, const std::string& typed);
    void Remove(int number);
    /// @}

    /// After every change.
    std::function<void()> changed;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    class Change;

    void Take(const georef::PointEntries& points);
    void Assess();
    QVariant TextOf(std::size_t row, int column) const;
    QString HintOf(std::size_t row, int column) const;

    std::function<std::string(const std::string&)> readGround_;
    georef::PointEntries points_;
    georef::Fit::Order order_ = georef::Fit::Order::First;
    georef::Assessment standing_;
    QUndoStack undo_;
};

}  // namespace vexlator::desktop

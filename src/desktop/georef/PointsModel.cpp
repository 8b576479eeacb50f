// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/PointsModel.h"

#include "desktop/application/Texts.h"
#include "desktop/georef/Said.h"
#include "georef/Ground.h"
#include "util/Numbers.h"

#include <QGuiApplication>
#include <QPalette>
#include <QUndoCommand>
#include <optional>

namespace vexlator::desktop {

namespace {

constexpr int pixelDecimals = 2, groundDecimals = 3;

std::string PairText(util::PlanePoint pair) {
    return util::FormatShortest(pair.x) + "," + util::FormatShortest(pair.y);
}

/// Without decimals that nobody reads. What is no pair of numbers stays.
QString Rounded(const std::string& entry, int decimals) {
    std::optional<util::PlanePoint> pair = georef::ReadNumberPair(entry);
    if (!pair) return Text(entry);
    return Text(PairText({util::RoundFixed(pair->x, decimals), util::RoundFixed(pair->y, decimals)}));
}

/// On light and on dark ground.
QColor WorstColour() {
    constexpr int middle = 128;
    bool isDark = QGuiApplication::palette().color(QPalette::Base).lightness() < middle;
    return isDark ? QColor(255, 120, 110) : QColor(200, 30, 30);
}

double FirstNumber(const std::string& entry) {
    return georef::ReadNumberPair(entry).value_or(util::PlanePoint()).x;
}

bool IsNumber(int column) {
    return column == PointsModel::ErrorPixels || column == PointsModel::ErrorGround;
}

}  // namespace

/// All points before and after: they are few.
class PointsModel::Change : public QUndoCommand {
public:
    Change(PointsModel& model, georef::PointEntries after, const QString& what, int gesture)
        : QUndoCommand(what),
          model_(model),
          before_(model.points_),
          after_(std::move(after)),
          gesture_(gesture) {}

    void undo() override { model_.Take(before_); }
    void redo() override { model_.Take(after_); }
    int id() const override { return gesture_ == 0 ? -1 : 1; }
    bool mergeWith(const QUndoCommand* other) override {
        const auto& next = static_cast<const Change&>(*other);
        if (next.gesture_ != gesture_) return false;
        after_ = next.after_;
        return true;
    }

private:
    PointsModel& model_;
    georef::PointEntries before_, after_;
    int gesture_;
};

PointsModel::PointsModel(std::function<std::string(const std::string&)> readGround)
    : readGround_(std::move(readGround)) {
    Assess();
}

void PointsModel::Load(const georef::PointEntries& points, georef::Fit::Order order) {
    order_ = order;
    undo_.clear();
    Take(points);
}

void PointsModel::SetOrder(georef::Fit::Order order) {
    if (order == order_) return;
    order_ = order;
    Take(points_);
}

void PointsModel::Assess() {
    standing_ = georef::Assess(points_, order_);
}

void PointsModel::Take(const georef::PointEntries& points) {
    // An editor stays open as long as its row is there.
    bool isSameLength = points.size() == points_.size();
    if (!isSameLength) beginResetModel();
    points_ = points;
    Assess();
    if (!isSameLength)
        endResetModel();
    else if (!points_.empty())
        dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    if (changed) changed();
}

void PointsModel::SetPoints(georef::PointEntries points, const QString& what, int gesture) {
    if (points != points_) undo_.push(new Change(*this, std::move(points), what, gesture));
}

int PointsModel::Add(util::PlanePoint pixel) {
    georef::PointEntries points = points_;
    int number = georef::AddPoint(points, pixel);
    SetPoints(std::move(points), Texts::tr("Add point %1").arg(number));
    return number;
}

void PointsModel::Move(int number, util::PlanePoint pixel, int gesture) {
    georef::PointEntries points = points_;
    points.at(std::size_t(number) - 1).pixel = PairText(pixel);
    SetPoints(std::move(points), Texts::tr("Move point %1").arg(number), gesture);
}

void PointsModel::SetGround(int number, const std::string& typed) {
    georef::PointEntries points = points_;
    std::string& ground = points.at(std::size_t(number) - 1).ground;
    if (ground == typed) return;
    ground = readGround_(typed);
    SetPoints(std::move(points), Texts::tr("Ground of point %1").arg(number));
}

void PointsModel::Remove(int number) {
    georef::PointEntries points = points_;
    georef::RemovePoint(points, number);
    SetPoints(std::move(points), Texts::tr("Delete point %1").arg(number));
}

// --- The table

int PointsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(points_.size());
}

int PointsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(ColumnCount);
}

QVariant PointsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
        case Number:
            return Texts::tr("Use");
        case Pixel:
            return Texts::tr("Pixel");
        case Ground:
            return Texts::tr("Ground");
        case ErrorPixels:
            return Texts::tr("Pixels off");
        default:
            return Texts::tr("Metres off");
    }
}

Qt::ItemFlags PointsModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (index.column() == Number) flags |= Qt::ItemIsUserCheckable;
    if (index.column() == Pixel || index.column() == Ground) flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant PointsModel::TextOf(std::size_t row, int column) const {
    const auto& residual = standing_.residuals[row];
    switch (column) {
        case Number:
            return int(row) + 1;
        case Pixel:
            return Rounded(points_[row].pixel, pixelDecimals);
        case Ground:
            return Rounded(points_[row].ground, groundDecimals);
        case ErrorPixels:
            return residual ? Text(util::FormatFixed(residual->pixels, pixelDecimals)) : QString();
        default:
            return residual ? Text(util::FormatFixed(residual->metres, groundDecimals)) : QString();
    }
}

/// How a ground position is understood.
QString PointsModel::HintOf(std::size_t row, int column) const {
    if (column == Number) return Texts::tr("Whether the fit uses the point");
    return column == Ground ? Said(georef::ReadGround(points_[row].ground).said) : QString();
}

QVariant PointsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    auto row = std::size_t(index.row());
    const georef::PointEntry& point = points_[row];
    bool isWorst = standing_.worst == index.row() + 1;
    switch (role) {
        case Qt::EditRole:
            if (index.column() == Pixel) return Text(point.pixel);
            if (index.column() == Ground) return Text(point.ground);
            [[fallthrough]];
        case Qt::DisplayRole:
            return TextOf(row, index.column());
        case Qt::CheckStateRole:
            if (index.column() != Number) return {};
            return point.isLeftOut ? Qt::Unchecked : Qt::Checked;
        case Qt::TextAlignmentRole:
            return IsNumber(index.column()) ? int(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
        case Qt::ToolTipRole:
            return HintOf(row, index.column());
        case Qt::AccessibleTextRole:
            return headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString() + " " +
                   TextOf(row, index.column()).toString();
        case Qt::ForegroundRole:
            if (point.isLeftOut) return QGuiApplication::palette().brush(QPalette::PlaceholderText);
            return isWorst && IsNumber(index.column()) ? QBrush(WorstColour()) : QVariant();
        case sortRole:
            if (index.column() == Pixel) return FirstNumber(point.pixel);
            if (index.column() == Ground) return FirstNumber(point.ground);
            if (!IsNumber(index.column())) return TextOf(row, index.column());
            return standing_.residuals[row] ? standing_.residuals[row]->pixels : -1.0 - double(row);
        default:
            return {};
    }
}

bool PointsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    auto row = std::size_t(index.row());
    georef::PointEntries points = points_;
    if (role == Qt::CheckStateRole && index.column() == Number) {
        points[row].isLeftOut = value.toInt() != Qt::Checked;
        QString what = points[row].isLeftOut ? Texts::tr("Leave out point %1") : Texts::tr("Use point %1");
        SetPoints(std::move(points), what.arg(row + 1));
        return true;
    }
    if (role != Qt::EditRole) return false;
    std::string text = value.toString().trimmed().toStdString();
    if (index.column() == Ground) {
        SetGround(index.row() + 1, text);
        return true;
    }
    if (!georef::ReadNumberPair(text)) return false;
    points[row].pixel = text;
    SetPoints(std::move(points), Texts::tr("Move point %1").arg(row + 1));
    return true;
}

}  // namespace vexlator::desktop

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/selection/SourceRows.h"

#include "desktop/application/Texts.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <algorithm>

namespace vexlator::desktop {

namespace {

using RowState = startup::RowResult::State;

/// The words of all kinds, for scripts/translate.
[[maybe_unused]] constexpr const char* kindWords[] = {
    QT_TRANSLATE_NOOP("vexlator", "ESRI layer"),
    QT_TRANSLATE_NOOP("vexlator", "ESRI map document"),
    QT_TRANSLATE_NOOP("vexlator", "Cadcorp workspace"),
    QT_TRANSLATE_NOOP("vexlator", "CAD drawing"),
    QT_TRANSLATE_NOOP("vexlator", "shapefile"),
    QT_TRANSLATE_NOOP("vexlator", "MapInfo table"),
    QT_TRANSLATE_NOOP("vexlator", "MapInfo interchange file"),
    QT_TRANSLATE_NOOP("vexlator", "device job"),
    QT_TRANSLATE_NOOP("vexlator", "drawing"),
    QT_TRANSLATE_NOOP("vexlator", "image"),
    QT_TRANSLATE_NOOP("vexlator", "NTF map"),
    QT_TRANSLATE_NOOP("vexlator", "compressed GML"),
    QT_TRANSLATE_NOOP("vexlator", "map sheet")};

QString InWords(const startup::SourceProblem& problem) {
    QString name = Text(problem.name);
    using What = startup::SourceProblem::What;
    switch (problem.what) {
        case What::Unconvertible:
            return Texts::tr("Go does nothing with this kind of file");
        case What::Gone:
            return Texts::tr("there is no such file");
        case What::Empty:
            return Texts::tr("the file is empty");
        case What::CompanionMissing:
            return Texts::tr("%1 is missing").arg(name);
        case What::NoImport:
            return Texts::tr("nothing imports %1 files").arg(name);
        case What::NoShapefile:
            return Texts::tr("the file does not begin as a shapefile does");
        case What::Unreadable:
            return name;
        case What::NoMapSheetXml:
            return Texts::tr("No Corresponding XML");
        case What::NoWorldFile:
            return Texts::tr("no world file places it on the ground");
        case What::NoConverter:
            return Texts::tr("No VDCONV application located");
        case What::NoBuilder:
            break;
    }
    return Texts::tr("BackgroundBuilder.exe is not in %1").arg(name);
}

QString Problems(const startup::SourceDescription& description) {
    QStringList lines;
    for (const startup::SourceProblem& problem : description.problems) lines << InWords(problem);
    return lines.join(QStringLiteral("; "));
}

/// A mark that is told apart by its form as well as by its colour.
enum class Mark { None, Running, Done, Failed, Problem };

QPolygonF LineOf(Mark mark) {
    switch (mark) {
        case Mark::Done:
            return QList<QPointF>{{4.5, 8.3}, {7, 10.8}, {11.5, 5.6}};
        case Mark::Running:
            return QList<QPointF>{{8, 4.5}, {8, 8.2}, {10.8, 9.8}};
        default:
            return QList<QPointF>{{8, 4.2}, {8, 8.8}};
    }
}

QColor ColourOf(Mark mark) {
    switch (mark) {
        case Mark::Done:
            return {0x2e, 0x9b, 0x57};
        case Mark::Failed:
            return {0xcf, 0x3b, 0x3b};
        case Mark::Running:
            return {0x3a, 0x7b, 0xd5};
        default:
            return {0xc9, 0x86, 0x12};
    }
}

QIcon IconOf(Mark mark) {
    if (mark == Mark::None) return {};
    constexpr int pixels = 64;  // of 16 units each a quarter: sharp at every scale
    QPixmap picture(pixels, pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / 16.0, pixels / 16.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ColourOf(mark));
    if (mark == Mark::Problem)
        painter.drawPolygon(QPolygonF({{8, 1}, {15.4, 14.4}, {0.6, 14.4}}));
    else
        painter.drawEllipse(QRectF(1, 1, 14, 14));
    painter.translate(0, mark == Mark::Problem ? 1.4 : 0);
    painter.setPen(QPen(Qt::white, 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(LineOf(mark));
    if (mark == Mark::Failed || mark == Mark::Problem) painter.drawPoint(QPointF(8, 11.4));
    return picture;
}

/// Aligned to the right, with a gap to the column behind it.
QString Number(const QString& text) {
    return text + QStringLiteral("  ");
}

QString Outcome(const startup::RowResult& result) {
    QString seconds = QLocale().toString(qMax(result.seconds, 0.1), 'f', 1);
    if (result.features == 0) return Texts::tr("Done in %1 s").arg(seconds);
    return Texts::tr("Done: %1 features in %2 s").arg(QLocale().toString(result.features), seconds);
}

}  // namespace

SourceRows::Row SourceRows::NewRow(const std::string& path) {
    Row row;
    row.result.source = path;
    return row;
}

void SourceRows::SetSources(const std::vector<std::string>& paths) {
    std::vector<Row> rows;
    std::unordered_map<std::string, std::size_t> places;
    for (const std::string& path : paths) {
        if (!places.emplace(path, rows.size()).second) continue;
        std::size_t known = Find(path);
        rows.push_back(known < rows_.size() ? rows_[known] : NewRow(path));
    }
    beginResetModel();
    rows_ = std::move(rows);
    places_ = std::move(places);
    described_ = 0;
    endResetModel();
}

std::optional<std::string> SourceRows::NextToDescribe() {
    while (described_ < rows_.size() && rows_[described_].description) ++described_;
    if (described_ == rows_.size()) return std::nullopt;
    return rows_[described_].result.source;
}

void SourceRows::Describe(const std::string& path, startup::SourceDescription description) {
    std::size_t row = Find(path);
    if (row == rows_.size()) return;
    rows_[row].description = std::move(description);
    Changed(row);
}

void SourceRows::SetResult(const Result& result) {
    std::size_t row = Find(result.source);
    if (row == rows_.size()) {
        int place = rowCount();
        beginInsertRows({}, place, place);
        rows_.push_back(NewRow(result.source));
        places_.emplace(result.source, row);
        endInsertRows();
    }
    rows_[row].result = result;
    Changed(row);
}

void SourceRows::ForgetResults() {
    for (Row& row : rows_) row.result = NewRow(row.result.source).result;
    if (!rows_.empty()) emit dataChanged(index(0, State), index(rowCount() - 1, State));
}

void SourceRows::EndRunning() {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].result.state != RowState::Running) continue;
        rows_[row].result.state = RowState::NotYet;
        Changed(row);
    }
}

int SourceRows::Count(Result::State state) const {
    return static_cast<int>(
        std::count_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.result.state == state; }));
}

int SourceRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int SourceRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QString SourceRows::TextOf(const Row& row, int column) const {
    const auto& described = row.description;
    switch (column) {
        case File:
            return Text(util::FileNameOf(row.result.source));
        case Kind:
            return described ? Texts::tr(described->kind.c_str()) : QString();
        case Features:
            return described && described->features ? Number(QLocale().toString(*described->features))
                                                    : QString();
        case Size:
            return described ? Number(QLocale().formattedDataSize(static_cast<qint64>(described->bytes), 1))
                             : QString();
        case System:
            return described ? Text(described->system) : QString();
        default:
            break;
    }
    switch (row.result.state) {
        case RowState::Running:
            return Texts::tr("Running");
        case RowState::Done:
            return Outcome(row.result);
        case RowState::Failed:
            return Text(row.result.reason);
        default:
            break;
    }
    QString problems = described ? Problems(*described) : QString();
    return problems.isEmpty() ? Texts::tr("Not yet") : problems;
}

namespace {

Mark MarkOf(RowState state, bool hasProblem) {
    switch (state) {
        case RowState::Running:
            return Mark::Running;
        case RowState::Done:
            return Mark::Done;
        case RowState::Failed:
            return Mark::Failed;
        default:
            return hasProblem ? Mark::Problem : Mark::None;
    }
}

}  // namespace

QVariant SourceRows::data(const QModelIndex& index, int role) const {
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
            return TextOf(row, index.column());
        case Qt::ToolTipRole:
            if (index.column() == File) return Text(platform::NativePath(row.result.source));
            return TextOf(row, index.column());
        case Qt::TextAlignmentRole:
            return QVariant(
                (index.column() == Features || index.column() == Size ? Qt::AlignRight : Qt::AlignLeft) |
                Qt::AlignVCenter);
        case Qt::DecorationRole:
            if (index.column() != State) return {};
            return IconOf(MarkOf(row.result.state, row.description && !Problems(*row.description).isEmpty()));
        default:
            return {};
    }
}

QVariant SourceRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= columns) return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant((section == Features || section == Size ? Qt::AlignRight : Qt::AlignLeft) |
                        Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    const QString texts[columns] = {Texts::tr("File"),
                                    Texts::tr("Kind"),
                                    Number(Texts::tr("Features")),
                                    Number(Texts::tr("Size")),
                                    Texts::tr("Coordinate system"),
                                    Texts::tr("State")};
    return texts[section];
}

void SourceRows::Changed(std::size_t row) {
    int place = static_cast<int>(row);
    emit dataChanged(index(place, 0), index(place, columns - 1));
}

std::size_t SourceRows::Find(const std::string& path) const {
    auto place = places_.find(path);
    return place == places_.end() ? rows_.size() : place->second;
}

}  // namespace vexlator::desktop

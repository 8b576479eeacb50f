// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/go/DescribeSource.h"
#include "startup/go/RowResult.h"

#include <QAbstractTableModel>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vexlator::desktop {

/// The sources of the selection window: what is known of each before Go, and what came of it.
class SourceRows : public QAbstractTableModel {
public:
    enum Column { File, Kind, Features, Size, System, State };
    static constexpr int columns = State + 1;
    using Result = startup::RowResult;

    using QAbstractTableModel::QAbstractTableModel;

    /// Sources that were there before keep their description.
    void SetSources(const std::vector<std::string>& paths);
    /// The first source that is not described; nothing when all are.
    std::optional<std::string> NextToDescribe();
    void Describe(const std::string& path, startup::SourceDescription description);
    /// Takes what came of a source; a source that is not in the list is added.
    void SetResult(const Result& result);
    void ForgetResults();
    /// A run has ended: what was running is so no more.
    void EndRunning();

    int Count(Result::State state) const;
    const std::string& PathOf(int row) const { return rows_[static_cast<std::size_t>(row)].result.source; }
    const Result& ResultOf(int row) const { return rows_[static_cast<std::size_t>(row)].result; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        Result result = {};
        std::optional<startup::SourceDescription> description = {};
    };

    QString TextOf(const Row& row, int column) const;
    void Changed(std::size_t row);
    static Row NewRow(const std::string& path);
    /// rows_.size() for a path that is not there.
    std::size_t Find(const std::string& path) const;

    std::vector<Row> rows_;
    std::unordered_map<std::string, std::size_t> places_;  ///< of paths in rows_
    std::size_t described_ = 0;                            ///< rows at the beginning that are all described
};

}  // namespace vexlator::desktop

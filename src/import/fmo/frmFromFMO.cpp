// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/fmo/frmFromFMO.h"

#include "database/DatabaseError.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/SymbolBlock.h"
#include "formats/fmo/GeometryValue.h"
#include "import/FeatureCode.h"
#include "import/fmo/RowAttributes.h"
#include "import/fmo/TabletPackage.h"
#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "util/Counted.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace vexlator::importer {

using database::Connection;
using database::DatabaseError;
using database::FmoDefinition;
using database::FmoFile;
using database::Statement;
using util::PlanePoint;

namespace {

/// The second comma field of a template's line, with its brackets read as commas, without a second name in
/// angle brackets.
std::string ColumnOfTemplateLine(std::string_view line) {
    std::string fields = util::ReplaceAll(line, "]", ",");
    std::string_view name = util::GetCommaField(2, fields);
    return std::string(util::Trim(name.substr(0, name.find('<'))));
}

/// The columns listed in a feature code's template, except the first, which stands for the key; every column
/// if there is no template.
SelectList TemplateSelectList(const config::Run& run, const std::string& code) {
    constexpr std::size_t shortestField = 11;
    SelectList list;
    std::string path = drawing::AtpPathFor(run, code);
    if (util::FileSize(path) > 0) {
        std::string text = platform::DecodeText(platform::ReadWholeFile(path));
        for (util::LineReader lines(text); !lines.AtEnd();) {
            std::string_view line = lines.ReadTextLine();
            if (line.starts_with('[') && line.size() >= shortestField)
                list.names.push_back(ColumnOfTemplateLine(line));
        }
    }
    list.everything = list.names.empty();
    bool isOneLetter = list.names.size() == 1 && list.names[0].size() <= 1;
    if (!list.everything && !isOneLetter) list.names.erase(list.names.begin());
    std::erase_if(list.names, [](const std::string& name) { return name.empty() || name == "NULL"; });
    return list;
}

/// Nothing if the value is NULL, not a number, or out of range.
std::optional<double> Coordinate(const Statement& rows, std::size_t column) {
    return rows.IsNull(column) ? std::nullopt : util::WholeNumberOf(rows.Text(column));
}

/// In the form of a query's condition.
bool IsInside(const config::ImportExtentBox& extent, double east, double north) {
    return !extent.IsSet() ||
           (east > extent.minX && north > extent.minY && east < extent.maxX && north < extent.maxY);
}

/// Rows whose geometry value is damaged.
struct DamagedRows {
    std::uint64_t count = 0;
    std::string first;
    void Add(std::string_view key, const char* reason) {
        if (count++ == 0) first = "key " + std::string(key) + ": " + reason;
    }
};

}  // namespace

frmFromFMO::frmFromFMO(config::Run& run)
    : run_(run), import_(run, "frmFromFMO"), drawing_(import_.Drawing()) {}
frmFromFMO::~frmFromFMO() = default;

config::Outcome frmFromFMO::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder, ImportRun::Existing::AddedTo);
    import_.ForEachSource(sourcePath, fileList, [&](const std::string& path) {
        try {
            files_.push_back(database::ReadFmoFile(path));
            return true;
        } catch (const platform::ReadError& error) {
            run_.Ui().Report(error.what());
            return false;
        }
    });
    ImportFiles();
    return Save();
}

config::Outcome frmFromFMO::StartTablet(std::string_view packagePath, std::string_view sourceFolder,
                                        std::string& fileList) {
    import_.Begin(packagePath, sourceFolder);
    TabletPackage package(run_, packagePath);
    fileList.clear();
    std::string database = package.DatabaseName();
    if (database.empty()) {
        package.Keep();
        run_.Ui().ShowMessage("No MDB in Package");
        return import_.SaveNothing();
    }
    const std::string& folder = run_.Settings().FMODirectory;
    files_ = FmoFilesForDatabase(folder, database);
    for (const FmoFile& file : files_) fileList += "|" + util::FileNameOf(file.path);
    if (files_.empty()) {
        import_.LeaveOut();
        run_.Ui().Report(platform::NativePath(folder) + ": no FMO file names a database " + database);
    }
    ImportFiles();
    return Save();
}

config::Outcome frmFromFMO::Save() {
    import_.View().SetLabel("Completed!");
    // Half of a table is better than nothing, but must not replace a drawing.
    bool isHalf = !tableReadToEnd_ && util::FileSize(import_.Target()) > 0;
    import_.CountFeatures(isHalf ? 0 : features_);
    return import_.Finish();
}

void frmFromFMO::ImportFiles() {
    for (const FmoFile& file : files_) {
        if (ImportFmoFile(file))
            tableReadToEnd_ |= count_ > 0;
        else
            import_.LeaveOut();
    }
}

bool frmFromFMO::ImportFmoFile(const FmoFile& file) {
    std::string code = Capitals(util::BaseNameOf(file.path));
    std::string symbol = SelectFeatureLayer(code);
    FmoDefinition definition = database::ReadFmoDefinition(run_, file);
    auto connection = definition.table.empty() ? nullptr : OpenFmoConnection(run_, definition);
    if (!connection) return false;
    count_ = 0;
    bool toEnd = definition.IsLineTable()
                     ? ImportLines(std::move(connection), FmoQuery::Lines(definition), code)
                     : ImportPoints(std::move(connection),
                                    FmoQuery::Points(definition, TemplateSelectList(run_, code),
                                                     run_.Options().extent),
                                    code, symbol);
    return toEnd;
}

/// Returns the name of the code's symbol.
std::string frmFromFMO::SelectFeatureLayer(const std::string& code) {
    drawing_.setActiveLayer(code);
    import_.View().SetLabel(code);
    std::string style = drawing::ReadAtpStyle(run_, code);
    drawing_.setActiveStyle({});
    if (style.empty())
        drawing_.setActiveColourIndex(static_cast<drawing::Colour>(drawing_.layerCount()));
    else
        drawing_.setActiveColour(StyleColour(style));
    return drawing::EnsureSymbolBlock(run_, util::GetCommaField(1, style), drawing_);
}

void frmFromFMO::ShowError(const std::string& reason, const FmoQuery& query) {
    run_.Ui().ShowMessage(reason + "\n" + query.Shown());
}

bool frmFromFMO::ImportPoints(std::unique_ptr<Connection> connection, const FmoQuery& query,
                              const std::string& code, const std::string& symbol) {
    run_.DebugMessage(query.Shown());
    std::string problem;
    try {
        FmoQuery::Statement statement = query.For(*connection);
        Statement rows(std::move(connection), statement.sql);
        rows.Execute();
        rows.ExpectRows(statement.rowCount);
        problem = AddPoints(rows, statement, symbol);
    } catch (const DatabaseError& error) {
        features_ += count_;
        ShowError(error.what(), query);
        return false;
    }
    features_ += count_;
    if (problem.empty() && count_ > 0) {
        import_.View().SetLabel(std::to_string(count_));
        return true;
    }
    run_.Ui().ShowMessage("No Records Returned\n" + query.Shown());
    if (problem.empty()) return true;
    run_.Ui().Report(code + ": " + problem);
    return false;
}

/// Imports rows. Returns why a row has no position, which ends the import; "" at the end of the rows.
std::string frmFromFMO::AddPoints(Statement& rows, const FmoQuery::Statement& statement,
                                  const std::string& symbol) {
    RowAttributes attributes(drawing_, rows, statement.columns, 2);
    for (std::uint64_t row = 1; rows.Next(); ++row) {
        bool isSomewhere = !rows.IsNull(0) && !rows.IsNull(1);
        if (!isSomewhere && statement.extent.IsSet()) continue;
        std::optional<double> east = Coordinate(rows, 0), north = Coordinate(rows, 1);
        if (!east || !north)
            return "row " + std::to_string(row) + ", key " + std::string(rows.Text(2)) +
                   ": a coordinate is not a number" +
                   (rows.HasFoundDamage() ? ", the database is damaged" : "");
        if (!IsInside(statement.extent, *east, *north)) continue;
        drawing_.addInsert({*east, *north, 0}, symbol, 1, 1, 0);
        attributes.AttachTo(drawing_);
        import_.Sink().FeatureDone();
        import_.View().Progress(++count_, 0);
    }
    return "";
}

bool frmFromFMO::ImportLines(std::unique_ptr<Connection> connection, const FmoQuery& query,
                             const std::string& code) {
    run_.DebugMessage(query.Shown());
    DamagedRows damaged;
    bool toEnd = false;
    try {
        FmoQuery::Statement statement = query.For(*connection);
        Statement rows(std::move(connection), statement.sql);
        rows.Execute();
        rows.ExpectRows(statement.rowCount);
        RowAttributes attributes(drawing_, rows, statement.columns, 1);
        for (; rows.Next(); import_.View().Progress(++count_, 0)) {
            std::string value = rows.Bytes(0);
            if (value.empty()) continue;
            try {
                std::vector<PlanePoint> vertices = formats::BlobToVertexList(value);
                drawing::Entity polyline = drawing_.addPolyline();
                std::ranges::copy(vertices, drawing_.extendPlan(vertices.size()).begin());
                if (vertices.size() > 2 && formats::AreClosed(vertices.front(), vertices.back()))
                    polyline.setClosed(true);
                attributes.AttachTo(drawing_);
                import_.Sink().FeatureDone();
                ++features_;
            } catch (const platform::ReadError& error) {
                damaged.Add(rows.Text(1), error.what());
            }
        }
        import_.View().SetLabel(std::to_string(count_));
        toEnd = true;
    } catch (const DatabaseError& error) {
        ShowError(error.what(), query);
    }
    if (damaged.count == 0) return toEnd;
    import_.LeaveOut();
    run_.Ui().Report(code + ": " + util::Counted(damaged.count, "row") +
                     " with a damaged geometry value left out, the first with " + damaged.first);
    return toEnd;
}

}  // namespace vexlator::importer

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/store/Store.h"

#include "platform/AsciiCase.h"
#include "platform/FolderOutput.h"
#include "platform/Paths.h"
#include "platform/ScratchFolder.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cpl_conv.h>
#include <ogr_api.h>
#include <optional>
#include <regex>

namespace vexlator::corporate {

namespace {

using gis::GisFormat;
using gis::LayerGeometry;

constexpr GisFormat package{.code = "GPKG",
                            .driver = "GPKG",
                            .words = "GeoPackage",
                            .layersShareFile = true,
                            .geometry = LayerGeometry::Any};
constexpr GisFormat geodatabase{.code = "GDB",
                                .driver = "OpenFileGDB",
                                .words = "file geodatabase",
                                .layersShareFile = true,
                                .hasPlainNames = true,
                                .geometry = LayerGeometry::OneKind};
constexpr GisFormat postgres{.code = "PG",
                             .driver = "PostgreSQL",
                             .words = "PostgreSQL database",
                             .layersShareFile = true,
                             .geometry = LayerGeometry::Any,
                             .isServer = true};
constexpr GisFormat otherServer{.code = "DB",
                                .driver = nullptr,
                                .words = "database",
                                .layersShareFile = true,
                                .geometry = LayerGeometry::Any,
                                .isServer = true};
constexpr GisFormat otherFile{
    .code = "OGR", .driver = nullptr, .words = "file of features", .layersShareFile = true};

struct Closed {
    const char* extension;
    const char* advice;
};
constexpr Closed closedFormats[] = {
    {"MXD", "a map document, which is a closed format; give the file geodatabase (.gdb) that it shows"},
    {"LYR", "a layer file, which is a closed format; give the file geodatabase (.gdb) that it shows"},
    {"SWD",
     "a workspace, which is a closed format; give a GeoPackage, or a file of text with the source in its "
     "first "
     "line, as in \"PG:dbname=county\""},
    {"SDE", "a connection file, which is a closed format; give the database, as in \"PG:dbname=county\""},
    {"MDB", "a personal geodatabase, which is not written; give a file geodatabase (.gdb)"},
};

/// "PG:", but not "C:\\".
bool IsConnection(std::string_view location) {
    static const std::regex prefix(R"(^([A-Za-z][A-Za-z0-9]+:|postgres(ql)?://).*)", std::regex::optimize);
    return std::regex_match(location.begin(), location.end(), prefix);
}

/// Changes of a database, which nobody sees before the commit.
class DatabaseStore : public Store {
public:
    DatabaseStore(const GisFormat& format, const std::string& location)
        : Store(format, ShownLocation(location)) {
        CPLSetConfigOption("PG_USE_COPY", "YES");
        OpenDataset(location);
        Begin();
        if (&format != &postgres) return;
        // Exports in turn: two at once could make the same table. Any number will do, if it is always the
        // same.
        GDALDatasetReleaseResultSet(
            Handle(),
            GDALDatasetExecuteSQL(Handle(), "SELECT pg_advisory_xact_lock(86357501)", nullptr, nullptr));
        RequireDone(true);
    }
    void Commit() override {
        CommitTransaction();
        dataset_.reset();
    }
};

/// A new package is written beside its place. In one that is there, the file's own journal keeps the old
/// state.
class PackageStore : public Store {
public:
    explicit PackageStore(const std::string& location)
        : Store(package, platform::NativePath(location)), lock_(location) {
        if (platform::FileExists(location)) {
            OpenDataset(platform::FindExisting(location));
            Begin();
            return;
        }
        scratch_.emplace(location);
        path_ = location;
        CreateDataset(NewPath());
        Begin();
    }
    ~PackageStore() override { dataset_.reset(); }
    void Commit() override {
        CommitTransaction();
        dataset_.reset();
        if (scratch_) platform::CopyWholeFile(NewPath(), path_);
    }

private:
    std::string NewPath() const { return scratch_->Path() + "/new.gpkg"; }

    platform::FileLock lock_;
    std::optional<platform::ScratchFolder> scratch_;  ///< with a new package
    std::string path_;
};

/// A geodatabase has no journal: a copy is changed and takes its place.
class GeodatabaseStore : public Store {
public:
    explicit GeodatabaseStore(const std::string& location)
        : Store(geodatabase, platform::NativePath(location)), lock_(location), folder_(location) {
        folder_.IsNew() ? CreateDataset(folder_.Path()) : OpenDataset(folder_.Path());
    }
    ~GeodatabaseStore() override { dataset_.reset(); }
    void Commit() override {
        raster::TakeReason();
        GDALFlushCache(Handle());
        dataset_.reset();
        RequireDone(true);
        folder_.Commit();
    }

private:
    platform::FileLock lock_;
    platform::FolderOutput folder_;
};

}  // namespace

std::string ShownLocation(const std::string& location) {
    if (!IsConnection(location)) return platform::NativePath(location);
    static const std::regex password(R"((password\s*=\s*)('[^']*'|\S+))",
                                     std::regex::icase | std::regex::optimize);
    static const std::regex inAddress(R"((://[^:/@]*):[^@]*@)", std::regex::optimize);
    return std::regex_replace(std::regex_replace(location, password, "$1..."), inAddress, "$1:...@");
}

const GisFormat& FormatOf(const std::string& location) {
    if (IsConnection(location)) {
        std::string lower = platform::LowerAscii(location);
        return lower.starts_with("pg:") || lower.starts_with("postgres") ? postgres : otherServer;
    }
    std::string extension = platform::UpperAscii(util::ExtensionOf(location));
    for (const Closed& closed : closedFormats)
        if (extension == closed.extension)
            throw platform::ReadError(platform::NativePath(location), "", closed.advice);
    if (extension == "GPKG") return package;
    return extension == "GDB" ? geodatabase : otherFile;
}

std::string SourceOf(const std::string& path) {
    if (IsConnection(path) || !platform::SameNoCase(util::ExtensionOf(path), "SWD")) return path;
    constexpr std::size_t longestLine = 4096;
    platform::MappedFile file(path);
    std::string_view line =
        util::Trim(file.Text().substr(0, std::min(file.Text().find('\n'), longestLine)), "\r ");
    bool isText = !line.empty() &&
                  std::ranges::none_of(line, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    if (!isText) return path;
    std::string source(line);
    bool isBeside = !IsConnection(source) && util::FileNameOf(source) == source;
    return isBeside ? util::JoinPath(util::FolderOf(path), source) : source;
}

void Store::OpenDataset(const std::string& native) {
    const char* drivers[] = {format_.driver, nullptr};
    raster::TakeReason();
    dataset_.reset(GDALOpenEx(native.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE | GDAL_OF_VERBOSE_ERROR,
                              format_.driver ? drivers : nullptr, nullptr, nullptr));
    RequireDone(dataset_ != nullptr);
}

void Store::CreateDataset(const std::string& native) {
    raster::TakeReason();
    dataset_.reset(
        GDALCreate(GDALGetDriverByName(format_.driver), native.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    RequireDone(dataset_ != nullptr);
}

void Store::Begin() {
    if (!GDALDatasetTestCapability(Handle(), ODsCTransactions))
        throw platform::WriteError(name_, "has no transactions, so that an export could be left half done");
    RequireDone(GDALDatasetStartTransaction(Handle(), 0) == OGRERR_NONE);
}

void Store::CommitTransaction() {
    raster::TakeReason();
    GDALFlushCache(Handle());
    RequireDone(GDALDatasetCommitTransaction(Handle()) == OGRERR_NONE);
}

void Store::RequireDone(bool ok) const {
    try {
        raster::RequireRead(ok, name_);
        raster::RequireNoError(name_);
    } catch (const platform::ReadError& error) {
        throw platform::WriteError(name_, error.Reason());
    }
}

std::unique_ptr<Store> Store::Open(const std::string& location) {
    const GisFormat& format = FormatOf(location);
    if (format.isServer) return std::make_unique<DatabaseStore>(format, location);
    const std::string path = platform::AbsolutePath(location);
    platform::RemoveLeftovers(util::FolderOf(path));
    if (&format == &package) return std::make_unique<PackageStore>(path);
    if (&format == &geodatabase) return std::make_unique<GeodatabaseStore>(path);
    throw platform::WriteError(
        platform::NativePath(location),
        "not a store that is written; a GeoPackage (.gpkg), a file geodatabase (.gdb) or a "
        "database (as in \"PG:dbname=county\") is");
}

}  // namespace vexlator::corporate

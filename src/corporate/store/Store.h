// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gis/GisFormat.h"
#include "raster/Gdal.h"

#include <memory>
#include <string>
#include <string_view>

namespace vexlator::corporate {

/// Where an organisation keeps the features of all its drawings, in a feature class for each feature code: a
/// GeoPackage, a file geodatabase or a database server.
class Store {
public:
    /// Opens it for an export. A GeoPackage or a geodatabase that is not there is made. Another export into
    /// it waits.
    /// @param location a path text, or what GDAL opens, as in "PG:dbname=county"
    /// @throws platform::ReadError, platform::WriteError
    static std::unique_ptr<Store> Open(const std::string& location);
    virtual ~Store() = default;
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    GDALDatasetH Handle() const { return dataset_.get(); }
    const gis::GisFormat& Format() const { return format_; }
    /// For the user.
    const std::string& Name() const { return name_; }
    /// All changes appear together; without it, none does. @throws platform::WriteError
    virtual void Commit() = 0;

protected:
    Store(const gis::GisFormat& format, std::string name) : format_(format), name_(std::move(name)) {}
    /// Opens the dataset for changes. @throws platform::WriteError
    void OpenDataset(const std::string& native);
    void CreateDataset(const std::string& native);
    /// @throws platform::WriteError
    void Begin();
    void CommitTransaction();
    void RequireDone(bool ok) const;

    const gis::GisFormat& format_;
    std::string name_;
    raster::Dataset dataset_;
};

/// What a location holds, whether there is something or not.
/// @throws platform::ReadError for closed formats, with what to give instead
const gis::GisFormat& FormatOf(const std::string& location);
/// The source that an import's path names: itself, or the first line of a workspace file (.SWD) of text.
/// @throws platform::ReadError
std::string SourceOf(const std::string& path);
/// A location for messages, without the password.
std::string ShownLocation(const std::string& location);

}  // namespace vexlator::corporate

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <gdal.h>
#include <memory>
#include <string>

/// What this program needs of GDAL, with errors as exceptions.
namespace vexlator::makeworldfile {

struct CloseDataset {
    void operator()(GDALDatasetH dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<void, CloseDataset>;

/// Registers the formats of images. Nothing is read or written beside the files that are named.
void StartGdal();

/// @throws platform::ReadError: the file's name and GDAL's reason, also for data that ends too early, which
/// some readers only warn of
void RequireRead(bool ok, const std::string& file);
/// What GDAL said last, in one line. Forgets it.
std::string TakeReason();

/// Opens an image, never a file that leads to other files or machines.
/// @throws platform::ReadError
Dataset OpenImage(const std::string& path);

/// An uncompressed image of bytes that goes with the object, for reading in any order; on disk, not in
/// memory.
class ScratchImage {
public:
    /// `besides`: a path in the folder where there is room for it. @throws platform::WriteError
    ScratchImage(const std::string& besides, int width, int height, int channels);

    GDALDatasetH Handle() const { return dataset_.get(); }
    /// @throws platform::WriteError: GDAL's reason, unless ok
    void RequireWritten(bool ok) const;
    /// Writes out what GDAL still holds, so that what is read later is what was written. @throws
    /// platform::WriteError
    void Finish() const;

private:
    platform::OutputFile file_;  ///< never committed; dataset_ lies at its temporary path
    Dataset dataset_;
};

/// Writes a whole image as JPEG. `source` has one channel or three. @throws platform::WriteError, ReadError
void WriteJpeg(GDALDatasetH source, platform::OutputFile& target);

}  // namespace vexlator::makeworldfile

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <gdal.h>
#include <memory>
#include <string>

/// What helper programs need of GDAL, with errors as exceptions.
namespace vexlator::raster {

struct CloseDataset {
    void operator()(GDALDatasetH dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<void, CloseDataset>;

/// Registers the image formats. Prevents access to files other than the named ones.
void StartGdal();

/// @throws platform::ReadError: the file's name and GDAL's reason, also for truncated data, which is only a
/// warning in some readers
void RequireRead(bool ok, const std::string& file);
/// GDAL's last message, in one line. Clears it.
std::string TakeReason();

/// @throws platform::ReadError when GDAL has reported an error since OpenImage() or Open()
void RequireNoError(const std::string& file);

/// Opens a file by one of GDAL's drivers, whose list nullptr ends. `otherwise` says what a file is that none
/// of them knows. @throws platform::ReadError
Dataset Open(const std::string& path, unsigned flags, const char* const* drivers, const char* otherwise);
/// Opens an image, never a file that leads to other files or machines.
/// @throws platform::ReadError
Dataset OpenImage(const std::string& path);

/// An uncompressed image of bytes for random reading, on disk instead of in memory. The destructor deletes
/// it.
class ScratchImage {
public:
    /// `besides`: a path in the folder for the image. @throws platform::WriteError
    ScratchImage(const std::string& besides, int width, int height, int channels);

    GDALDatasetH Handle() const { return dataset_.get(); }
    /// @throws platform::WriteError with GDAL's reason, unless ok
    void RequireWritten(bool ok) const;
    /// Writes out data that GDAL still holds, so that later reads see it. @throws platform::WriteError
    void Finish() const;

private:
    platform::OutputFile file_;  ///< never committed; dataset_ is at its temporary path
    Dataset dataset_;
};

/// Writes a whole image as JPEG behind what the target holds. `source` has one channel or three. @throws
/// platform::WriteError; platform::ReadError without a file's name when the source cannot be read
void WriteJpeg(GDALDatasetH source, platform::OutputFile& target);

}  // namespace vexlator::raster

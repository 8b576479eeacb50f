// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/worldfile/WorldFile.h"
#include "raster/Gdal.h"

#include <optional>
#include <string>
#include <vector>

namespace vexlator::raster {

/// What the world file beside an image says, when there is one. @throws platform::ReadError
std::optional<formats::WorldFile> ReadWorldFileOf(const std::string& image);

/// An opaque grey or colour image of bytes, read in rows or in random order.
class Picture {
public:
    /// The image of a file, or several images of the same size on top of each other, the first lowest, on
    /// white. Transparent pixels and pixels without data become white.
    /// @throws platform::ReadError: not an image, more than eight bits per channel, channels that are not
    /// colours
    explicit Picture(const std::vector<std::string>& files);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    int Width() const { return width_; }
    int Height() const { return height_; }
    int Channels() const { return channels_; }
    /// The first file's own idea of where it lies.
    std::optional<formats::WorldFile> Placement() const;
    /// Whether the file already is what WriteJpeg() would write.
    bool IsPlainJpeg() const;

    /// An image with the same pixels that can be read from top to bottom; in random order with `anyOrder`. It
    /// lives as long as this object.
    /// @throws platform::ReadError, WriteError
    GDALDatasetH Flat(const std::string& scratch, bool anyOrder);
    /// @throws platform::ReadError unless all data can be read
    void Prove() const;

private:
    struct Layer;
    /// Pixel by pixel, with one byte per channel.
    using Canvas = std::vector<GByte>;

    /// Whether the bytes of the only layer are the visible colours.
    bool IsAsStored() const;
    void ReadRows(int row, int rows, Canvas& canvas) const;

    std::vector<Layer> layers_;
    int width_ = 0, height_ = 0, channels_ = 1;
    std::optional<ScratchImage> flat_;
};

}  // namespace vexlator::raster

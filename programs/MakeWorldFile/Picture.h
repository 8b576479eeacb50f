// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "MakeWorldFile/Gdal.h"
#include "georef/Fit.h"
#include "georef/WorldFile.h"

#include <optional>
#include <string>
#include <vector>

namespace vexlator::makeworldfile {

/// An opaque image of bytes, grey or in colour, that is read in rows or at random.
class Picture {
public:
    /// The image of a file, or images of one size over each other, first to last, on white. What is
    /// transparent or without data becomes white.
    /// @throws platform::ReadError: not an image, more than eight bits a channel, channels that are no
    /// colours
    explicit Picture(const std::vector<std::string>& files);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    int Width() const { return width_; }
    int Height() const { return height_; }
    int Channels() const { return channels_; }
    /// The first file's own idea of where it lies.
    std::optional<georef::WorldFile> Placement() const;
    /// Whether the file already is what WriteJpeg() would write.
    bool IsPlainJpeg() const;

    /// An image that says the same and may be read from top to bottom; at random when `anyOrder`. It lives as
    /// long as this object. @throws platform::ReadError, WriteError
    GDALDatasetH Flat(const std::string& scratch, bool anyOrder);
    /// @throws platform::ReadError unless the whole data can be read
    void Prove() const;

private:
    struct Layer;
    /// Pixel by pixel, as many bytes each as there are channels.
    using Canvas = std::vector<GByte>;

    /// Whether the only layer's bytes are what is to be seen.
    bool IsAsStored() const;
    void ReadRows(int row, int rows, Canvas& canvas) const;

    std::vector<Layer> layers_;
    int width_ = 0, height_ = 0, channels_ = 1;
    std::optional<ScratchImage> flat_;
};

}  // namespace vexlator::makeworldfile

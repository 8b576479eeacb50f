// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "raster/Tiles.h"

#include <algorithm>
#include <cpl_string.h>
#include <vector>

namespace vexlator::raster {

namespace {

/// The rows of pixels of one row of tiles, pixel by pixel.
struct Strip {
    std::vector<GByte> pixels;
    int width = 0, rows = 0, channels = 0;

    Strip(GDALDatasetH image, int mostRows)
        : width(GDALGetRasterXSize(image)), rows(mostRows), channels(GDALGetRasterCount(image)) {
        channels = channels < 3 ? 1 : 3;
        pixels.resize(static_cast<std::size_t>(width) * mostRows * channels);
    }
    GSpacing RowBytes() const { return GSpacing{width} * channels; }
};

void Read(GDALDatasetH image, const std::string& file, int row, Strip& strip) {
    CPLErr error = GDALDatasetRasterIOEx(image, GF_Read, 0, row, strip.width, strip.rows, strip.pixels.data(),
                                         strip.width, strip.rows, GDT_Byte, strip.channels, nullptr,
                                         strip.channels, strip.RowBytes(), 1, nullptr);
    RequireRead(error == CE_None, file);
}

/// An image that refers to a part of the strip, without a copy.
Dataset PartOf(Strip& strip, int column, int columns) {
    Dataset part(GDALCreate(GDALGetDriverByName("MEM"), "", columns, strip.rows, 0, GDT_Byte, nullptr));
    for (int channel = 0; channel < strip.channels; ++channel) {
        char** options = nullptr;
        char pointer[64] = {};
        GByte* first = &strip.pixels[static_cast<std::size_t>(column) * strip.channels + channel];
        CPLPrintPointer(pointer, first, sizeof(pointer) - 1);
        options = CSLSetNameValue(options, "DATAPOINTER", pointer);
        options = CSLSetNameValue(options, "PIXELOFFSET", std::to_string(strip.channels).c_str());
        options = CSLSetNameValue(options, "LINEOFFSET", std::to_string(strip.RowBytes()).c_str());
        GDALAddBand(part.get(), GDT_Byte, options);
        CSLDestroy(options);
    }
    return part;
}

int CountParts(int pixels, int tileSize) {
    return (pixels + tileSize - 1) / tileSize;
}

}  // namespace

TileCount CountTiles(GDALDatasetH image, int tileSize) {
    return {CountParts(GDALGetRasterYSize(image), tileSize), CountParts(GDALGetRasterXSize(image), tileSize)};
}

void CarveTiles(GDALDatasetH image, const std::string& file, const formats::WorldFile& world, int tileSize,
                const std::function<void(const ImageTile& tile)>& take) {
    int height = GDALGetRasterYSize(image);
    Strip strip(image, std::min(tileSize, height));
    TileCount count = CountTiles(image, tileSize);
    for (int row = 0; row < count.rows; ++row) {
        int top = row * tileSize;
        strip.rows = std::min(tileSize, height - top);
        Read(image, file, top, strip);
        for (int column = 0; column < count.columns; ++column) {
            int left = column * tileSize;
            Dataset part = PartOf(strip, left, std::min(tileSize, strip.width - left));
            take({row, column, part.get(), world.Part(left, top)});
        }
    }
}

}  // namespace vexlator::raster

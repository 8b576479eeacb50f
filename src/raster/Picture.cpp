// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "raster/Picture.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "raster/JpegFrame.h"
#include "util/Numbers.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace vexlator::raster {

namespace {

constexpr int stripRows = 256;
/// A sparse file of a few bytes can claim any size, and all of it would be written.
constexpr double mostPixels = 5e9;
/// Of a file's own tiles and strips, which are decoded whole.
constexpr double mostBytesOfBlock = 1.5e9;
constexpr GByte opaque = 255, white = 255;
constexpr int colourChannels = 3;

/// Red, green, blue and opacity.
using Colour = std::array<GByte, 4>;
using Palette = std::vector<Colour>;

Palette PaletteOf(GDALRasterBandH band) {
    constexpr int most = 256;
    Palette palette;
    const char* bits = GDALGetMetadataItem(band, "NBITS", "IMAGE_STRUCTURE");
    int depth = bits ? static_cast<int>(util::IntegerOf(bits)) : 8;
    if (GDALColorTableH table = GDALGetRasterColorTable(band)) {
        for (int i = 0; i < std::min(GDALGetColorEntryCount(table), most); ++i) {
            GDALColorEntry entry{};
            GDALGetColorEntryAsRGB(table, i, &entry);
            palette.push_back({static_cast<GByte>(entry.c1), static_cast<GByte>(entry.c2),
                               static_cast<GByte>(entry.c3), static_cast<GByte>(entry.c4)});
        }
        palette.resize(most);
    } else if (depth < 8) {
        int largest = (1 << depth) - 1;
        for (int i = 0; i < most; ++i) {
            auto grey = static_cast<GByte>(std::min(i, largest) * white / largest);
            palette.push_back({grey, grey, grey, opaque});
        }
    }
    return palette;
}

bool IsGrey(const Palette& palette) {
    return std::all_of(palette.begin(), palette.end(),
                       [](const Colour& c) { return c[0] == c[1] && c[1] == c[2]; });
}

GByte Mix(GByte over, GByte under, unsigned cover) {
    return static_cast<GByte>((over * cover + under * (opaque - cover) + opaque / 2) / opaque);
}

[[noreturn]] void Refuse(const std::string& file, const std::string& reason) {
    throw platform::ReadError(platform::NativePath(file), "", reason);
}

/// Before memory is taken for what a file only claims to hold. @throws ReadError
void RequireSize(GDALDatasetH dataset, const std::string& file) {
    auto text = [](int width, int height) {
        return std::to_string(width) + " x " + std::to_string(height) + " pixels";
    };
    int width = GDALGetRasterXSize(dataset), height = GDALGetRasterYSize(dataset);
    int count = GDALGetRasterCount(dataset), blockWidth = 0, blockHeight = 0;
    if (count < 1) Refuse(file, "an image without channels");
    if (static_cast<double>(width) * height > mostPixels) Refuse(file, text(width, height) + " are too many");
    GDALGetBlockSize(GDALGetRasterBand(dataset, 1), &blockWidth, &blockHeight);
    if (static_cast<double>(blockWidth) * blockHeight * count > mostBytesOfBlock)
        Refuse(file, "its tiles of " + text(blockWidth, blockHeight) + " are too large");
}

/// Number of colour channels. @throws ReadError
int CountColours(GDALDatasetH dataset, const std::string& file) {
    auto refuse = [&](const std::string& reason) { Refuse(file, reason); };
    int count = GDALGetRasterCount(dataset);
    for (int i = 1; i <= count; ++i) {
        GDALDataType type = GDALGetRasterDataType(GDALGetRasterBand(dataset, i));
        if (type != GDT_Byte)
            refuse("its values are of the kind " + std::string(GDALGetDataTypeName(type)) +
                   "; save it with eight bits a channel");
    }
    auto meaning = [&](int i) { return GDALGetRasterColorInterpretation(GDALGetRasterBand(dataset, i)); };
    if (meaning(1) == GCI_CyanBand) refuse("its colours are CMYK; save it as RGB");
    if (count == 2 && meaning(2) != GCI_AlphaBand) refuse("two channels are not colours; save it as RGB");
    return count < colourChannels ? 1 : colourChannels;
}

}  // namespace

struct Picture::Layer {
    std::string file;
    Dataset dataset;
    int colours = 1;  ///< number of colour channels, the first channels of the file
    int width = 0, height = 0;
    Palette palette;  ///< palette of 256 colours if the only channel holds their numbers
    bool isOpaque = true;

    explicit Layer(const std::string& path) : file(path), dataset(OpenImage(path)) {
        RequireSize(dataset.get(), path);
        colours = CountColours(dataset.get(), path);
        width = GDALGetRasterXSize(dataset.get());
        height = GDALGetRasterYSize(dataset.get());
        if (std::string_view(GDALGetDriverShortName(GDALGetDatasetDriver(dataset.get()))) == "JPEG")
            RequireSoundJpeg(path, width, height, GDALGetRasterCount(dataset.get()));
        if (colours == 1) palette = PaletteOf(Band(1));
        isOpaque = GDALGetMaskFlags(Band(1)) == GMF_ALL_VALID;
    }

    GDALRasterBandH Band(int i) const { return GDALGetRasterBand(dataset.get(), i); }

    /// Pixel by pixel.
    void ReadColours(int row, int rows, GByte* pixels) const {
        CPLErr error =
            GDALDatasetRasterIOEx(dataset.get(), GF_Read, 0, row, width, rows, pixels, width, rows, GDT_Byte,
                                  colours, nullptr, colours, GSpacing{colours} * width, 1, nullptr);
        RequireRead(error == CE_None, file);
    }
    /// 255 if the layer covers the layers below, 0 if it does not.
    Canvas Cover(int row, int rows) const;
    void Paint(int row, int rows, int channels, Canvas& canvas) const;
};

/// If each channel has its own "no data" value, a pixel covers if one channel has data.
Picture::Canvas Picture::Layer::Cover(int row, int rows) const {
    Canvas cover(static_cast<std::size_t>(width) * rows, isOpaque ? opaque : 0);
    if (isOpaque) return cover;
    Canvas channel(cover.size());
    bool isShared = (GDALGetMaskFlags(Band(1)) & GMF_PER_DATASET) != 0;
    for (int i = 1; i <= (isShared ? 1 : colours); ++i) {
        CPLErr error = GDALRasterIO(GDALGetMaskBand(Band(i)), GF_Read, 0, row, width, rows, channel.data(),
                                    width, rows, GDT_Byte, 0, 0);
        RequireRead(error == CE_None, file);
        std::transform(cover.begin(), cover.end(), channel.begin(), cover.begin(),
                       [](GByte a, GByte b) { return std::max(a, b); });
    }
    return cover;
}

void Picture::Layer::Paint(int row, int rows, int channels, Canvas& canvas) const {
    Canvas cover = Cover(row, rows), pixels(cover.size() * colours);
    ReadColours(row, rows, pixels.data());
    for (std::size_t i = 0; i < cover.size(); ++i) {
        const GByte* stored = &pixels[i * colours];
        Colour colour{stored[0], stored[colours / 2], stored[colours - 1], opaque};
        if (!palette.empty()) colour = palette[stored[0]];
        unsigned covered = cover[i] * unsigned{colour[3]} / opaque;
        for (int k = 0; k < channels; ++k) {
            GByte& target = canvas[i * channels + k];
            target = Mix(colour[k], target, covered);
        }
    }
}

std::optional<formats::WorldFile> ReadWorldFileOf(const std::string& image) {
    for (const std::string& name : formats::WorldFileNames(image))
        if (platform::FileExists(name)) return formats::ReadWorldFile(name);
    return std::nullopt;
}

Picture::Picture(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        layers_.emplace_back(file);
        const Layer &layer = layers_.back(), &first = layers_.front();
        if (layer.width != first.width || layer.height != first.height)
            throw platform::ReadError(platform::NativePath(file), "",
                                      std::to_string(layer.width) + " x " + std::to_string(layer.height) +
                                          " pixels, the image below has " + std::to_string(first.width) +
                                          " x " + std::to_string(first.height));
        if (layer.colours == colourChannels || !IsGrey(layer.palette)) channels_ = colourChannels;
    }
    width_ = layers_.front().width;
    height_ = layers_.front().height;
}

Picture::~Picture() = default;

std::optional<formats::WorldFile> Picture::Placement() const {
    std::array<double, 6> terms{};
    if (GDALGetGeoTransform(layers_.front().dataset.get(), terms.data()) != CE_None) return std::nullopt;
    formats::WorldFile world{terms[1], terms[4], terms[2], terms[5], terms[0], terms[3]};
    if (world.Determinant() == 0) return std::nullopt;
    return world.Part(0.5, 0.5);
}

bool Picture::IsAsStored() const {
    return layers_.size() == 1 && layers_.front().isOpaque && layers_.front().palette.empty();
}

bool Picture::IsPlainJpeg() const {
    GDALDatasetH dataset = layers_.front().dataset.get();
    const char* space = GDALGetMetadataItem(dataset, "SOURCE_COLOR_SPACE", "IMAGE_STRUCTURE");
    bool isForPrint = space && std::string_view(space).ends_with('K');  // CMYK, YCbCrK
    return IsAsStored() && !isForPrint &&
           std::string_view(GDALGetDriverShortName(GDALGetDatasetDriver(dataset))) == "JPEG";
}

void Picture::ReadRows(int row, int rows, Canvas& canvas) const {
    std::size_t size = static_cast<std::size_t>(width_) * rows * channels_;
    if (IsAsStored()) {
        canvas.resize(size);
        return layers_.front().ReadColours(row, rows, canvas.data());
    }
    canvas.assign(size, white);
    for (const Layer& layer : layers_) layer.Paint(row, rows, channels_, canvas);
}

GDALDatasetH Picture::Flat(const std::string& scratch, bool anyOrder) {
    if (IsAsStored() && !anyOrder) return layers_.front().dataset.get();
    flat_.emplace(scratch, width_, height_, channels_);
    Canvas canvas;
    for (int row = 0; row < height_; row += stripRows) {
        int rows = std::min(stripRows, height_ - row);
        ReadRows(row, rows, canvas);
        CPLErr error = GDALDatasetRasterIOEx(flat_->Handle(), GF_Write, 0, row, width_, rows, canvas.data(),
                                             width_, rows, GDT_Byte, channels_, nullptr, channels_,
                                             GSpacing{channels_} * width_, 1, nullptr);
        flat_->RequireWritten(error == CE_None);
    }
    flat_->Finish();
    return flat_->Handle();
}

void Picture::Prove() const {
    Canvas canvas;
    for (int row = 0; row < height_; row += stripRows)
        ReadRows(row, std::min(stripRows, height_ - row), canvas);
}

}  // namespace vexlator::raster

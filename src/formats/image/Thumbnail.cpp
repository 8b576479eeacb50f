// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/image/Thumbnail.h"

#include "formats/Bytes.h"
#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <turbojpeg.h>
#include <vector>

namespace vexlator::formats {

namespace {

constexpr std::size_t bytesPerPixel = 3;

/// Rows from the top, pixels as blue, green, red.
struct Image {
    explicit Image(ImageSize wanted)
        : size(wanted),
          pixels(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) *
                 bytesPerPixel) {}
    const unsigned char* At(int x, int y) const { return pixels.data() + Offset(x, y); }
    unsigned char* At(int x, int y) { return pixels.data() + Offset(x, y); }

    ImageSize size;
    std::vector<unsigned char> pixels;

private:
    std::size_t Offset(int x, int y) const {
        return (static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width) +
                static_cast<std::size_t>(x)) *
               bytesPerPixel;
    }
};

[[noreturn]] void Refuse(const std::string& reason) {
    throw platform::ReadError("", "", reason);
}

void CheckSize(ImageSize size) {
    if (size.width <= 0 || size.height <= 0) Refuse("damaged: it holds no picture");
    if (static_cast<long long>(size.width) * size.height > mostPhotoPixels)
        Refuse("a picture of " + std::to_string(size.width) + " x " + std::to_string(size.height) +
               " pixels is too large");
}

/// The largest size with these proportions that fits.
ImageSize Fit(ImageSize size, ImageSize most) {
    double scale = std::min({1.0, double(most.width) / size.width, double(most.height) / size.height});
    return {std::max(1, static_cast<int>(size.width * scale)),
            std::max(1, static_cast<int>(size.height * scale))};
}

/// The range of `from` pixels under pixel number `i` of `to`. Every pixel is in exactly one range.
struct Stretch {
    Stretch(int i, int from, int to) : begin(Edge(i, from, to)), end(Edge(i + 1, from, to)) {}
    static int Edge(int i, int from, int to) {
        return static_cast<int>(static_cast<long long>(i) * from / to);
    }
    int begin, end;
};

void PutMean(const Image& image, Stretch columns, Stretch rows, unsigned char* pixel) {
    std::array<std::uint64_t, bytesPerPixel> sums{};
    for (int y = rows.begin; y < rows.end; ++y)
        for (int x = columns.begin; x < columns.end; ++x)
            for (std::size_t c = 0; c < bytesPerPixel; ++c) sums[c] += image.At(x, y)[c];
    auto covered = static_cast<std::uint64_t>(columns.end - columns.begin) *
                   static_cast<std::uint64_t>(rows.end - rows.begin);
    for (std::size_t c = 0; c < bytesPerPixel; ++c) pixel[c] = static_cast<unsigned char>(sums[c] / covered);
}

/// Each new pixel is the mean of its range. `wanted` is nowhere larger than the image.
Image Reduced(const Image& image, ImageSize wanted) {
    Image small(wanted);
    for (int y = 0; y < wanted.height; ++y)
        for (int x = 0; x < wanted.width; ++x)
            PutMean(image, {x, image.size.width, wanted.width}, {y, image.size.height, wanted.height},
                    small.At(x, y));
    return small;
}

struct Handle {
    Handle() : decoder(tjInitDecompress()) {}
    ~Handle() { tjDestroy(decoder); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    [[noreturn]] void Fail() const { Refuse(std::string("damaged JPEG: ") + tjGetErrorStr2(decoder)); }

    tjhandle decoder;
};

/// The smallest size that the decoder can make itself and that contains `wanted`.
ImageSize DecodedSize(ImageSize size, ImageSize wanted) {
    int count = 0;
    const tjscalingfactor* factors = tjGetScalingFactors(&count);
    ImageSize best = size;
    for (const tjscalingfactor& factor : std::span(factors, static_cast<std::size_t>(count))) {
        ImageSize scaled{TJSCALED(size.width, factor), TJSCALED(size.height, factor)};
        if (scaled.width >= wanted.width && scaled.height >= wanted.height && scaled.width < best.width)
            best = scaled;
    }
    return best;
}

Image DecodeJpeg(std::string_view bytes, ImageSize most) {
    Handle handle;
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    ImageSize size;
    int sampling = 0, colours = 0;
    if (tjDecompressHeader3(handle.decoder, data, bytes.size(), &size.width, &size.height, &sampling,
                            &colours) != 0)
        handle.Fail();
    CheckSize(size);
    ImageSize wanted = Fit(size, most);
    Image image(DecodedSize(size, wanted));
    // A file of a few kilobytes can demand hours of work in thousands of scans.
    if (tjDecompress2(handle.decoder, data, bytes.size(), image.pixels.data(), image.size.width, 0,
                      image.size.height, TJPF_BGR, TJFLAG_LIMITSCANS) != 0)
        handle.Fail();
    return Reduced(image, wanted);
}

constexpr std::size_t bmpHeaders = 54;  // file header and BITMAPINFOHEADER

Image DecodeBmp(const platform::MappedFile& file, ImageSize most) {
    std::span<const std::byte> bytes = file.Bytes();
    if (bytes.size() < bmpHeaders) Refuse("damaged BMP: it ends in its header");
    ImageSize size{LittleAt<std::int32_t>(bytes, 18), LittleAt<std::int32_t>(bytes, 22)};
    CheckSize(size);
    // No supported kind packs more than one pixel into a byte.
    if (static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) > bytes.size())
        Refuse("damaged BMP: it ends before its last pixel");
    int format = TJPF_BGR;
    std::unique_ptr<unsigned char, void (*)(unsigned char*)> pixels(
        tjLoadImage(file.Name().c_str(), &size.width, 1, &size.height, &format, 0), tjFree);
    if (!pixels) Refuse(std::string("damaged BMP: ") + tjGetErrorStr2(nullptr));
    Image image(size);
    std::copy_n(pixels.get(), image.pixels.size(), image.pixels.begin());
    return Reduced(image, Fit(size, most));
}

std::string BmpOf(const Image& image) {
    std::size_t row = static_cast<std::size_t>(image.size.width) * bytesPerPixel;
    std::size_t paddedRow = (row + 3) / 4 * 4;
    std::size_t size = bmpHeaders + paddedRow * static_cast<std::size_t>(image.size.height);
    std::string bmp(size, '\0');
    auto put = [&](std::size_t at, auto value) { PutLittle(bmp.data() + at, value); };
    bmp.replace(0, 2, "BM");
    put(2, static_cast<std::uint32_t>(size));
    put(10, static_cast<std::uint32_t>(bmpHeaders));
    put(14, std::uint32_t{40});  // size of the second header
    put(18, image.size.width);
    put(22, image.size.height);  // rows from the bottom
    put(26, std::uint16_t{1});   // planes
    put(28, std::uint16_t{8 * bytesPerPixel});
    put(34, static_cast<std::uint32_t>(size - bmpHeaders));
    for (int y = 0; y < image.size.height; ++y)
        std::copy_n(
            image.At(0, y), row,
            bmp.begin() + static_cast<std::ptrdiff_t>(
                              bmpHeaders + paddedRow * static_cast<std::size_t>(image.size.height - 1 - y)));
    return bmp;
}

Image Decode(const platform::MappedFile& file, ImageSize most) {
    if (file.Text().starts_with("\xFF\xD8")) return DecodeJpeg(file.Text(), most);
    if (file.Text().starts_with("BM")) return DecodeBmp(file, most);
    Refuse("is neither a JPEG nor a BMP file");
}

}  // namespace

std::string ThumbnailBmp(std::string_view path, ImageSize most) {
    platform::MappedFile file(path);
    try {
        return BmpOf(Decode(file, most));
    } catch (const platform::ReadError& error) {
        throw error.InFile(file.Name());
    }
}

}  // namespace vexlator::formats

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/image/Jpeg.h"

#include "platform/Errors.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <turbojpeg.h>
#include <vector>

namespace vexlator::formats {

namespace {

constexpr std::uint8_t startOfPicture = 0xD8, endOfPicture = 0xD9, startOfScan = 0xDA, comment = 0xFE,
                       adobe = 0xEE;

constexpr std::string_view start = "\xFF\xD8\xFF";
constexpr std::size_t longestComment = 65533;
/// A progressive picture is unpacked whole before it is scaled down.
constexpr long long mostPixels = 256'000'000;

/// Goes through the segments before the first scan.
class JpegSegments {
public:
    explicit JpegSegments(std::string_view bytes) : bytes_(bytes) {
        if (!bytes.starts_with(start)) Fail("is no JPEG file");
    }

    /// The next segment's marker; its contents are then in Content().
    std::uint8_t Next() {
        while (position_ < bytes_.size() && At(position_) == 0xFF) ++position_;
        if (position_ + 3 > bytes_.size()) Fail("ends before the picture");
        std::uint8_t marker = At(position_++);
        std::size_t length = std::size_t{At(position_)} << 8 | At(position_ + 1);
        if (length < 2 || length > bytes_.size() - position_) Fail("a segment is longer than the file");
        content_ = bytes_.substr(position_ + 2, length - 2);
        position_ += length;
        if (marker != startOfScan && (position_ >= bytes_.size() || At(position_) != 0xFF))
            Fail("no marker where a segment ends");
        return marker;
    }
    std::string_view Content() const { return content_; }
    [[noreturn]] void Fail(const std::string& reason) const {
        throw platform::ReadError("", platform::ReadError::AtByte(position_), reason);
    }

private:
    std::uint8_t At(std::size_t i) const { return static_cast<std::uint8_t>(bytes_[i]); }

    std::string_view bytes_, content_;
    std::size_t position_ = 2;
};

/// The frame header of any coding process.
bool IsFrame(std::uint8_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

void TakeFrame(const JpegSegments& segments, std::uint8_t marker, JpegInfo& info) {
    std::string_view frame = segments.Content();
    if (marker > 0xC2) segments.Fail("is coded in a way that few programs know");
    if (frame.size() < 6) segments.Fail("its frame header is cut");
    auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(frame[i]); };
    if (at(0) != 8) segments.Fail("has " + std::to_string(at(0)) + " bits a sample instead of 8");
    info.height = at(1) << 8 | at(2);
    info.width = at(3) << 8 | at(4);
    info.components = at(5);
    if (info.width == 0 || info.height == 0) segments.Fail("holds no picture");
    if (info.components != 1 && info.components != 3 && info.components != 4)
        segments.Fail("has " + std::to_string(info.components) + " colour components");
}

struct DecoderCloser {
    void operator()(void* decoder) const { tjDestroy(decoder); }
};

}  // namespace

JpegInfo ReadJpegInfo(std::string_view bytes) {
    JpegSegments segments(bytes);
    JpegInfo info;
    bool hasComment = false;
    for (std::uint8_t marker = segments.Next(); marker != startOfScan; marker = segments.Next()) {
        if (IsFrame(marker)) TakeFrame(segments, marker, info);
        if (marker == comment && !hasComment) info.comment = segments.Content();
        hasComment |= marker == comment;
        if (marker == adobe && segments.Content().starts_with("Adobe")) info.isInverted = true;
    }
    if (info.components == 0) segments.Fail("has a scan before its frame header");
    info.isInverted = info.isInverted && info.components == 4;
    return info;
}

void ProveJpeg(std::string_view bytes) {
    JpegInfo info = ReadJpegInfo(bytes);
    if (static_cast<long long>(info.width) * info.height > mostPixels)
        throw platform::ReadError("", "",
                                  "a picture of " + std::to_string(info.width) + " x " +
                                      std::to_string(info.height) + " pixels is too large");
    std::unique_ptr<void, DecoderCloser> decoder(tjInitDecompress());
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    // The smallest scale unpacks all data, but needs little memory.
    const tjscalingfactor eighth{1, 8};
    int width = TJSCALED(info.width, eighth), height = TJSCALED(info.height, eighth);
    int format = info.components == 4 ? TJPF_CMYK : info.components == 1 ? TJPF_GRAY : TJPF_RGB;
    std::vector<unsigned char> pixels(std::size_t(width) * std::size_t(height) * tjPixelSize[format]);
    if (tjDecompress2(decoder.get(), data, bytes.size(), pixels.data(), width, 0, height, format,
                      TJFLAG_LIMITSCANS | TJFLAG_STOPONWARNING) != 0)
        throw platform::ReadError("", "", std::string("damaged JPEG: ") + tjGetErrorStr2(decoder.get()));
}

std::string WithJpegComment(std::string_view jpeg, std::string_view comment) {
    comment = comment.substr(0, longestComment);
    std::size_t length = comment.size() + 2;
    std::string marked(jpeg.substr(0, 2));
    marked += "\xFF\xFE";
    marked += static_cast<char>(length >> 8);
    marked += static_cast<char>(length & 0xFF);
    return marked.append(comment).append(jpeg.substr(2));
}

}  // namespace vexlator::formats

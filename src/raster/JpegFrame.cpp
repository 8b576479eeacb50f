// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "raster/JpegFrame.h"

#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/FreeMemory.h"

#include <cstdint>
#include <string_view>

namespace vexlator::raster {

namespace {

/// The marker that begins the frame, 0xC0 to 0xCF; 0: none. Three numbers of that range are no frames.
unsigned FrameMarker(std::string_view bytes) {
    constexpr std::size_t markerAndLength = 4;
    auto byte = [&](std::size_t at) { return static_cast<unsigned>(static_cast<unsigned char>(bytes[at])); };
    for (std::size_t at = 2; at + markerAndLength <= bytes.size() && byte(at) == 0xFF;) {
        unsigned marker = byte(at + 1);
        bool isOther = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
        if (marker >= 0xC0 && marker <= 0xCF && !isOther) return marker;
        bool isFill = marker == 0xFF;
        at += isFill ? 1 : 2 + byte(at + 2) * 256 + byte(at + 3);
    }
    return 0;
}

}  // namespace

void RequireSoundJpeg(const std::string& file, int width, int height, int channels) {
    constexpr std::uint64_t pixelsOfByte = 512, bytesOfCoefficient = 2;
    platform::MappedFile jpeg(file);
    std::uint64_t pixels = static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
    unsigned marker = FrameMarker(jpeg.Text());
    bool isArithmetic = marker >= 0xC9, isProgressive = marker != 0 && (marker & 3) == 2;
    if (!isArithmetic && jpeg.Bytes().size() < pixels / pixelsOfByte)
        throw platform::ReadError(jpeg.Name(), "", "the data is truncated");
    std::uint64_t needed = pixels * static_cast<unsigned>(channels) * bytesOfCoefficient;
    std::uint64_t left = platform::FreeMemory();
    if (isProgressive && needed > left)
        throw platform::ReadError(jpeg.Name(), "",
                                  "a progressive JPEG of its size needs " + std::to_string(needed >> 20) +
                                      " MB of memory, " + std::to_string(left >> 20) +
                                      " MB are free; save it without \"progressive\"");
}

}  // namespace vexlator::raster

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/Bytes.h"

#include <cstdint>
#include <string>
#include <turbojpeg.h>
#include <vector>

namespace vexlator::test {

/// A JPEG file: red above, blue below.
inline std::string JpegOf(int width, int height) {
    std::vector<unsigned char> pixels;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            bool above = y < (height + 1) / 2;
            pixels.insert(pixels.end(), {static_cast<unsigned char>(above ? 255 : 0), 0,
                                         static_cast<unsigned char>(above ? 0 : 255)});
        }
    tjhandle encoder = tjInitCompress();
    unsigned char* data = nullptr;
    unsigned long size = 0;
    tjCompress2(encoder, pixels.data(), width, 0, height, TJPF_RGB, &data, &size, TJSAMP_444, 90, 0);
    std::string jpeg(reinterpret_cast<const char*>(data), size);
    tjFree(data);
    tjDestroy(encoder);
    return jpeg;
}

/// The headers of a BMP file of 24 bits a pixel, without its pixels.
inline std::string BmpHeader(std::int32_t width, std::int32_t height) {
    std::string header(54, '\0');
    header.replace(0, 2, "BM");
    formats::PutLittle(header.data() + 10, std::uint32_t{54});
    formats::PutLittle(header.data() + 14, std::uint32_t{40});
    formats::PutLittle(header.data() + 18, width);
    formats::PutLittle(header.data() + 22, height);
    formats::PutLittle(header.data() + 26, std::uint16_t{1});
    formats::PutLittle(header.data() + 28, std::uint16_t{24});
    return header;
}

}  // namespace vexlator::test

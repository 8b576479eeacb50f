// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/TiffMessages.h"

#include "coords/Tiff.h"
#include "util/Files.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <utility>

namespace vexlator::coords {

namespace {

std::string& Message() {
    thread_local std::string message;
    return message;
}

void KeepMessage(const char* function, const char* format, va_list arguments) {
    if (!Message().empty()) return;
    std::array<char, 256> text{};
    std::vsnprintf(text.data(), text.size(), format, arguments);
    Message() = (function ? std::string(function) + ": " : "") + text.data();
}

struct TiffCloser {
    void operator()(TIFF* file) const { TIFFClose(file); }
};

/// The end of the last tile or strip of the current directory.
std::uint64_t EndOfParts(TIFF* file) {
    std::uint32_t parts = TIFFIsTiled(file) ? TIFFNumberOfTiles(file) : TIFFNumberOfStrips(file);
    std::uint64_t end = 0;
    for (std::uint32_t i = 0; i < parts; ++i)
        end = std::max(end, TIFFGetStrileOffset(file, i) + TIFFGetStrileByteCount(file, i));
    return end;
}

}  // namespace

void CatchTiffMessages() {
    TIFFSetErrorHandler(KeepMessage);
    TIFFSetWarningHandler(nullptr);
}

std::string TakeTiffMessage() {
    return std::exchange(Message(), {});
}

bool HasTiffMessage() {
    return !Message().empty();
}

bool IsTiffCut(const std::string& nativePath) {
    std::unique_ptr<TIFF, TiffCloser> file(TIFFOpen(nativePath.c_str(), "r"));
    if (!file) return true;
    std::uint64_t end = 0;
    do end = std::max(end, EndOfParts(file.get()));
    while (TIFFReadDirectory(file.get()));
    return end > util::FileSize(nativePath) || HasTiffMessage();
}

}  // namespace vexlator::coords

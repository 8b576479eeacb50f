// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/Records.h"
#include "formats/worldfile/WorldFile.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace vexlator::background {

/// A tile of an image package: a JPEG file, and where it lies.
struct ImageTile {
    std::string name;
    std::span<const std::byte> jpeg;
    int width, height;  ///< pixels
    formats::WorldFile world;

    /// Of its outer edges.
    Box GroundBox() const;
};

struct JpegSize {
    int width, height;
};
/// What a JPEG file says of its size; nothing when it is none, or has lost its end.
std::optional<JpegSize> SizeOfJpeg(std::span<const std::byte> file);

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageIndex.h"
#include "formats/worldfile/WorldFile.h"
#include "platform/Files.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// Writes an image package: for each tile a JPEG file and its world file.
///
/// Tiles wait in a temporary file beside the package, so that memory does not grow with it. Nothing of the
/// package is seen before Commit(), without which the old one stays.
/// @throws platform::WriteError: when the disk fails, and when the package outgrows 2 GB
class ImagePackageWriter {
public:
    /// `packageFile` is the path of the index, FOLDER\NAME.GRP; the folder exists.
    explicit ImagePackageWriter(std::string_view packageFile);

    /// Takes the bytes of the next tile's JPEG file.
    platform::OutputFile& Tiles() { return tiles_; }
    /// The tile is complete.
    void EndTile(const formats::WorldFile& world, int width, int height);

    /// Puts index and container in place, both or none, and takes away the other files that an earlier
    /// package of this name had.
    void Commit();

private:
    struct Member {
        std::string name;
        std::uint64_t offset, length;  ///< in the temporary file
    };
    void EndMember(std::string name);

    std::string packageFile_;
    platform::OutputFile tiles_;  ///< never committed
    std::vector<Member> members_;
    PackageIndex index_;
};

}  // namespace vexlator::background

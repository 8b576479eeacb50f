// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/kml/Thumbnails.h"

#include "export/photos/PhotoFolders.h"
#include "export/photos/PhotoNames.h"
#include "formats/image/Thumbnail.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <string>

namespace vexlator::exporter {

namespace {

constexpr formats::ImageSize thumbnailSize = {240, 180};  ///< as documents show it

bool IsThumbnail(std::string_view name) {
    return platform::SameNoCase(name.substr(0, 2), "s_") &&
           platform::SameNoCase(util::ExtensionOf(name), "BMP");
}

bool IsPhoto(std::string_view name) {
    std::string extension = platform::UpperAscii(util::ExtensionOf(name));
    return (extension == "JPG" || extension == "BMP") && !IsThumbnail(name);
}

void MakeThumbnail(config::Run& run, std::string_view folder, std::string_view name) {
    std::string bmp;
    try {
        bmp = formats::ThumbnailBmp(util::JoinPath(folder, name), thumbnailSize);
    } catch (const platform::ReadError& error) {
        run.Ui().Report(std::string("no thumbnail of ") + error.what());
        return;
    }
    std::string path = util::JoinPath(folder, ThumbnailName(name));
    DropLink(path);
    platform::ReplaceFile(path, bmp);
}

}  // namespace

void MakeThumbnails(config::Run& run, std::string_view folder) {
    for (const std::string& name : platform::ListFiles(folder))
        if (IsPhoto(name)) MakeThumbnail(run, folder, name);
    for (const std::string& name : platform::ListFolders(folder)) {
        std::string below = util::JoinPath(folder, name);
        if (!platform::IsLink(below)) MakeThumbnails(run, below);
    }
}

}  // namespace vexlator::exporter

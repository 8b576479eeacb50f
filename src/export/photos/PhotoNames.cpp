// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/photos/PhotoNames.h"

#include "export/photos/PhotoFolders.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <vector>

namespace vexlator::exporter {

std::string PhotoName(std::string_view value, std::string_view exportFolder) {
    std::string below = PathBelow(value, exportFolder), name;
    for (std::string_view part : PhotoPathParts(below.empty() ? value : below))
        name.append(name.empty() ? "" : "/").append(part);
    return name.empty() ? util::FileNameOf(value) : name;
}

std::string ThumbnailName(std::string_view photoName) {
    std::string folder = util::FolderOf(photoName);
    if (!folder.empty()) folder += '/';
    return folder + "s_" + util::BaseNameOf(photoName) + ".BMP";
}

std::string EncodedPath(std::string_view path) {
    return util::PercentEncoded(path, "-._~/");
}

std::string EncodedAddress(std::string_view address) {
    return util::PercentEncoded(address, "-._~/:?#[]@!$&'()*+,;=%");
}

}  // namespace vexlator::exporter

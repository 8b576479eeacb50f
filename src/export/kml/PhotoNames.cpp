// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/kml/PhotoNames.h"

#include "export/photos/PhotoFolders.h"
#include "util/Paths.h"

#include <vector>

namespace vexlator::exporter {

namespace {

bool IsLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// Keeps letters, digits and the characters of `plain`.
std::string PercentEncoded(std::string_view text, std::string_view plain) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (char c : text) {
        if (IsLetterOrDigit(c) || plain.find(c) != std::string_view::npos) {
            encoded += c;
            continue;
        }
        auto byte = static_cast<unsigned char>(c);
        encoded += {'%', digits[byte >> 4], digits[byte & 15]};
    }
    return encoded;
}

}  // namespace

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
    return PercentEncoded(path, "-._~/");
}

std::string EncodedAddress(std::string_view address) {
    return PercentEncoded(address, "-._~/:?#[]@!$&'()*+,;=%");
}

}  // namespace vexlator::exporter

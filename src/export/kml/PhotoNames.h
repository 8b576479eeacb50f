// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// How documents name photographs that lie beside them.
namespace vexlator::exporter {

/// The photograph's path below the folder of the export, "/" between folders, from the attribute value that
/// names it, with or without that folder. A value that leads outside the folder, or means something else than
/// a file, gives its last component only.
std::string PhotoName(std::string_view value, std::string_view exportFolder);

/// The name of a photograph's thumbnail: "s_", the base name and ".BMP", in the same folder.
std::string ThumbnailName(std::string_view photoName);

/// A path as part of a web address: everything but letters, digits, - . _ ~ and / as %XX, so that it holds
/// neither markup nor the name of another server or scheme.
std::string EncodedPath(std::string_view path);

/// A web address that someone typed: what no address can hold, as %XX.
std::string EncodedAddress(std::string_view address);

}  // namespace vexlator::exporter

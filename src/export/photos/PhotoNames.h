// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Names of photographs in documents beside them.
namespace vexlator::exporter {

/// The photograph's path below the folder of the export, with "/" between folders, from its attribute value
/// with or without that folder. A value that leads outside the folder, or is not a file name, gives only its
/// last component.
std::string PhotoName(std::string_view value, std::string_view exportFolder);

/// The name of a photograph's thumbnail: "s_", the base name and ".BMP", in the same folder.
std::string ThumbnailName(std::string_view photoName);

/// A path as part of a web address: all characters except letters, digits, - . _ ~ and / become %XX. So it
/// contains neither markup nor the name of another server or scheme.
std::string EncodedPath(std::string_view path);

/// A web address typed by a user: characters not allowed in addresses become %XX.
std::string EncodedAddress(std::string_view address);

}  // namespace vexlator::exporter

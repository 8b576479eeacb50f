// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// JPEG files (ITU-T T.81) that are kept as they are: what their markers say, a proof of their data, a
/// comment.
namespace vexlator::formats {

struct JpegInfo {
    int width = 0, height = 0;  ///< pixels
    int components = 0;         ///< 1 grey, 3 colour, 4 print colours
    bool isInverted = false;    ///< print colours of which 0 means full ink, as Adobe's programs write them
    std::string comment;        ///< its first comment; "" without one
};

/// Reads the markers up to the picture's data. Only kinds that every viewer knows are accepted: eight bits a
/// sample, Huffman coding, sequential or progressive.
/// @throws platform::ReadError: place and reason
JpegInfo ReadJpegInfo(std::string_view bytes);

/// Decodes the picture and forgets it, so that damage anywhere in the data is found.
/// @throws platform::ReadError: the decoder's reason
void ProveJpeg(std::string_view bytes);

/// The file with a comment of at most 65,533 bytes before its other markers. `jpeg` is a JPEG file.
std::string WithJpegComment(std::string_view jpeg, std::string_view comment);

}  // namespace vexlator::formats

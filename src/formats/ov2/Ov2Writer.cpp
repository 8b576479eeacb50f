// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/ov2/Ov2Writer.h"

#include "formats/Bytes.h"
#include "platform/CodePages.h"

#include <array>
#include <cmath>
#include <string>

namespace vexlator::formats {

namespace {

constexpr char simpleRecord = 2;
constexpr std::size_t headSize = 13;  ///< type, size, longitude, latitude
constexpr double unitsPerDegree = 100000;

std::uint32_t UnitsOf(double degrees) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(degrees * unitsPerDegree)));
}

}  // namespace

void Ov2Writer::AddPoint(const util::PlanePoint& degrees, std::string_view name) {
    std::string text = platform::Windows1252FromUtf8(name, &replaced_);
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    std::array<char, headSize> head{};
    head[0] = simpleRecord;
    PutLittle(head.data() + 1, static_cast<std::uint32_t>(headSize + text.size() + 1));
    PutLittle(head.data() + 5, UnitsOf(degrees.x));
    PutLittle(head.data() + 9, UnitsOf(degrees.y));
    file_.Write(std::string_view(head.data(), head.size()));
    file_.Write(std::string_view(text.c_str(), text.size() + 1));
}

}  // namespace vexlator::formats

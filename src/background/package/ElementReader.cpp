// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/ElementReader.h"

#include "platform/CodePages.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace vexlator::background {

namespace {

/// Sub-steps are whole units, 320 on the longer axis.
bool MayBeSubStep(Step step) {
    constexpr int whole = 100, longest = 320 * whole;
    bool isLong = std::abs(step.dx) == longest || std::abs(step.dy) == longest;
    return isLong && step.dx % whole == 0 && step.dy % whole == 0;
}

}  // namespace

void ElementReader::Fail(std::uint64_t at, const std::string& reason) const {
    package_.FailInContainer(tile_.file->offset + at, tile_.file->name + ": " + reason);
}

template <typename Record>
Record ElementReader::Take(const char* what) {
    std::span<const std::byte> bytes = tile_.file->bytes;
    if (bytes.size() - at_ < sizeof(Record))
        Fail(at_, std::string(what) + " of " + std::to_string(sizeof(Record)) + " bytes, " +
                      std::to_string(bytes.size() - at_) + " bytes left");
    Record record;
    std::memcpy(&record, bytes.data() + at_, sizeof record);
    at_ += sizeof record;
    return record;
}

bool ElementReader::Next(Element& element) {
    if (at_ == tile_.file->bytes.size()) return false;
    element.offset = at_;
    element.header = Take<ElementHeader>("element header");
    element.points.clear();
    element.rings.clear();
    char letter = tile_.letter;
    if (element.IsLine() && (letter == 'L' || letter == 'R'))
        ReadLine(element);
    else if (element.IsText() && letter == 'T')
        ReadText(element);
    else if (element.IsArea() && letter == 'A')
        ReadArea(element);
    else
        Fail(element.offset,
             "an element of type " + std::to_string(element.header.type) + " does not belong in this file");
    return true;
}

void ElementReader::ReadLine(Element& element) {
    std::uint64_t start = at_;
    auto line = Take<LineStart>("line");
    if (line.count < 1) Fail(start, std::to_string(line.count) + " vertices");
    auto steps = static_cast<std::uint64_t>(line.count - 1);
    std::uint64_t left = tile_.file->bytes.size() - at_;
    if (steps > left / sizeof(Step))
        Fail(start,
             std::to_string(line.count) + " vertices announced, " + std::to_string(left) + " bytes left");
    util::PlanePoint point{line.x, line.y};
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) Fail(start + 2, "the position is not a number");
    element.points.push_back(point);
    element.pointBox = element.vertexBox = Box::At(point.x, point.y);
    while (steps-- > 0) {
        auto step = Take<Step>("step");
        point.x += step.dx / 100.0;
        point.y += step.dy / 100.0;
        element.points.push_back(point);
        element.pointBox.Widen(point.x, point.y);
        if (!MayBeSubStep(step)) element.vertexBox.Widen(point.x, point.y);
    }
}

void ElementReader::ReadText(Element& element) {
    element.text = Take<TextRecord>("text");
    double x = element.text.x, y = element.text.y;
    if (!std::isfinite(x) || !std::isfinite(y)) Fail(element.offset + 14, "the position is not a number");
    std::int64_t characters = element.header.length - std::int64_t{sizeof(TextRecord)};
    std::span<const std::byte> left = tile_.file->bytes.subspan(at_);
    if (characters < 0 || static_cast<std::uint64_t>(characters) > left.size())
        Fail(element.offset + 9, "a text of " + std::to_string(characters) + " characters, " +
                                     std::to_string(left.size()) + " bytes left");
    std::string_view bytes(reinterpret_cast<const char*>(left.data()), static_cast<std::size_t>(characters));
    element.characters = platform::Utf8FromWindows1252(bytes);
    at_ += bytes.size();
}

void ElementReader::ReadArea(Element& element) {
    std::uint64_t start = at_;
    element.area = Take<AreaRecord>("area");
    std::uint64_t left = tile_.file->bytes.size() - at_;
    if (element.area.rings < 1 ||
        static_cast<std::uint64_t>(element.area.rings) > left / sizeof(RingReference))
        Fail(start + 32, std::to_string(element.area.rings) + " rings announced, " + std::to_string(left) +
                             " bytes left");
    for (int i = 0; i < element.area.rings; ++i)
        element.rings.push_back(Take<RingReference>("ring reference"));
}

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfLayers.h"

#include "formats/dxf/DxfGroups.h"
#include "platform/CodePages.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <charconv>
#include <cstdlib>

namespace vexlator::formats {

namespace {

/// Goes on behind the group that begins the table of layers; false if there is none.
bool FindTable(DxfGroups& groups) {
    bool inTables = false;
    DxfGroup group, before;
    while (groups.Next(group)) {
        if (group.code == 2 && before.code == 0 && before.value == "SECTION") {
            inTables = group.value == "TABLES";
            if (group.value == "ENTITIES" || group.value == "BLOCKS") return false;
        }
        if (inTables && group.code == 2 && before.value == "TABLE" && group.value == "LAYER") return true;
        before = group;
    }
    return false;
}

void Take(const DxfGroup& group, DxfLayer& layer) {
    constexpr std::int64_t frozen = 1, mostColours = 255;
    switch (group.code) {
        case 2:
            layer.name = DecodeDxfText(group.value);
            break;
        case 62: {
            std::int64_t colour = util::IntegerOf(group.value);
            if (colour < 0) layer.isHidden = true;
            if (std::abs(colour) <= mostColours) layer.colourIndex = static_cast<int>(std::abs(colour));
            break;
        }
        case 70:
            if (util::IntegerOf(group.value) & frozen) layer.isHidden = true;
            break;
        case 420:
            layer.rgb = util::IntegerOf(group.value) & 0xFFFFFF;
            break;
        default:
            break;
    }
}

}  // namespace

std::vector<DxfLayer> ReadDxfLayers(std::string_view text) {
    std::vector<DxfLayer> layers;
    DxfGroups groups(text);
    if (!FindTable(groups)) return layers;
    bool inLayer = false;
    for (DxfGroup group; groups.Next(group);) {
        if (group.code == 0) {
            if (group.value == "ENDTAB") break;
            inLayer = group.value == "LAYER";
            if (inLayer) layers.emplace_back();
        } else if (inLayer) {
            Take(group, layers.back());
        }
    }
    return layers;
}

namespace {

/// "^J" is a line feed, "^ " the caret itself.
std::string WithoutCarets(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (text[i] == '^' && next == ' ') {
            plain += '^';
            ++i;
        } else if (text[i] == '^' && next >= '@' && next <= '_') {
            plain += static_cast<char>(next - '@');
            ++i;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

}  // namespace

std::string DecodeDxfText(std::string_view text) {
    return DecodeDxfEscapes(WithoutCarets(platform::AsUtf8(text)));
}

std::string DecodeDxfEscapes(std::string_view text) {
    constexpr std::string_view mark = "\\U+";
    constexpr std::size_t digits = 4;
    std::string decoded, source = platform::AsUtf8(text);
    for (std::size_t i = 0; i < source.size();) {
        std::uint32_t character = 0;
        const char* number = source.data() + i + mark.size();
        bool isEscape = source.compare(i, mark.size(), mark) == 0 &&
                        i + mark.size() + digits <= source.size() &&
                        std::from_chars(number, number + digits, character, 16).ptr == number + digits;
        if (isEscape)
            platform::AppendUtf8(decoded, character);
        else
            decoded += source[i];
        i += isEscape ? mark.size() + digits : 1;
    }
    return decoded;
}

}  // namespace vexlator::formats

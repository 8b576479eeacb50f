// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/GmlReader.h"

#include "formats/gml/GmlXmlReader.h"
#include "formats/gml/LineLayoutReader.h"
#include "formats/xml/ByteBlocks.h"
#include "platform/CodePages.h"
#include "util/Files.h"

#include <algorithm>
#include <utility>

namespace vexlator::formats {

namespace {

/// Forms of coordinates that only the XML reader understands.
bool HasForeignCoordinates(std::string_view line) {
    return line.starts_with("<gml:coord") || line.starts_with("<gml:pos ") ||
           line.starts_with("<gml:posList ");
}

/// A single tag, or an element without child elements.
bool HoldsOneElement(std::string_view line) {
    if (!line.starts_with('<') || !line.ends_with('>')) return false;
    auto tags = std::count(line.begin(), line.end(), '<');
    return tags == 1 || (tags == 2 && !line.starts_with("</") && line.find("</") != std::string_view::npos);
}

/// A file without a declared encoding that is not in XML's default encodings is read as Windows-1252.
bool IsWindows1252(std::string_view beginning) {
    bool utf16 = beginning.starts_with("\xFF\xFE") || beginning.starts_with("\xFE\xFF") ||
                 beginning.substr(0, 2).find('\0') != std::string_view::npos;
    if (utf16 || !DeclaredEncoding(beginning).empty()) return false;
    if (beginning.size() == ByteBlocks::blockSize)  // the block may end within a character
        while (!beginning.empty() && static_cast<unsigned char>(beginning.back()) >= 0x80)
            beginning.remove_suffix(1);
    return !platform::IsUtf8(beginning);
}

}  // namespace

bool HasLineLayout(std::string_view beginning) {
    util::LineReader lines(beginning);
    while (!lines.AtEnd() && lines.ReadTextLine() != featureStartLine) {
    }
    bool typed = false, located = false;
    while (!lines.AtEnd()) {
        std::string_view line = lines.ReadTextLine();
        if (line == featureEndLine || lines.AtEnd()) break;
        if (HasForeignCoordinates(line) || !HoldsOneElement(line)) return false;
        typed |= line.starts_with("<fme:");
        located |= line.starts_with("<gml:pos>") || line.starts_with("<gml:posList>");
    }
    return typed && located;
}

OpenedGml OpenGml(std::span<const std::byte> file, const GmlOptions& options) {
    std::string beginning(BlocksOf(file, options.mostUnpacked)->Next());
    OpenedGml opened;
    opened.lineLayout = HasLineLayout(beginning);
    bool fullRings = options.fullRings.value_or(!opened.lineLayout);
    if (opened.lineLayout && !fullRings && !IsGzip(file)) {
        std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
        opened.reader = std::make_unique<LineLayoutReader>(text);
        return opened;
    }
    GmlXmlRules rules{
        .lineLayout = opened.lineLayout, .fullRings = fullRings, .axisCount = options.axisCount};
    std::unique_ptr<ByteBlocks> blocks = BlocksOf(file, options.mostUnpacked);
    if (IsWindows1252(beginning)) blocks = FromWindows1252(std::move(blocks));
    opened.reader = std::make_unique<GmlXmlReader>(std::move(blocks), rules);
    return opened;
}

}  // namespace vexlator::formats

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Background styling files (BSF): INI files that say how each layer of a drawing is to look on the device.
/// Paths are path texts. Reading throws platform::ReadError for a file that is there but cannot be read, or
/// is larger than 16 MB; a file that is not there reads as one without content. Writing replaces the whole
/// file in one step and throws platform::WriteError, the old file then being as it was; also for a name that
/// the format cannot hold: one with a comma, a line end, or more than 2047 characters to its line.
namespace vexlator::background {

constexpr std::uint64_t largestStyleFile = std::uint64_t{16} << 20;  ///< bytes; of a mobile style file too
constexpr std::string_view defaultRowName = "DEFAULT";
constexpr std::string_view noSearchField = "<No Search Field>";

/// One row of [LAYERS], as texts. Cells hold a colour name or the name of a mobile style; flags hold "-1"
/// when they are on.
struct StyleRow {
    std::string layer;  ///< or DEFAULT: the row of layers that have none
    std::string points, lines, areas;
    std::string thick = "0", zoom = "0", hide = "0";
    bool operator==(const StyleRow&) const = default;
};

/// The row that a style without DEFAULT row gets.
StyleRow DefaultRow();

/// An attribute name in a list in which some are selected.
struct ListedName {
    std::string name;
    bool selected = false;
    bool operator==(const ListedName&) const = default;
};

struct BackgroundStyle {
    std::vector<StyleRow> rows;
    std::vector<ListedName> optimisedAttributes;  ///< selected: kept in the package's attribute records
    std::vector<ListedName> annotationFields;     ///< selected: shown as annotation, in this order
    std::string layerOnField;           ///< attribute whose value becomes the entity's layer; "": none
    std::string searchOnField;          ///< attribute collected into the gazetteer; "": none
    std::string fixedAnnotationHeight;  ///< as written, drawing units; "": none
    bool operator==(const BackgroundStyle&) const = default;

    std::optional<double> FixedAnnotationHeight() const;
};

/// The bytes of a style file, be it a BSF or a mobile style file; "" when it is not there.
std::string ReadStyleText(std::string_view file);

/// Everything in the file, which is read once. With `addDefault` a DEFAULT row is added when there is none. A
/// file whose extension is TXT has no rows, not even that one, and so has a file that is not there.
BackgroundStyle LoadBackgroundStyle(std::string_view file, bool addDefault = true);

/// Writes a new file; nothing of an older one is kept. `simple`: one colour, that for points, serves lines
/// and areas too. The search field noSearchField is written as none.
void SaveBackgroundStyle(std::string_view file, BackgroundStyle style, bool simple);

/// Parts of a file. Saving keeps the other parts of an existing file.
std::vector<StyleRow> LoadStyleRows(std::string_view file, bool addDefault);
void SaveStyleRows(std::string_view file, std::vector<StyleRow> rows, bool simple);
std::vector<ListedName> LoadOptimisedAttributes(std::string_view file);
void SaveOptimisedAttributes(std::string_view file, std::vector<ListedName> attributes);
std::vector<ListedName> LoadAnnotationFields(std::string_view file);
void SaveAnnotationFields(std::string_view file, std::vector<ListedName> fields);

}  // namespace vexlator::background

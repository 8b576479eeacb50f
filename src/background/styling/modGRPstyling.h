// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Background styling files (BSF): INI files that define the look of each layer of a drawing on the device.
/// Paths are path texts. Reading throws platform::ReadError for an existing file that cannot be read, or is
/// larger than 16 MB; a missing file reads as an empty one. Writing replaces the whole file in one step and
/// throws platform::WriteError with the old file unchanged. It also throws for a name that the format cannot
/// hold: one with a comma, a line end, or with a line of more than 2047 characters.
namespace vexlator::background {

constexpr std::uint64_t largestStyleFile = std::uint64_t{16} << 20;  ///< bytes; also for a mobile style file
constexpr std::string_view defaultRowName = "DEFAULT";
constexpr std::string_view noSearchField = "<No Search Field>";

/// One row of [LAYERS], as texts. Cells hold a colour name or the name of a mobile style. Flags hold "-1" for
/// on.
struct StyleRow {
    std::string layer;  ///< or DEFAULT: the row of layers without a row
    std::string points, lines, areas;
    std::string thick = "0", zoom = "0", hide = "0";
    bool operator==(const StyleRow&) const = default;
};

/// Whether a style file can hold the name: it has neither comma nor line end.
bool CanStandInStyle(std::string_view name);

/// Whether the text of a flag says that it is on.
bool IsFlagOn(std::string_view flag);

/// The row that a style without DEFAULT row gets.
StyleRow DefaultRow();

/// An attribute name in a list with selected names.
struct ListedName {
    std::string name;
    bool selected = false;
    bool operator==(const ListedName&) const = default;
};

struct BackgroundStyle {
    std::vector<StyleRow> rows;
    std::vector<ListedName> optimisedAttributes;  ///< selected names: kept in the package's attribute records
    std::vector<ListedName> annotationFields;     ///< selected names: shown as annotation, in this order
    std::string layerOnField;           ///< attribute whose value becomes the entity's layer; "": none
    std::string searchOnField;          ///< attribute for the gazetteer; "": none
    std::string fixedAnnotationHeight;  ///< as in the file, drawing units; "": none
    bool operator==(const BackgroundStyle&) const = default;

    std::optional<double> FixedAnnotationHeight() const;
};

/// The bytes of a style file, a BSF or a mobile style file; "" if it does not exist.
std::string ReadStyleText(std::string_view file);

/// The whole contents of the file, read once. With `addDefault` a missing DEFAULT row is added. A file with
/// the extension TXT, or a missing file, has no rows, not even that one.
BackgroundStyle LoadBackgroundStyle(std::string_view file, bool addDefault = true);

/// Writes a new file, without anything of an older one. `simple`: the colour for points is used for lines and
/// areas too. The search field noSearchField is written as none.
void SaveBackgroundStyle(std::string_view file, BackgroundStyle style, bool simple);

/// The colour for points serves lines and areas too.
void UseOneColour(std::vector<StyleRow>& rows);

/// Parts of a file. Saving keeps the other parts of an existing file.
std::vector<StyleRow> LoadStyleRows(std::string_view file, bool addDefault);
void SaveStyleRows(std::string_view file, std::vector<StyleRow> rows, bool simple);
std::vector<ListedName> LoadOptimisedAttributes(std::string_view file);
void SaveOptimisedAttributes(std::string_view file, std::vector<ListedName> attributes);
std::vector<ListedName> LoadAnnotationFields(std::string_view file);
void SaveAnnotationFields(std::string_view file, std::vector<ListedName> fields);

}  // namespace vexlator::background

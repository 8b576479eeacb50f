// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "formats/SourceText.h"
#include "formats/mif/MidRows.h"
#include "formats/mif/MifHeader.h"
#include "formats/mif/MifKeyword.h"
#include "formats/mif/MifLines.h"
#include "ui/UserInterface.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// Makes entities of the objects of a MapInfo interchange file, on the active layer of a drawing in its
/// active colour. Source: MapInfo Data Interchange Format, appendix J of the MapInfo reference manual: part
/// on the MIF data section.
class MifToDrawing {
public:
    struct Target {
        drawing::Drawing& drawing;
        ui::UserInterface& ui;  ///< gets messages about lines that are not objects
        std::string symbol;     ///< block that draws points
        /// Arcs, rectangles, multipoints and collections become entities too, and the line of an object ends
        /// the text before it.
        bool extended = false;
    };

    /// `lines` start after the header. `mid`, the text of the .MID file, must outlive the object. Without it
    /// entities get no attributes.
    MifToDrawing(const Target& target, const formats::MifHeader& header, const formats::MifLines& lines,
                 std::optional<std::string_view> mid);

    /// Reads to the end of the next object; false at the end of the file. Messages show at most
    /// mostUnknownLines lines that are not objects.
    /// @throws platform::ReadError: with the name of the file for lines, without it for rows that are too
    /// long or lack too much
    bool ReadObject();
    /// Reports the first row without an object, if there is one.
    void ShowRemainingRows();
    /// Messages for the user about the file, one line each.
    std::vector<std::string> Remarks() const;

    /// The next object may share the attributes of the last one.
    bool IsWithinCollection() const { return partSharesRow_ && partsLeft_ > 0; }
    std::uint64_t ObjectCount() const { return objects_; }
    std::uint64_t MultiSectionCount() const {
        return multiSection_;
    }                                                  ///< number of polylines with several sections
    std::uint64_t NoneCount() const { return none_; }  ///< number of objects without geometry
    const formats::MifLines& Lines() const { return lines_; }
    /// Number of objects so far without the row that the columns ask for.
    std::uint64_t WithoutRow() const { return withoutRow_; }
    /// Start of the next row in the .MID file.
    std::size_t RowPosition() const { return rows_ ? rows_->Position() : 0; }

    static constexpr std::uint64_t mostUnknownLines = 1000;

private:
    /// Vertices of consecutive coordinate lines.
    struct Course {
        std::size_t count = 0;
        util::PlanePoint first, last;
    };

    void HandleLine(std::string_view line);
    void HandleKeyword(formats::MifKeyword keyword, std::string_view line, const std::string& upper);
    void AddPoint(std::string_view line);
    void AddLine(std::string_view line);
    void AddEllipse(std::string_view line);
    void AddPolyline(std::string_view upper);
    void AddRegion(std::string_view upper);
    void AddText(std::string_view line);
    void AddArc(std::string_view line);
    void AddRectangle(std::string_view line, bool rounded);
    void AddPointSet();
    void BeginCollection(std::string_view line, std::string_view upper);
    void PassOver(std::string_view line);
    void SkipRow();
    void ShowUnknownLine(std::string_view line);

    void AddInsert(const util::PlanePoint& at);
    void BeginLine();
    void BeginArea();
    void AddVertices(std::span<const util::PlanePoint> vertices);
    void FinishObject();
    Course AddCoordinateLines();
    double ReadTextRotation();
    void AddAttributes();
    void ReadMidAttributes();

    drawing::Drawing& drawing_;
    ui::UserInterface& ui_;
    std::string symbol_;
    bool extended_;
    std::string charset_;
    std::size_t columnCount_;
    drawing::AttributeSet set_;
    drawing::Style plainStyle_, lineStyle_, areaStyle_;

    formats::MifLines lines_;
    platform::Decoder decoder_;
    std::optional<formats::MidRows> rows_;
    formats::MissingValues missing_;

    bool started_ = false;  ///< the "Data" line was read
    std::uint64_t objects_ = 0, multiSection_ = 0, none_ = 0, notTaken_ = 0, unknown_ = 0;
    std::int64_t partsLeft_ = 0;  ///< remaining parts of a collection
    std::uint64_t withoutRow_ = 0;
    bool partSharesRow_ = false;  ///< the next part has the attributes of the one before it
};

}  // namespace vexlator::importer

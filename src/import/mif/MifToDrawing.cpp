// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/mif/MifToDrawing.h"

#include "formats/mif/MifShapes.h"
#include "platform/AsciiCase.h"
#include "util/Angles.h"
#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <array>

namespace vexlator::importer {

using util::PlanePoint;

namespace {

constexpr std::int32_t lineWeight = 30;
constexpr std::int32_t textAlignment = 24;
constexpr std::size_t shortestCoordinates = 5;  // a shorter line before a polyline's vertices is their number
constexpr std::size_t longestShownLine = 500;

std::vector<std::string> NamesOf(const formats::MifHeader& header) {
    std::vector<std::string> names;
    for (const formats::MifColumn& column : header.columns) names.push_back(column.name);
    return names;
}

bool HasWord(std::string_view upper, std::string_view word) {
    return upper.find(word) != std::string_view::npos;
}

/// The whole number after a word; 0 if there is none.
std::int64_t CountAfter(std::string_view word, std::string_view upper) {
    return HasWord(upper, word) ? util::IntegerOf(upper.substr(upper.find(word) + word.size())) : 0;
}

formats::MifBox BoxOf(std::string_view line) {
    auto numbers = formats::MifNumbers(line);
    return {numbers[1], numbers[2], numbers[3], numbers[4]};
}

bool IsObject(formats::MifKeyword keyword) {
    return keyword != formats::MifKeyword::Data && keyword != formats::MifKeyword::Style &&
           keyword != formats::MifKeyword::Unknown;
}

}  // namespace

MifToDrawing::MifToDrawing(const Target& target, const formats::MifHeader& header,
                           const formats::MifLines& lines, std::optional<std::string_view> mid)
    : drawing_(target.drawing),
      ui_(target.ui),
      symbol_(target.symbol),
      extended_(target.extended),
      charset_(header.charset),
      columnCount_(header.columns.size()),
      set_(drawing_.attributeSet(NamesOf(header))),
      plainStyle_(drawing_.activeStyle()),
      lineStyle_(plainStyle_),
      lines_(lines),
      decoder_(formats::MifDecoder(header.charset)),
      missing_(lines.Size() + (mid ? mid->size() : 0)) {
    if (mid) {
        std::string delimiter =
            header.delimiter.empty() ? formats::UndeclaredDelimiter(*mid, columnCount_) : header.delimiter;
        rows_.emplace(*mid, delimiter, columnCount_, decoder_);
    }
    lineStyle_.lineWeight = lineWeight;
    areaStyle_ = lineStyle_;
    areaStyle_.fillColour = areaStyle_.colour;
    areaStyle_.outlineColour = drawing::defaultColour;
}

bool MifToDrawing::ReadObject() {
    std::uint64_t before = objects_;
    while (objects_ == before && !lines_.AtEnd()) HandleLine(lines_.ReadTextLine());
    return objects_ > before;
}

void MifToDrawing::HandleLine(std::string_view line) {
    std::string upper = platform::UpperAscii(line);
    formats::MifKeyword keyword = formats::MifKeywordOf(upper, extended_);
    if (keyword == formats::MifKeyword::Data) started_ = true;
    if (started_) HandleKeyword(keyword, line, upper);
}

void MifToDrawing::HandleKeyword(formats::MifKeyword keyword, std::string_view line,
                                 const std::string& upper) {
    switch (keyword) {
        case formats::MifKeyword::Point:
            return AddPoint(line);
        case formats::MifKeyword::Ellipse:
            return AddEllipse(line);
        case formats::MifKeyword::Polyline:
            return AddPolyline(upper);
        case formats::MifKeyword::Region:
            return AddRegion(upper);
        case formats::MifKeyword::Text:
            return AddText(line);
        case formats::MifKeyword::Line:
            return AddLine(line);
        case formats::MifKeyword::None:
            return SkipRow();
        case formats::MifKeyword::Arc:
            return extended_ ? AddArc(line) : PassOver(line);
        case formats::MifKeyword::Rectangle:
        case formats::MifKeyword::RoundedRectangle:
            return extended_ ? AddRectangle(line, keyword == formats::MifKeyword::RoundedRectangle)
                             : PassOver(line);
        case formats::MifKeyword::PointSet:
            return AddPointSet();
        case formats::MifKeyword::Collection:
            return BeginCollection(line, upper);
        case formats::MifKeyword::Data:
        case formats::MifKeyword::Style:
            return;
        case formats::MifKeyword::Unknown:
            return ShowUnknownLine(line);
    }
}

// --- Objects

void MifToDrawing::AddPoint(std::string_view line) {
    auto numbers = formats::MifNumbers(line);
    AddInsert({numbers[1], numbers[2]});
    FinishObject();
}

void MifToDrawing::AddLine(std::string_view line) {
    formats::MifBox ends = BoxOf(line);
    BeginLine();
    AddVertices(std::array<PlanePoint, 2>{{{ends.x1, ends.y1}, {ends.x2, ends.y2}}});
    FinishObject();
}

void MifToDrawing::AddEllipse(std::string_view line) {
    BeginLine();
    AddVertices(formats::EllipseVertices(BoxOf(line)));
    FinishObject();
}

void MifToDrawing::AddPolyline(std::string_view upper) {
    BeginLine();
    std::int64_t sections = 1;
    if (HasWord(upper, "MULTIPLE")) {
        sections = CountAfter("MULTIPLE", upper);
        lines_.ReadTextLine();
    }
    for (std::int64_t section = 1; section <= sections && !lines_.AtEnd(); ++section) {
        if (section > 1) lines_.ReadTextLine();
        std::string_view next = lines_.PeekTextLine();
        if (next.size() < shortestCoordinates && !formats::IsCoordinateLine(next)) lines_.ReadTextLine();
        AddCoordinateLines();
    }
    if (sections > 1) ++multiSection_;
    FinishObject();
}

/// All rings become one polyline. Each further ring starts at the end of the first and returns to it.
void MifToDrawing::AddRegion(std::string_view upper) {
    BeginArea();
    std::int64_t rings = std::max<std::int64_t>(CountAfter("REGION", upper), 1);
    std::optional<PlanePoint> anchor;
    for (std::int64_t i = 0; i < rings && !lines_.AtEnd(); ++i) {
        lines_.ReadTextLine();
        Course ring = AddCoordinateLines();
        if (ring.count == 0) continue;
        AddVertices({&ring.first, 1});
        if (anchor) AddVertices({&*anchor, 1});
        if (!anchor) anchor = ring.last;
    }
    FinishObject();
}

void MifToDrawing::AddText(std::string_view line) {
    if (line.find('"') == std::string_view::npos) line = lines_.ReadTextLine();
    std::string text = decoder_.Decode(util::GetField(1, line, "\""));
    auto box = formats::MifNumbers(lines_.ReadTextLine());
    double rotation = ReadTextRotation();
    drawing_.setActiveStyle(plainStyle_);
    drawing::Entity entity =
        drawing_.addText({box[0], box[1], 0}, text, util::Distance(box[0], box[1], box[2], box[3]), rotation);
    drawing::Shape shape = entity.shape();
    shape.alignment = textAlignment;
    entity.setShape(shape);
    FinishObject();
}

/// Reads the style lines of a text, which end with an empty line.
double MifToDrawing::ReadTextRotation() {
    double rotation = 0;
    while (!lines_.AtEnd()) {
        std::string_view line = formats::TrimmedLine(lines_.PeekTextLine());
        std::string upper = platform::UpperAscii(line);
        if (extended_ && IsObject(formats::MifKeywordOf(upper, extended_))) break;
        lines_.ReadTextLine();
        if (line.empty()) break;
        if (HasWord(upper, "ANGLE")) rotation = formats::MifNumbers(line)[1] / util::degreesPerRadian;
    }
    return rotation;
}

void MifToDrawing::AddArc(std::string_view line) {
    auto angles = formats::MifNumbers(lines_.ReadTextLine());
    BeginLine();
    AddVertices(formats::ArcVertices(BoxOf(line), angles[0], angles[1]));
    FinishObject();
}

void MifToDrawing::AddRectangle(std::string_view line, bool rounded) {
    double rounding = formats::MifNumbers(line)[5];
    if (rounded && rounding == 0) rounding = formats::MifNumbers(lines_.ReadTextLine())[0];
    BeginArea();
    AddVertices(formats::RectangleVertices(BoxOf(line), rounded ? rounding : 0));
    FinishObject();
}

void MifToDrawing::AddPointSet() {
    std::array<PlanePoint, 64> points;
    bool first = true;
    while (std::size_t count = lines_.ReadCoordinates(points)) {
        for (const PlanePoint& at : std::span(points).first(count)) {
            AddInsert(at);
            if (first)
                AddAttributes();
            else if (rows_)
                drawing_.shareValues();
            first = false;
        }
    }
    if (first) return SkipRow();
    ++objects_;
}

/// Its parts follow as separate objects.
void MifToDrawing::BeginCollection(std::string_view line, std::string_view upper) {
    if (!extended_) ShowUnknownLine(line);
    partsLeft_ = CountAfter("COLLECTION", upper);
    partSharesRow_ = false;
    if (partsLeft_ <= 0) SkipRow();
}

/// An object that is not imported still has its row.
void MifToDrawing::PassOver(std::string_view line) {
    ShowUnknownLine(line);
    if (rows_) rows_->ReadRow();
    ++notTaken_;
}

void MifToDrawing::SkipRow() {
    if (rows_) rows_->ReadRow();
    ++none_;
}

// --- Entities

void MifToDrawing::AddInsert(const PlanePoint& at) {
    drawing_.setActiveStyle(plainStyle_);
    drawing_.addInsert({at.x, at.y, 0}, symbol_, 1, 1, 0);
}

void MifToDrawing::BeginLine() {
    drawing_.setActiveStyle(lineStyle_);
    drawing_.addPolyline();
}

void MifToDrawing::BeginArea() {
    drawing_.setActiveStyle(areaStyle_);
    drawing_.addPolyline().setFilled(true);
}

void MifToDrawing::AddVertices(std::span<const PlanePoint> vertices) {
    std::ranges::copy(vertices, drawing_.extendPlan(vertices.size()).begin());
}

MifToDrawing::Course MifToDrawing::AddCoordinateLines() {
    std::array<PlanePoint, 256> points;
    Course course;
    while (std::size_t count = lines_.ReadCoordinates(points)) {
        if (course.count == 0) course.first = points[0];
        course.last = points[count - 1];
        course.count += count;
        AddVertices(std::span(points).first(count));
    }
    return course;
}

void MifToDrawing::FinishObject() {
    AddAttributes();
    ++objects_;
}

// --- Attributes

/// The parts of a collection follow one another and share one row.
void MifToDrawing::AddAttributes() {
    if (columnCount_ > 0 && (!rows_ || rows_->AtEnd())) ++withoutRow_;
    if (!rows_) return;
    bool isPart = partsLeft_ > 0;
    if (isPart) --partsLeft_;
    if (isPart && partSharesRow_)
        drawing_.shareValues();
    else
        ReadMidAttributes();
    partSharesRow_ = isPart;
}

void MifToDrawing::ReadMidAttributes() {
    std::span<const std::string_view> values = rows_->ReadValues();
    std::size_t present = std::min(values.size(), columnCount_);
    missing_.Count(columnCount_ - present, rows_->Line());
    drawing_.beginValues(set_);
    for (std::string_view value : values.first(present)) drawing_.appendValue(value);
    for (std::size_t i = present; i < columnCount_; ++i) drawing_.appendValue("");
}

// --- Messages

void MifToDrawing::ShowUnknownLine(std::string_view line) {
    if (formats::TrimmedLine(line).empty()) return;
    if (++unknown_ > mostUnknownLines) return;
    std::string text = platform::UpperAscii(decoder_.Decode(line));
    ui_.ShowMessage("unknown line <" + std::string(platform::CutUtf8(text, longestShownLine)) +
                    "> at Position " + std::to_string(lines_.Position()));
}

void MifToDrawing::ShowRemainingRows() {
    if (rows_ && !rows_->AtEnd()) ui_.ShowMessage("Remaining MID Entries Starting with\n" + rows_->ReadRow());
}

std::vector<std::string> MifToDrawing::Remarks() const {
    std::vector<std::string> remarks;
    if (none_ > 0) remarks.push_back("objects without geometry, left out: " + util::GroupedCount(none_));
    if (notTaken_ > 0)
        remarks.push_back("arcs and rectangles, left out: " + util::GroupedCount(notTaken_) +
                          "; [MIDIN] Extended=1 imports them");
    if (unknown_ > mostUnknownLines)
        remarks.push_back(util::GroupedCount(unknown_ - mostUnknownLines) + " more lines are not known");
    if (!decoder_.IsKnown())
        remarks.push_back("its character set \"" + charset_ +
                          "\" is not known; its text was read as Windows-1252");
    if (decoder_.Misfits() > 0 && !formats::IsNeutralCharset(charset_))
        remarks.push_back(util::Counted(decoder_.Misfits(), "text") + " not valid in its character set " +
                          charset_ + ", read as Windows-1252");
    return remarks;
}

}  // namespace vexlator::importer

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfWriter.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Angles.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace vexlator::formats {

using util::PlanePoint;

namespace {

struct ReleaseRow {
    std::string_view name, version;
    DxfRelease release;
};

constexpr ReleaseRow releases[] = {
    {"R12", "AC1009", DxfRelease::R12},    {"2000", "AC1015", DxfRelease::R2000},
    {"2004", "AC1018", DxfRelease::R2004}, {"2007", "AC1021", DxfRelease::R2007},
    {"2010", "AC1024", DxfRelease::R2010}, {"2013", "AC1027", DxfRelease::R2013},
    {"2018", "AC1032", DxfRelease::R2018}};

constexpr std::size_t longestText = 250;       ///< bytes of a text of an entity's values
constexpr std::size_t mostValueBytes = 16000;  ///< of an entity
constexpr int handleDigits = 16;
constexpr double degrees = util::degreesPerRadian;

std::string Hex(std::uint64_t value, int digits = 1) {
    constexpr std::string_view figures = "0123456789ABCDEF";
    std::string text;
    for (; value > 0 || digits > 0; value >>= 4, --digits) text.insert(text.begin(), figures[value & 0xF]);
    return text;
}

/// The weights that the format has.
int NearestWeight(int weight) {
    constexpr std::array weights = {5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50, 53,
                                    60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    return *std::ranges::min_element(weights, {}, [&](int each) { return std::abs(each - weight); });
}

/// Attributes are short lines without blanks at their ends. Readers differ in codes of special characters.
bool FitsAttribute(std::string_view value) {
    return value.size() <= longestText && util::Trim(value) == value &&
           value.find("%%") == std::string_view::npos &&
           std::ranges::none_of(value, [](unsigned char c) { return c < ' '; });
}

/// Two percent signs begin the code of a special character; three are one.
std::string WithPlainPercents(std::string_view text) {
    return util::ReplaceAll(text, "%%", "%%%%%%");
}

/// A letter for what names cannot hold.
std::string PlainName(std::string_view name) {
    std::string plain(util::Trim(name));
    std::ranges::replace_if(
        plain,
        [](unsigned char c) {
            return c < ' ' ||
                   std::string_view("<>/\\\":;?*|,=`").find(static_cast<char>(c)) != std::string_view::npos;
        },
        '_');
    return plain.empty() ? "_" : plain;
}

}  // namespace

bool FindDxfRelease(std::string_view name, DxfRelease& release) {
    auto found = std::ranges::find_if(
        releases, [&](const ReleaseRow& row) { return platform::SameNoCase(row.name, name); });
    if (found == std::end(releases)) return false;
    release = found->release;
    return true;
}

DxfWriter::DxfWriter(platform::OutputFile& file, const DxfHead& head)
    : file_(file), release_(head.release), application_(head.application) {
    WriteHeader(head);
    WriteTables(head);
    Group(0, "SECTION");
    Group(2, "BLOCKS");
    if (HasClasses()) {
        WriteSpace("*Model_Space");
        WriteSpace("*Paper_Space");
    }
}

// --- Groups

void DxfWriter::Group(int code, std::string_view value) {
    std::array<char, 16> number{};
    char* end = std::to_chars(number.data(), number.data() + number.size(), code).ptr;
    file_.Write(std::string_view(number.data(), static_cast<std::size_t>(end - number.data())));
    file_.Write("\r\n");
    file_.Write(value);
    file_.Write("\r\n");
}

void DxfWriter::Group(int code, std::int64_t value) {
    std::array<char, 24> text{};
    char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    Group(code, std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

void DxfWriter::Number(int code, double value) {
    std::array<char, util::longestShortest> text{};
    char* end = util::WriteShortest(text.data(), std::isfinite(value) ? value : 0);
    Group(code, std::string_view(text.data(), static_cast<std::size_t>(end - text.data())));
}

void DxfWriter::Place(int code, double x, double y, double z) {
    Number(code, x);
    Number(code + 10, y);
    Number(code + 20, z);
}

/// Releases before 2007 have Windows-1252, with escapes for other characters.
void DxfWriter::Text(int code, std::string_view text) {
    std::string plain;
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (c == '^')
            plain += "^ ";
        else if (byte < ' ')
            plain.append("^").append(1, static_cast<char>(byte + '@'));
        else
            plain += c;
    }
    if (release_ >= DxfRelease::R2007 || platform::IsAscii(plain)) return Group(code, plain);
    std::string encoded;
    for (std::string_view left = plain; !left.empty();) {
        char32_t character = 0;
        std::size_t length = std::max<std::size_t>(platform::DecodeUtf8(left, character), 1);
        std::string_view one = left.substr(0, length);
        encoded +=
            platform::FitsWindows1252(one) ? platform::Windows1252FromUtf8(one) : "\\U+" + Hex(character, 4);
        left.remove_prefix(length);
    }
    Group(code, encoded);
}

void DxfWriter::Name(int code, std::string_view name) {
    Text(code, name.starts_with('*') ? std::string(name) : PlainName(name));
}

std::string DxfWriter::NextHandle() {
    return Hex(++handle_);
}

void DxfWriter::Class(std::string_view name) {
    if (HasClasses()) Group(100, name);
}

void DxfWriter::Colour(const DxfColour& colour) {
    if (colour.index != DxfColour::byLayer) Group(62, static_cast<std::int64_t>(colour.index));
    if (colour.rgb >= 0 && release_ >= DxfRelease::R2004) Group(420, colour.rgb);
}

void DxfWriter::BeginEntity(std::string_view type, std::string_view className, const DxfLook& look) {
    Group(0, type);
    Group(5, NextHandle());
    if (HasClasses()) Group(330, ownerHandle_);
    Class("AcDbEntity");
    Name(8, look.layer);
    if (!look.lineType.empty()) Name(6, look.lineType);
    Colour(look.colour);
    if (look.weight > 0 && HasClasses()) Group(370, static_cast<std::int64_t>(NearestWeight(look.weight)));
    if (!className.empty()) Class(className);
}

/// Pairs of name and value, as a list of texts between braces; long values in several texts.
void DxfWriter::Values(DxfValues values) {
    if (values.empty()) return;
    Group(1001, application_);
    std::size_t bytes = 0;
    for (const auto& [name, value] : values) {
        bytes += name.size() + value.size() + 32;
        if (bytes > mostValueBytes) {
            ++cut_;
            continue;
        }
        Group(1002, "{");
        Text(1000, platform::CutUtf8(name, longestText));
        std::string_view left = value;
        do {
            std::string_view part = platform::CutUtf8(left, longestText);
            if (part.empty()) part = left.substr(0, longestText);
            Text(1000, part);
            left.remove_prefix(part.size());
        } while (!left.empty());
        Group(1002, "}");
    }
}

// --- Sections

void DxfWriter::WriteHeader(const DxfHead& head) {
    auto row = std::ranges::find(releases, head.release, &ReleaseRow::release);
    Group(0, "SECTION");
    Group(2, "HEADER");
    Group(9, "$ACADVER");
    Group(1, row->version);
    Group(9, "$DWGCODEPAGE");
    Group(3, "ANSI_1252");
    Group(9, "$HANDSEED");
    file_.Write("5\r\n");
    seedOffset_ = file_.Size();
    file_.Write(Hex(0, handleDigits) + "\r\n");
    Group(9, "$INSBASE");
    Place(10, 0, 0, 0);
    Group(9, "$EXTMIN");
    Place(10, head.minX, head.minY, 0);
    Group(9, "$EXTMAX");
    Place(10, head.maxX, head.maxY, 0);
    if (HasClasses()) {
        constexpr std::int64_t metres = 6;
        Group(9, "$INSUNITS");
        Group(70, metres);
        Group(9, "$MEASUREMENT");
        Group(70, std::int64_t{1});
    }
    Group(0, "ENDSEC");
    if (!HasClasses()) return;
    Group(0, "SECTION");
    Group(2, "CLASSES");
    Group(0, "ENDSEC");
}

void DxfWriter::WriteTables(const DxfHead& head) {
    Group(0, "SECTION");
    Group(2, "TABLES");
    if (HasClasses()) WriteEmptyTables(head);
    WriteLineTypes(head);
    WriteLayers(head);
    WriteStyles(head);
    BeginTable("APPID", 2);
    for (const std::string& name : {std::string("ACAD"), head.application}) {
        TableEntry("APPID", "AcDbRegAppTableRecord");
        Group(2, name);
        Group(70, std::int64_t{0});
    }
    Group(0, "ENDTAB");
    if (HasClasses()) WriteBlockRecords(head);
    Group(0, "ENDSEC");
}

void DxfWriter::BeginTable(std::string_view name, std::size_t entries) {
    Group(0, "TABLE");
    Group(2, name);
    tableHandle_ = NextHandle();
    Group(5, tableHandle_);
    if (HasClasses()) Group(330, "0");
    Class("AcDbSymbolTable");
    Group(70, static_cast<std::int64_t>(entries));
}

void DxfWriter::TableEntry(std::string_view table, std::string_view className) {
    Group(0, table);
    Group(table == "DIMSTYLE" ? 105 : 5, NextHandle());
    if (HasClasses()) Group(330, tableHandle_);
    Class("AcDbSymbolTableRecord");
    Class(className);
}

void DxfWriter::WriteLineTypes(const DxfHead& head) {
    std::vector<DxfLineType> types{{"ByBlock"}, {"ByLayer"}, {"Continuous"}};
    types.insert(types.end(), head.lineTypes.begin(), head.lineTypes.end());
    BeginTable("LTYPE", types.size());
    for (const DxfLineType& type : types) {
        TableEntry("LTYPE", "AcDbLinetypeTableRecord");
        Name(2, type.name);
        Group(70, std::int64_t{0});
        Group(3, "");
        Group(72, std::int64_t{'A'});
        Group(73, static_cast<std::int64_t>(type.lengths.size()));
        double period = 0;
        for (double length : type.lengths) period += std::abs(length);
        Number(40, period);
        for (double length : type.lengths) {
            Number(49, length);
            if (HasClasses()) Group(74, std::int64_t{0});
        }
    }
    Group(0, "ENDTAB");
}

void DxfWriter::WriteLayers(const DxfHead& head) {
    std::vector<DxfTableLayer> layers = head.layers;
    if (std::ranges::find(layers, "0", &DxfTableLayer::name) == layers.end())
        layers.insert(layers.begin(), {"0", {7, -1}, false});
    BeginTable("LAYER", layers.size());
    for (const DxfTableLayer& layer : layers) {
        TableEntry("LAYER", "AcDbLayerTableRecord");
        Name(2, layer.name);
        Group(70, std::int64_t{layer.isFrozen ? 1 : 0});
        DxfColour colour = layer.colour;
        if (colour.index == DxfColour::byLayer || colour.index == DxfColour::byBlock) colour.index = 7;
        Colour(colour);
        Group(6, "Continuous");
    }
    Group(0, "ENDTAB");
}

void DxfWriter::WriteStyles(const DxfHead& head) {
    std::vector<std::string> styles{"Standard"};
    for (const std::string& name : head.textStyles)
        if (!platform::SameNoCase(name, styles.front())) styles.push_back(name);
    BeginTable("STYLE", styles.size());
    for (const std::string& name : styles) {
        TableEntry("STYLE", "AcDbTextStyleTableRecord");
        Name(2, name);
        Group(70, std::int64_t{0});
        Number(40, 0);
        Number(41, 1);
        Number(50, 0);
        Group(71, std::int64_t{0});
        Number(42, 1);
        Group(3, "arial.ttf");
        Group(4, "");
    }
    Group(0, "ENDTAB");
}

void DxfWriter::WriteEmptyTables(const DxfHead& head) {
    BeginTable("VPORT", 1);
    TableEntry("VPORT", "AcDbViewportTableRecord");
    Group(2, "*Active");
    Group(70, std::int64_t{0});
    auto pair = [&](int code, double x, double y) {
        Number(code, x);
        Number(code + 10, y);
    };
    double width = std::max(head.maxX - head.minX, 1.0), height = std::max(head.maxY - head.minY, 1.0);
    pair(10, 0, 0);
    pair(11, 1, 1);
    pair(12, (head.minX + head.maxX) / 2, (head.minY + head.maxY) / 2);
    Place(16, 0, 0, 1);
    Place(17, 0, 0, 0);
    Number(40, std::max(height, width / 1.5) * 1.05);
    Number(41, 1.5);
    Group(0, "ENDTAB");
    for (const char* name : {"VIEW", "UCS"}) {
        BeginTable(name, 0);
        Group(0, "ENDTAB");
    }
    BeginTable("DIMSTYLE", 1);
    Class("AcDbDimStyleTable");
    TableEntry("DIMSTYLE", "AcDbDimStyleTableRecord");
    Group(2, "Standard");
    Group(70, std::int64_t{0});
    Group(0, "ENDTAB");
}

void DxfWriter::WriteBlockRecords(const DxfHead& head) {
    std::vector<std::string> names{"*Model_Space", "*Paper_Space"};
    names.insert(names.end(), head.blocks.begin(), head.blocks.end());
    BeginTable("BLOCK_RECORD", names.size());
    for (const std::string& name : names) {
        TableEntry("BLOCK_RECORD", "AcDbBlockTableRecord");
        records_.emplace_back(name, Hex(handle_));
        Name(2, name);
    }
    Group(0, "ENDTAB");
}

void DxfWriter::WriteSpace(std::string_view name) {
    BeginBlock(name);
    EndBlock();
}

void DxfWriter::BeginBlock(std::string_view name) {
    auto record = std::ranges::find(records_, name, &std::pair<std::string, std::string>::first);
    ownerHandle_ = record == records_.end() ? "0" : record->second;
    BeginEntity("BLOCK", "AcDbBlockBegin", {.layer = "0"});
    Name(2, name);
    Group(70, std::int64_t{0});
    Place(10, 0, 0, 0);
    Name(3, name);
    Group(1, "");
}

void DxfWriter::EndBlock() {
    BeginEntity("ENDBLK", "AcDbBlockEnd", {.layer = "0"});
}

void DxfWriter::BeginEntities() {
    Group(0, "ENDSEC");
    Group(0, "SECTION");
    Group(2, "ENTITIES");
    ownerHandle_ = records_.empty() ? "0" : records_.front().second;
}

void DxfWriter::Finish() {
    Group(0, "ENDSEC");
    if (HasClasses()) {
        Group(0, "SECTION");
        Group(2, "OBJECTS");
        std::string root = NextHandle(), groups = NextHandle();
        Group(0, "DICTIONARY");
        Group(5, root);
        Group(330, "0");
        Group(100, "AcDbDictionary");
        Group(281, std::int64_t{1});
        Group(3, "ACAD_GROUP");
        Group(350, groups);
        Group(0, "DICTIONARY");
        Group(5, groups);
        Group(330, root);
        Group(100, "AcDbDictionary");
        Group(281, std::int64_t{1});
        Group(0, "ENDSEC");
    }
    Group(0, "EOF");
    file_.WriteAt(seedOffset_, Hex(handle_ + 1, handleDigits));
}

// --- Entities

void DxfWriter::AddPoint(const DxfLook& look, double x, double y, double z, DxfValues values) {
    BeginEntity("POINT", "AcDbPoint", look);
    Place(10, x, y, z);
    Values(values);
}

void DxfWriter::AddPolyline(const DxfLook& look, std::span<const PlanePoint> points,
                            std::span<const double> heights, bool isClosed, DxfValues values) {
    bool isFlat = heights.empty() || std::ranges::all_of(heights, [&](double z) { return z == heights[0]; });
    double elevation = heights.empty() ? 0 : heights[0];
    if (isFlat && HasClasses()) {
        BeginEntity("LWPOLYLINE", "AcDbPolyline", look);
        Group(90, static_cast<std::int64_t>(points.size()));
        Group(70, std::int64_t{isClosed ? 1 : 0});
        if (elevation != 0) Number(38, elevation);
        for (const PlanePoint& point : points) {
            Number(10, point.x);
            Number(20, point.y);
        }
        return Values(values);
    }
    constexpr std::int64_t closed = 1, inSpace = 8, vertexInSpace = 32;
    BeginEntity("POLYLINE", isFlat ? "AcDb2dPolyline" : "AcDb3dPolyline", look);
    Group(66, std::int64_t{1});
    Place(10, 0, 0, isFlat ? elevation : 0);
    Group(70, (isClosed ? closed : 0) | (isFlat ? 0 : inSpace));
    Values(values);
    for (std::size_t i = 0; i < points.size(); ++i) {
        BeginEntity("VERTEX", "AcDbVertex", {.layer = look.layer});
        Class(isFlat ? "AcDb2dVertex" : "AcDb3dPolylineVertex");
        Place(10, points[i].x, points[i].y, heights.empty() ? 0 : heights[i]);
        if (!isFlat) Group(70, vertexInSpace);
    }
    BeginEntity("SEQEND", "", {.layer = look.layer});
}

void DxfWriter::AddHatch(const DxfLook& look, std::span<const std::span<const PlanePoint>> rings) {
    if (!HasHatches()) return;
    constexpr std::int64_t external = 1, polyline = 2;
    BeginEntity("HATCH", "AcDbHatch", look);
    Place(10, 0, 0, 0);
    Place(210, 0, 0, 1);
    Group(2, "SOLID");
    Group(70, std::int64_t{1});
    Group(71, std::int64_t{0});
    Group(91, static_cast<std::int64_t>(rings.size()));
    for (std::size_t i = 0; i < rings.size(); ++i) {
        Group(92, polyline | (i == 0 ? external : 0));
        Group(72, std::int64_t{0});
        Group(73, std::int64_t{1});
        Group(93, static_cast<std::int64_t>(rings[i].size()));
        for (const PlanePoint& point : rings[i]) {
            Number(10, point.x);
            Number(20, point.y);
        }
        Group(97, std::int64_t{0});
    }
    Group(75, std::int64_t{0});
    Group(76, std::int64_t{1});
    Group(98, std::int64_t{0});
}

void DxfWriter::InsertBody(const DxfInsert& insert) {
    Name(2, insert.block);
    Place(10, insert.x, insert.y, insert.z);
    Number(41, insert.scaleX);
    Number(42, insert.scaleY);
    Number(50, insert.rotation * degrees);
}

void DxfWriter::AddInsert(const DxfLook& look, const DxfInsert& insert, DxfValues values) {
    BeginEntity("INSERT", "AcDbBlockReference", look);
    InsertBody(insert);
    Values(values);
}

void DxfWriter::AddInsertWithAttributes(const DxfLook& look, const DxfInsert& insert, DxfValues attributes) {
    std::vector<std::pair<std::string_view, std::string_view>> fitting, others;
    for (const auto& attribute : attributes)
        (FitsAttribute(attribute.second) ? fitting : others).push_back(attribute);
    if (fitting.empty()) return AddInsert(look, insert, others);
    BeginEntity("INSERT", "AcDbBlockReference", look);
    Group(66, std::int64_t{1});
    InsertBody(insert);
    Values(others);
    double y = insert.y;
    for (const auto& [name, value] : fitting) {
        constexpr double lineOfHeight = 1.5;
        y -= lineOfHeight * insert.attributeHeight;
        Attribute(look, insert, name, value, y);
    }
    BeginEntity("SEQEND", "", {.layer = look.layer});
}

void DxfWriter::Attribute(const DxfLook& look, const DxfInsert& insert, std::string_view tag,
                          std::string_view value, double y) {
    BeginEntity("ATTRIB", "AcDbText", {.layer = look.layer, .lineType = {}, .colour = look.colour});
    Place(10, insert.x, y, insert.z);
    Number(40, insert.attributeHeight);
    Text(1, value);
    Class("AcDbAttribute");
    // Blanks end a tag.
    std::string plain = util::ReplaceAll(PlainName(tag), " ", "_");
    Text(2, plain);
    Group(70, std::int64_t{insert.showsAttributes ? 0 : 1});
}

void DxfWriter::AddText(const DxfLook& look, const DxfText& text, DxfValues values) {
    bool hasLines = text.text.find('\n') != std::string_view::npos || text.text.size() > longestText;
    if (hasLines && HasClasses()) {
        WideText(look, text);
        return Values(values);
    }
    BeginEntity("TEXT", "AcDbText", look);
    Place(10, text.x, text.y, text.z);
    Number(40, text.height);
    Text(1, WithPlainPercents(hasLines ? util::ReplaceAll(text.text, "\n", " ") : std::string(text.text)));
    if (text.rotation != 0) Number(50, text.rotation * degrees);
    if (!text.style.empty()) Name(7, text.style);
    constexpr std::int64_t centre = 1, bottom = 1;
    if (text.isCentred) {
        Group(72, centre);
        Place(11, text.x, text.y, text.z);
    }
    Class("AcDbText");
    if (text.isCentred) Group(73, bottom);
    Values(values);
}

/// A text of several lines.
void DxfWriter::WideText(const DxfLook& look, const DxfText& text) {
    constexpr std::int64_t bottomLeft = 7, bottomCentre = 8;
    BeginEntity("MTEXT", "AcDbMText", look);
    Place(10, text.x, text.y, text.z);
    Number(40, text.height);
    Group(71, text.isCentred ? bottomCentre : bottomLeft);
    std::string escaped = util::ReplaceAll(text.text, "\\", "\\\\");
    escaped = util::ReplaceAll(util::ReplaceAll(escaped, "{", "\\{"), "}", "\\}");
    escaped = util::ReplaceAll(util::ReplaceAll(escaped, "\r", ""), "\n", "\\P");
    std::string_view left = escaped;
    for (; left.size() > longestText; left.remove_prefix(platform::CutUtf8(left, longestText).size()))
        Text(3, platform::CutUtf8(left, longestText));
    Text(1, left);
    if (!text.style.empty()) Name(7, text.style);
    Number(50, text.rotation * degrees);
}

void DxfWriter::AddCircle(const DxfLook& look, double x, double y, double z, double radius,
                          DxfValues values) {
    BeginEntity("CIRCLE", "AcDbCircle", look);
    Place(10, x, y, z);
    Number(40, radius);
    Values(values);
}

void DxfWriter::AddArc(const DxfLook& look, double x, double y, double z, double radius, double start,
                       double end, DxfValues values) {
    BeginEntity("ARC", "AcDbCircle", look);
    Place(10, x, y, z);
    Number(40, radius);
    Class("AcDbArc");
    Number(50, start * degrees);
    Number(51, end * degrees);
    Values(values);
}

}  // namespace vexlator::formats

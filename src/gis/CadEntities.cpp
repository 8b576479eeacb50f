// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/CadEntities.h"

#include "drawing/Palette.h"
#include "export/RingMarks.h"
#include "formats/dxf/DxfLayers.h"
#include "gis/Ogr.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Angles.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace vexlator::gis {

namespace {

constexpr std::string_view application = "VEXLATOR", hiddenEnding = "_HIDDEN";

/// #RRGGBB, or #RRGGBBAA with 00 for what is not shown.
struct Colours {
    std::uint32_t rgb = 0;
    bool isShown = true;
};

Colours ParseColour(std::string_view text) {
    Colours colour;
    constexpr std::size_t digits = 6;
    if (text.size() <= digits || text[0] != '#') return colour;
    std::from_chars(text.data() + 1, text.data() + 1 + digits, colour.rgb, 16);
    colour.isShown = text.substr(1 + digits) != "00";
    return colour;
}

bool IsHidden(const Look& look, const std::optional<Label>& label) {
    return !ParseColour(look.pen).isShown || !ParseColour(look.brush).isShown ||
           (label && !ParseColour(label->colour).isShown);
}

std::vector<double> NumbersOf(OGRFeatureH feature, int field) {
    if (field < 0 || !OGR_F_IsFieldSetAndNotNull(feature, field)) return {};
    int count = 0;
    const double* numbers = OGR_F_GetFieldAsDoubleList(feature, field, &count);
    return {numbers, numbers + count};
}

template <typename Visit>
void ForEachText(OGRFeatureH feature, int field, Visit visit) {
    if (field < 0 || !OGR_F_IsFieldSetAndNotNull(feature, field)) return;
    char** texts = OGR_F_GetFieldAsStringList(feature, field);
    for (; texts && *texts; ++texts) visit(std::string_view(*texts));
}

bool SameRing(const drawing::EntityView& entity, const std::vector<util::PlanePoint>& ring) {
    std::span<const util::PlanePoint> own = entity.planVertices();
    return entity.kindCode() == drawing::Kind::Polyline && entity.isClosed() &&
           std::ranges::equal(own, ring, [](const util::PlanePoint& a, const util::PlanePoint& b) {
               constexpr double nearness = 1e-6;
               return std::fabs(a.x - b.x) < nearness && std::fabs(a.y - b.y) < nearness;
           });
}

/// Without the repeated end.
std::vector<util::PlanePoint> PointsOf(OGRGeometryH ring) {
    std::vector<util::PlanePoint> points(static_cast<std::size_t>(OGR_G_GetPointCount(ring)));
    if (points.empty()) return points;
    constexpr int stride = sizeof(util::PlanePoint);
    OGR_G_GetPoints(ring, &points[0].x, stride, &points[0].y, stride, nullptr, 0);
    if (points.size() > 1 && points.front() == points.back()) points.pop_back();
    return points;
}

}  // namespace

CadEntities::CadEntities(drawing::Drawing& drawing, OGRFeatureDefnH definition, Place place)
    : drawing_(drawing), place_(place) {
    auto find = [&](const char* name) { return OGR_FD_GetFieldIndex(definition, name); };
    fields_ = {find("Layer"),        find("SubClasses"),    find("Linetype"),       find("BlockName"),
               find("BlockScale"),   find("BlockAngle"),    find("BlockOCSNormal"), find("BlockAttributes"),
               find("Block"),        find("AttributeTag"),  find("RawCodeValues"),  find("Level"),
               find("EntityHandle"), find("extentity_data")};
}

std::string CadEntities::TextOf(OGRFeatureH feature, int field) const {
    bool isSet = field >= 0 && OGR_F_IsFieldSetAndNotNull(feature, field);
    return isSet ? formats::DecodeDxfEscapes(OGR_F_GetFieldAsString(feature, field)) : "";
}

std::string CadEntities::InsertedBlock(OGRFeatureH feature) const {
    return TextOf(feature, fields_.blockName);
}

void CadEntities::Collect(OGRGeometryH geometry, std::vector<OGRGeometryH>& parts) {
    OGRwkbGeometryType type = OGR_GT_Flatten(OGR_G_GetGeometryType(geometry));
    if (type == wkbPoint || type == wkbLineString || type == wkbPolygon || type == wkbTriangle)
        return parts.push_back(geometry);
    for (int i = 0; i < OGR_G_GetGeometryCount(geometry); ++i)
        Collect(OGR_G_GetGeometryRef(geometry, i), parts);
}

bool CadEntities::FillsLast(OGRFeatureH feature) {
    OGRGeometryH geometry = OGR_F_GetGeometryRef(feature);
    const char* text = OGR_F_GetStyleString(feature);
    if (!geometry || !text || !std::string_view(text).starts_with("BRUSH(")) return false;
    Look look = LookOf(feature);
    std::vector<OGRGeometryH> parts;
    Collect(geometry, parts);
    std::vector<Ring> rings;
    for (OGRGeometryH part : parts) {
        if (OGR_GT_Flatten(OGR_G_GetGeometryType(part)) != wkbPolygon) return false;
        for (int i = 0; i < OGR_G_GetGeometryCount(part); ++i)
            rings.push_back(PointsOf(OGR_G_GetGeometryRef(part, i)));
    }
    std::size_t count = drawing_.entityCount();
    if (rings.empty() || rings.size() > count) return false;
    std::string layer = TextOf(feature, fields_.layer);
    for (std::size_t i = 0; i < rings.size(); ++i) {
        drawing::Entity entity = drawing_.entityAt(count - rings.size() + i);
        bool sameLayer = layer.empty() || platform::SameNoCase(entity.layerName(), layer);
        if (!sameLayer || !SameRing(entity, rings[i])) return false;
    }
    for (std::size_t i = 0; i < rings.size(); ++i) {
        drawing::Entity entity = drawing_.entityAt(count - rings.size() + i);
        drawing::Style style = entity.style();
        style.fillColour = ColourOf(look.brush);
        style.outlineColour = style.colour;
        entity.setStyle(style);
        entity.setFilled(true);
    }
    return true;
}

/// Most features look like the one before.
const Look& CadEntities::CurrentLook(OGRFeatureH feature) {
    const char* text = OGR_F_GetStyleString(feature);
    if (std::string_view style = text ? text : ""; style != lastStyle_) {
        lastLook_ = LookOf(feature);
        lastStyle_ = style;
    }
    return lastLook_;
}

bool CadEntities::Add(OGRFeatureH feature) {
    OGRGeometryH geometry = OGR_F_GetGeometryRef(feature);
    if (!geometry || OGR_G_IsEmpty(geometry)) return false;
    // In a block it only says which attributes inserts have.
    if (place_ == Place::Symbol && fields_.tag >= 0 && OGR_F_IsFieldSetAndNotNull(feature, fields_.tag))
        return false;
    const Look& look = CurrentLook(feature);
    std::optional<Label> label = LabelOf(feature);
    SelectLayer(feature, IsHidden(look, label));
    drawing::Style style = StyleOf(feature, look);
    if (label) style.colour = ColourOf(label->colour);
    if (!label && look.pen.empty() && look.brush.empty()) style.colour = InsertColour(feature);
    if (!(style == drawing_.activeStyle())) drawing_.setActiveStyle(style);
    ReadAttributes(feature);
    if (std::string block = InsertedBlock(feature); !block.empty()) {
        AddInsert(feature, geometry, block);
        GiveAttributes(0, false);
        return true;
    }
    if (label && !label->text.empty()) {
        AddText(geometry, *label);
        GiveAttributes(0, false);
        return true;
    }
    Geometry straight;
    if (OGR_G_HasCurveGeometry(geometry, 0)) {
        straight.reset(OGR_G_GetLinearGeometry(geometry, 0, nullptr));
        geometry = straight.get();
    }
    return AddGeometry(geometry, !look.brush.empty());
}

/// Hidden entities on a visible layer go to a frozen one beside it.
void CadEntities::SelectLayer(OGRFeatureH feature, bool isHidden) {
    std::string name = TextOf(feature, fields_.layer);
    if (fields_.level >= 0) name = "LEVEL " + TextOf(feature, fields_.level);
    if (name.empty()) name = usualLayer_;
    if (isHidden && place_ == Place::Ground) {
        drawing::Layer* layer = drawing_.findLayer(name);
        if (!layer || !layer->frozen) {
            name += hiddenEnding;
            drawing_.addLayer(name).frozen = true;
        }
    }
    if (drawing_.activeLayerName() != name) drawing_.setActiveLayer(name);
}

/// GDAL tells none. Without one of its own it is that of its layer.
drawing::Colour CadEntities::InsertColour(OGRFeatureH feature) {
    if (place_ == Place::Symbol) return drawing::defaultColour;
    if (colours_) {
        auto own = colours_->find(TextOf(feature, fields_.handle));
        if (own != colours_->end()) return own->second;
    }
    const drawing::Layer* layer = drawing_.findLayer(drawing_.activeLayerName());
    return layer ? layer->colour : drawing::defaultColour;
}

/// In a block black is the colour of its insert.
drawing::Colour CadEntities::ColourOf(std::string_view text) const {
    return text.empty() ? drawing::defaultColour : drawing::ColourOfRgb(ParseColour(text).rgb);
}

drawing::Style CadEntities::StyleOf(OGRFeatureH feature, const Look& look) const {
    constexpr double perMillimetre = 100, widest = 211;
    drawing::Style style;
    style.colour = ColourOf(look.pen.empty() ? look.brush : look.pen);
    style.fillColour = ColourOf(look.brush);
    if (!look.brush.empty()) style.outlineColour = style.colour;
    if (look.width > 0 && fields_.raw >= 0)
        style.lineWeight =
            static_cast<std::int32_t>(std::lround(std::min(look.width * perMillimetre, widest)));
    std::string lineType = TextOf(feature, fields_.lineType);
    bool isPlain = platform::SameNoCase(lineType, "ByLayer") || platform::SameNoCase(lineType, "ByBlock") ||
                   platform::SameNoCase(lineType, "Continuous");
    if (!isPlain) style.lineType = lineType;
    return style;
}

// --- Attributes

void CadEntities::ReadAttributes(OGRFeatureH feature) {
    attributes_.clear();
    AddBlockAttributes(feature);
    AddExtendedData(feature);
    if (std::string text = TextOf(feature, fields_.extended); !text.empty())
        attributes_.emplace_back("EXTENDED", text);
}

/// Each is its tag, a blank and its value.
void CadEntities::AddBlockAttributes(OGRFeatureH feature) {
    ForEachText(feature, fields_.attributes, [this](std::string_view text) {
        std::size_t blank = text.find(' ');
        attributes_.emplace_back(
            platform::AsUtf8(text.substr(0, blank)),
            blank == std::string_view::npos ? "" : formats::DecodeDxfEscapes(text.substr(blank + 1)));
    });
}

/// Groups from 1000 on, each its code, a blank and its value. Ours are pairs between braces; those of another
/// application are one value under its name.
void CadEntities::AddExtendedData(OGRFeatureH feature) {
    constexpr std::int64_t firstCode = 1000, nameCode = 1001, braceCode = 1002;
    bool isOurs = false, isName = false, isOpen = false;
    ForEachText(feature, fields_.raw, [&](std::string_view group) {
        std::int64_t code = util::IntegerOf(group);
        std::size_t blank = group.find(' ');
        if (code < firstCode || blank == std::string_view::npos) return;
        std::string value = formats::DecodeDxfText(group.substr(blank + 1));
        if (code == nameCode) {
            isOurs = value == application;
            if (!isOurs) attributes_.emplace_back(value, "");
            isOpen = false;
        } else if (code == braceCode) {
            isOpen = isName = value == "{";
        } else if (isOurs && isOpen && isName) {
            attributes_.emplace_back(value, "");
            isName = false;
        } else if (!attributes_.empty()) {
            std::string& last = attributes_.back().second;
            last.append(isOurs || last.empty() ? "" : "; ").append(value);
        }
    });
}

void CadEntities::GiveAttributes(std::uint64_t surface, bool isHole) {
    std::vector<std::string> names;
    for (const auto& [name, value] : attributes_) names.push_back(name);
    if (surface > 0) names.emplace_back(exporter::surfaceName);
    if (isHole) names.emplace_back(exporter::holeName);
    if (names.empty()) return;
    drawing_.beginValues(drawing_.attributeSet(names));
    for (const auto& [name, value] : attributes_) drawing_.appendValue(value);
    if (surface > 0) drawing_.appendValue(std::to_string(surface));
    if (isHole) drawing_.appendValue("1");
}

// --- Geometry

void CadEntities::AddInsert(OGRFeatureH feature, OGRGeometryH at, const std::string& block) {
    std::vector<double> scale = NumbersOf(feature, fields_.scale),
                        normal = NumbersOf(feature, fields_.normal);
    double x = scale.empty() ? 1 : scale[0], y = scale.size() < 2 ? x : scale[1];
    double rotation =
        fields_.angle < 0 ? 0 : OGR_F_GetFieldAsDouble(feature, fields_.angle) / util::degreesPerRadian;
    bool isMirrored = normal.size() == 3 && normal[2] < 0;  // seen from below
    if (isMirrored) {
        x = -x;
        rotation = -rotation;
    }
    drawing_.addInsert({OGR_G_GetX(at, 0), OGR_G_GetY(at, 0), OGR_G_GetZ(at, 0)}, block, x, y, rotation);
}

/// The anchor counts left, middle and right, in rows from the foot up; the drawing's is the left one on the
/// foot.
void CadEntities::AddText(OGRGeometryH at, const Label& label) {
    constexpr double widthOfHeight = 0.65;
    constexpr int columns = 3, rowsAboveFoot = 3;
    double width = widthOfHeight * label.height * static_cast<double>(platform::CountCharacters(label.text));
    int row = (label.anchor - 1) / columns;
    double along = width * ((label.anchor - 1) % columns) / 2 - label.shiftX;
    double up = (row < rowsAboveFoot ? label.height * row / 2 : 0) - label.shiftY;
    double x = OGR_G_GetX(at, 0) - along * std::cos(label.angle) + up * std::sin(label.angle);
    double y = OGR_G_GetY(at, 0) - along * std::sin(label.angle) - up * std::cos(label.angle);
    drawing_.addText({x, y, OGR_G_GetZ(at, 0)}, formats::DecodeDxfEscapes(label.text),
                     label.height > 0 ? label.height : 1, label.angle);
}

bool CadEntities::AddGeometry(OGRGeometryH geometry, bool isFilled) {
    std::vector<OGRGeometryH> parts;
    Collect(geometry, parts);
    auto surfaces =
        std::ranges::count_if(parts, [](OGRGeometryH part) { return OGR_G_GetGeometryCount(part) > 0; });
    std::uint64_t surface = 0;
    for (OGRGeometryH part : parts) {
        OGRwkbGeometryType type = OGR_GT_Flatten(OGR_G_GetGeometryType(part));
        if (type == wkbPolygon || type == wkbTriangle) {
            AddRings(part, surfaces > 1 ? ++surface : 0, isFilled);
            continue;
        }
        if (type == wkbPoint)
            drawing_.addPoint({OGR_G_GetX(part, 0), OGR_G_GetY(part, 0), OGR_G_GetZ(part, 0)});
        else
            AddLine(part);
        GiveAttributes(0, false);
    }
    return !parts.empty();
}

void CadEntities::AddLine(OGRGeometryH geometry) {
    int count = OGR_G_GetPointCount(geometry);
    bool isClosed = count > 3 && OGR_G_GetX(geometry, 0) == OGR_G_GetX(geometry, count - 1) &&
                    OGR_G_GetY(geometry, 0) == OGR_G_GetY(geometry, count - 1) &&
                    OGR_G_GetZ(geometry, 0) == OGR_G_GetZ(geometry, count - 1);
    drawing::Entity polyline = drawing_.addPolyline();
    AddVertices(geometry, isClosed ? count - 1 : count);
    polyline.setClosed(isClosed);
}

void CadEntities::AddRings(OGRGeometryH polygon, std::uint64_t surface, bool isFilled) {
    for (int i = 0; i < OGR_G_GetGeometryCount(polygon); ++i) {
        OGRGeometryH ring = OGR_G_GetGeometryRef(polygon, i);
        int count = OGR_G_GetPointCount(ring);
        drawing::Entity polyline = drawing_.addPolyline();
        AddVertices(ring, count > 1 ? count - 1 : count);
        polyline.setClosed(true);
        polyline.setFilled(isFilled);
        GiveAttributes(surface, i > 0);
    }
}

void CadEntities::AddVertices(OGRGeometryH geometry, int count) {
    if (count == 0) return;
    heights_.assign(static_cast<std::size_t>(OGR_G_GetPointCount(geometry)), 0);
    points_.resize(heights_.size());
    constexpr int stride = sizeof(util::PlanePoint);
    OGR_G_GetPoints(geometry, &points_[0].x, stride, &points_[0].y, stride, heights_.data(), sizeof(double));
    std::span<util::PlanePoint> plan = drawing_.extendPlan(static_cast<std::size_t>(count));
    std::copy_n(points_.begin(), count, plan.begin());
    if (std::all_of(heights_.begin(), heights_.begin() + count, [](double z) { return z == 0; })) return;
    drawing::Entity entity = drawing_.entityAt(drawing_.entityCount() - 1);
    for (std::size_t i = 0; i < plan.size(); ++i)
        entity.setVertex(i, {points_[i].x, points_[i].y, heights_[i]});
}

}  // namespace vexlator::gis

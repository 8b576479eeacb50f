// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background_build/ReferenceBuild.h"

#include "background/styling/AnnotationText.h"
#include "background/styling/MobileStyles.h"
#include "background_build/PlainWriter.h"
#include "drawing/Vdf.h"
#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <list>
#include <numbers>
#include <optional>
#include <vector>

namespace vexlator::test {

namespace {

using background::Box;
using background::StyleRow;
using drawing::Kind;
using util::PlanePoint;
using Points = std::vector<PlanePoint>;
using Fields = std::vector<std::string>;

// --- The drawing as a list.

struct PlainEntity {
    Kind kind;
    std::string layer;
    std::optional<drawing::Entity> origin;  ///< whose attributes it has; parts have none
    Points vertices;
    bool isClosed = false;
    drawing::Shape shape;
    std::string text;
    const drawing::Drawing* owner;  ///< whose blocks it may name
    int record = 0;
};

PlainEntity PlainOf(const drawing::Entity& entity, const drawing::Drawing& owner) {
    auto points = entity.planVertices();
    return {entity.kindCode(),
            entity.layerName(),
            entity,
            Points(points.begin(), points.end()),
            entity.isClosed(),
            entity.shape(),
            std::string(entity.text()),
            &owner};
}

std::optional<std::string> ValueOf(const PlainEntity& entity, std::string_view name) {
    if (!entity.origin) return std::nullopt;
    auto attribute = entity.origin->xproperties().find(name);
    return attribute ? std::optional(std::string(attribute->value())) : std::nullopt;
}

bool HasAttributes(const PlainEntity& entity) {
    return entity.origin && entity.origin->xproperties().count() > 0;
}

Fields Split(const std::string& text, char delimiter) {
    Fields fields(1);
    for (char c : text)
        if (c == delimiter)
            fields.emplace_back();
        else
            fields.back() += c;
    return fields;
}

std::string Join(const Fields& fields, const std::string& delimiter) {
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i) text += (i ? delimiter : "") + fields[i];
    return text;
}

std::string Fit(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

double DistanceOf(PlanePoint a, PlanePoint b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

class Reference {
public:
    Reference(drawing::Drawing& drawing, const PlainSettings& settings, background::Classifier& classifier)
        : drawing_(drawing),
          settings_(settings),
          classifier_(classifier),
          mobileStyles_(settings.mobileStyles),
          annotation_(settings.style.annotationFields) {}

    PlainPackage Build() {
        for (std::size_t i = 0; i < drawing_.entityCount(); ++i)
            entities_.push_back(PlainOf(drawing_.entityAt(i), drawing_));
        for (const drawing::Layer& layer : drawing_.layers()) layers_.push_back(layer.name);
        DecideKind();
        ListOptimised();
        if (kind_ == 1)
            for (const std::string& layer : layers_) writer_.package.layers += Encoded(layer) + "\r\n";
        if (kind_ == 2) WriteRecords();
        Relayer();
        Walk();
        return writer_.package;
    }

private:
    static std::string Encoded(const std::string& text) { return platform::Windows1252FromUtf8(text); }

    void DecideKind() {
        kind_ = entities_.empty()                                       ? 0
                : !HasAttributes(entities_[0])                          ? 1
                : background::IsClassifiedDrawing(*entities_[0].origin) ? 3
                                                                        : 2;
        auto first = std::ranges::find(entities_, Kind::Polyline, &PlainEntity::kind);
        background::FeatureHeader ignored;
        isClassified_ = settings_.style.rows.empty() && first != entities_.end() &&
                        classifier_.ClassifyEntity(*first->origin, ignored);
    }

    // --- Attribute records

    void ListOptimised() {
        attributeList_ = settings_.attributeList;
        std::string selected;
        for (const auto& attribute : settings_.style.optimisedAttributes)
            if (attribute.selected) selected += (selected.empty() ? "" : ",") + attribute.name;
        auto layer = std::ranges::find_if(layers_, [](const auto& name) { return name != "0"; });
        if (layers_.size() < 4 && !selected.empty() && layer != layers_.end())
            attributeList_ += "{" + *layer + ",64," + selected + "}";
    }

    /// Layer, width and fields of the group of a layer; nothing when it is not listed.
    Fields GroupOf(const std::string& layer) const {
        for (const std::string& part : Split(attributeList_, '}')) {
            Fields group = Split(part.substr(std::min(part.size(), std::size_t{1})), ',');
            if (group.size() > 1 && platform::SameNoCase(group[0], layer)) return group;
        }
        return {};
    }

    void WriteRecords() {
        for (PlainEntity& entity : entities_) {
            if (!HasAttributes(entity)) continue;
            entity.record = records_++;
            Fields group = GroupOf(entity.layer);
            writer_.package.layers +=
                (group.empty() ? FreeRecord(entity) : ListedRecord(entity, group)) + "\r\n";
            std::string value = ValueOf(entity, settings_.style.searchOnField).value_or("");
            if (!settings_.style.searchOnField.empty() && !value.empty()) AddSearchValue(entity, value);
        }
        for (const auto& [value, square] : search_)
            writer_.package.gazetteer += Encoded(value) + "," + std::to_string(static_cast<long>(square[0])) +
                                         "," + std::to_string(static_cast<long>(square[1])) + "," +
                                         std::to_string(static_cast<long>(square[2])) + "\r\n";
    }

    std::string ListedRecord(const PlainEntity& entity, const Fields& group) {
        std::size_t width = std::stoul(group[1]);
        if (writer_.package.layers.empty())
            writer_.package.layers =
                Fit("***," + Join({group.begin() + 1, group.end()}, ",") + ",", width - 6) + "\r\n";
        Fields values;
        for (std::size_t i = 2; i < group.size(); ++i)
            if (auto value = ValueOf(entity, group[i])) values.push_back(Encoded(*value));
        return Fit(Join(values, ","), width - 2);
    }

    static std::string FreeRecord(const PlainEntity& entity) {
        Fields pairs;
        drawing::XProperties attributes = entity.origin->xproperties();
        for (std::size_t i = 0; i < attributes.count(); ++i) {
            drawing::XProperty attribute = attributes.item(i);
            bool isPosition = attribute.typeCode() == 1010 || attribute.typeCode() == 1011;
            pairs.push_back(std::string(attribute.name()) + ":" +
                            (isPosition ? "" : Encoded(std::string(attribute.value()))));
        }
        return Join(pairs, ",");
    }

    /// Centre and side of the square that covers all features of the value.
    void AddSearchValue(const PlainEntity& entity, const std::string& value) {
        drawing::Box box = entity.origin->extents();
        std::vector<double> square = {std::trunc((box.minX + box.maxX) / 2),
                                      std::trunc((box.minY + box.maxY) / 2),
                                      std::trunc(std::max(box.maxX - box.minX, box.maxY - box.minY))};
        auto [known, isNew] = search_.try_emplace(value, square);
        if (isNew) return;
        std::vector<double>& old = known->second;
        double low[2], high[2];
        for (std::size_t i : {0U, 1U}) {
            low[i] = std::min(old[i] - old[2] / 2, square[i] - square[2] / 2);
            high[i] = std::max(old[i] + old[2] / 2, square[i] + square[2] / 2);
        }
        old = {(low[0] + high[0]) / 2, (low[1] + high[1]) / 2, std::max(high[0] - low[0], high[1] - low[1])};
    }

    void Relayer() {
        if (settings_.style.layerOnField.empty()) return;
        for (PlainEntity& entity : entities_)
            if (auto value = ValueOf(entity, settings_.style.layerOnField)) {
                auto same = [&](const std::string& layer) { return platform::SameNoCase(layer, *value); };
                auto layer = std::ranges::find_if(layers_, same);
                entity.layer = layer == layers_.end() ? *value : *layer;
                if (layer == layers_.end()) addedLayers_.push_back(*value), layers_.push_back(*value);
            }
    }

    // --- The walk

    void Walk() {
        if (settings_.keepSymbols) {
            for (std::size_t i = 0; i < entities_.size(); ++i) Process(PlainEntity(entities_[i]));
        } else {
            for (; !entities_.empty(); entities_.erase(entities_.begin())) Process(PlainEntity(entities_[0]));
        }
    }

    void Process(const PlainEntity& entity) {
        writer_.header = {};
        if (isClassified_) {
            if (entity.origin) classifier_.ClassifyEntity(*entity.origin, writer_.header);
        } else {
            if (writer_.tileSize == 250) SetTileSizeByDensity();
            SetKeys(entity);
            if (const StyleRow* row = RowOf(entity.layer)) {
                if (util::IntegerOf(row->hide) == -1) return;
                ApplyStyle(*row, entity);
            }
        }
        switch (entity.kind) {
            case Kind::Polyline:
                return WritePolyline(entity);
            case Kind::Line:
                writer_.WriteLine(
                    {entity.vertices.begin(),
                     entity.vertices.begin() + std::min<std::ptrdiff_t>(2, std::ssize(entity.vertices))});
                return;
            case Kind::Insert:
                if (!settings_.keepSymbols) return Explode(entity);
                writer_.WriteLine({entity.vertices.at(0)});
                return Annotate(entity, entity.vertices.at(0), SymbolSize(entity) / 3, 0);
            case Kind::Text:
                return writer_.WriteText(entity.vertices.at(0), entity.shape.size, entity.shape.rotation,
                                         entity.shape.alignment == 106 ? 9 : -1, entity.text);
            case Kind::Point:
                writer_.WriteLine({entity.vertices.at(0)});
                return Annotate(entity, entity.vertices.at(0), 1, 0);
            case Kind::Circle:
            case Kind::Arc:
                return AppendCurve(entity);
            case Kind::Other:
                return;
        }
    }

    void SetTileSizeByDensity() {
        drawing::Box box = drawing_.extents();
        double k = std::max(1.0, static_cast<double>(drawing_.entityCount()) / 100);
        double side = std::max(box.maxX - box.minX, box.maxY - box.minY);
        writer_.tileSize = std::max(300.0, std::floor(side / std::sqrt(k)));
    }

    void SetKeys(const PlainEntity& entity) {
        if (kind_ == 1) writer_.header.keyLow = LayerNumber(entity.layer);
        if (kind_ == 2) writer_.header.keyLow = entity.record;
        if (kind_ == 3 && entity.origin) {
            background::FeatureHeader classified;
            classifier_.ClassifyEntity(*entity.origin, classified);
            writer_.header.keyHigh = classified.keyHigh;
            writer_.header.keyLow = classified.keyLow;
        }
    }

    /// Layers that were made after the numbers were given have none.
    int LayerNumber(const std::string& layer) const {
        if (std::ranges::find(addedLayers_, layer) != addedLayers_.end()) return 0;
        return static_cast<int>(std::ranges::find(layers_, layer) - layers_.begin());
    }

    const StyleRow* RowOf(const std::string& layer) const {
        auto named = [&](std::string_view name) -> const StyleRow* {
            for (const StyleRow& row : settings_.style.rows)
                if (platform::SameNoCase(row.layer, name)) return &row;
            return nullptr;
        };
        const StyleRow* row = named(layer);
        bool isEmpty = row && row->points.empty() && row->lines.empty() && row->areas.empty() &&
                       util::IntegerOf(row->hide) != -1;
        return !row || isEmpty ? named("DEFAULT") : row;
    }

    void ApplyStyle(const StyleRow& row, const PlainEntity& entity) {
        std::string cell = row.points;
        if (entity.kind == Kind::Line) cell = row.lines;
        if (entity.kind == Kind::Polyline) cell = entity.isClosed ? row.areas : row.lines;
        auto colour = background::ColourCode(cell);
        int b = colour ? 0 : static_cast<int>(mobileStyles_.NumberOf(cell)), c = colour ? *colour : 1;
        if (util::IntegerOf(row.thick) == -1) c += 16;
        if (util::IntegerOf(row.zoom) == -1) c += 32;
        writer_.header.classB = static_cast<std::uint8_t>(b);
        writer_.header.classC = static_cast<std::uint8_t>(c);
    }

    void WritePolyline(const PlainEntity& entity) {
        Points points = entity.vertices;
        if (points.size() > 16000)
            for (std::size_t i = points.size() - 2; i > 1; i -= 2)
                points.erase(points.begin() + static_cast<std::ptrdiff_t>(i));
        if (points.empty()) return;
        double gap = DistanceOf(points.front(), points.back());
        bool isClosed = entity.isClosed || gap < 0.01;
        if (isClosed && gap > 0.01) points.push_back(points.front());
        if (writer_.WriteLine(points, ValueOf(entity, "ISHOLE").has_value()) && isClosed &&
            (isClassified_ || settings_.fullPolygons))
            writer_.WriteArea(points, ValueOf(entity, "MPOLY").value_or(""));
        AnnotatePolyline(entity, points, isClosed);
    }

    void AppendCurve(PlainEntity entity) {
        bool isCircle = entity.kind == Kind::Circle;
        const drawing::Shape& shape = entity.shape;
        double sweep = isCircle ? 2 * std::numbers::pi : shape.endAngle - shape.startAngle;
        while (sweep < 0) sweep += 2 * std::numbers::pi;
        int count = static_cast<int>(shape.size * sweep / 0.25);
        if (count == 0) count = 20;
        PlanePoint centre = entity.vertices.at(0);
        double steps = isCircle ? count : std::max(1, count - 1);
        entity.vertices.clear();
        for (int i = 0; i < count; ++i) {
            double angle = (isCircle ? shape.rotation : shape.startAngle) + sweep * i / steps;
            entity.vertices.push_back(
                {centre.x + shape.size * std::cos(angle), centre.y + shape.size * std::sin(angle)});
        }
        entity.kind = Kind::Polyline;
        entity.isClosed = isCircle;
        entity.origin.reset();
        entity.record = 0;
        entities_.push_back(entity);
    }

    // --- Symbols, which have the same scale on both axes here

    drawing::Drawing* ContentOf(const PlainEntity& insert) {
        const drawing::Block* block = insert.owner->findBlock(insert.shape.name);
        if (!block) block = drawing_.findBlock(insert.shape.name);
        if (!block || block->content.empty()) return nullptr;
        std::vector<std::uint64_t> aligned(block->content.size() / 8 + 1);
        std::memcpy(aligned.data(), block->content.data(), block->content.size());
        ReadVdf(std::as_bytes(std::span(aligned)).first(block->content.size()), contents_.emplace_back());
        return &contents_.back();
    }

    double SymbolSize(const PlainEntity& insert) {
        drawing::Drawing* content = ContentOf(insert);
        if (!content) return insert.shape.scaleX;
        drawing::Box box = content->extents();
        return insert.shape.scaleX * std::max(box.maxX - box.minX, box.maxY - box.minY);
    }

    void Explode(const PlainEntity& insert) {
        drawing::Drawing* content = ContentOf(insert);
        if (!content) return;
        double scale = insert.shape.scaleX, turn = insert.shape.rotation;
        PlanePoint at = insert.vertices.at(0);
        for (std::size_t i = 0; i < content->entityCount(); ++i) {
            PlainEntity part = PlainOf(content->entityAt(i), *content);
            part.layer = insert.layer;
            part.origin.reset();
            for (PlanePoint& p : part.vertices)
                p = {at.x + scale * (p.x * std::cos(turn) - p.y * std::sin(turn)),
                     at.y + scale * (p.x * std::sin(turn) + p.y * std::cos(turn))};
            for (double* size : {&part.shape.size, &part.shape.scaleX, &part.shape.scaleY}) *size *= scale;
            for (double* angle : {&part.shape.rotation, &part.shape.startAngle, &part.shape.endAngle})
                *angle += turn;
            entities_.push_back(part);
        }
    }

    // --- Annotation

    void AnnotatePolyline(const PlainEntity& entity, const Points& points, bool isClosed) {
        if (!isClosed) {
            PlanePoint at = points[points.size() / 2], before = points[points.size() / 2 - 1];
            double angle = std::numbers::pi / 2 - util::Bearing(before.x, before.y, at.x, at.y);
            if (std::cos(angle) < -1e-9) angle += std::numbers::pi;
            return Annotate(entity, at, 1, angle);
        }
        Box box = PlainWriter::BoxOf(points);
        double area = 0;
        PlanePoint origin = points[0];
        for (std::size_t i = 1; i < points.size(); ++i)
            area += ((points[i - 1].x - origin.x) * (points[i].y - origin.y) -
                     (points[i].x - origin.x) * (points[i - 1].y - origin.y)) /
                    2;
        Annotate(entity, {(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2},
                 std::abs(area) > 1000 ? 5 : 1, 0);
    }

    void Annotate(const PlainEntity& entity, PlanePoint at, double height, double angle) {
        if (!entity.origin) return;
        std::string text(annotation_.BuildAnnotationText(*entity.origin));
        if (text.empty()) return;
        auto fixed = settings_.style.FixedAnnotationHeight();
        if (fixed && *fixed > 0) height = *fixed;
        for (const std::string& line : Split(text, ',')) {
            writer_.WriteText(at, height, angle, -1, line);
            at = {at.x + height * std::sin(angle), at.y - height * std::cos(angle)};
        }
    }

    drawing::Drawing& drawing_;
    const PlainSettings& settings_;
    background::Classifier& classifier_;
    background::MobileStyles mobileStyles_;
    background::AnnotationText annotation_;
    PlainWriter writer_;
    std::vector<PlainEntity> entities_;
    std::list<drawing::Drawing> contents_;
    Fields layers_, addedLayers_;
    std::string attributeList_;
    std::map<std::string, std::vector<double>> search_;
    int kind_ = 0, records_ = 0;
    bool isClassified_ = false;
};

}  // namespace

PlainPackage BuildPlainly(drawing::Drawing& drawing, const PlainSettings& settings,
                          background::Classifier& classifier) {
    return Reference(drawing, settings, classifier).Build();
}

}  // namespace vexlator::test

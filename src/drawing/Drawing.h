// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/AttributeNames.h"
#include "drawing/EntityStore.h"
#include "drawing/Interned.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// The drawing model that every conversion works on: entities on layers (feature codes), each with a kind,
/// geometry and named text values (XProperties).
namespace vexlator::drawing {

/// Distance in the plane, without z.
double distance(const Point& a, const Point& b);

/// 0 to 255 is a palette index (7 is the default); above, a 24-bit colour value.
using Colour = std::uint32_t;
constexpr Colour defaultColour = 7;

/// "VDPOINT" ...; "" for Other, whose entities have a name of their own.
std::string_view KindName(Kind kind);
/// Other for a name that is none of the seven.
Kind KindOf(std::string_view name);

struct Layer {
    std::string name;  ///< the feature code
    bool frozen = false;
    Colour colour = defaultColour;
};

/// A named symbol that inserts refer to. `content` is the symbol drawing as the bytes of a drawing file;
/// empty if only the name is known.
struct Block {
    std::string name;
    std::string content;
};

/// How an entity is shown.
struct Style {
    Colour colour = defaultColour;
    Colour fillColour = defaultColour;
    Colour outlineColour = defaultColour;
    std::int32_t lineWeight = 0;
    std::string lineType;
    bool operator==(const Style&) const = default;
};

/// Values of a kind beside vertices and texts. Angles in radians.
struct Shape {
    std::string name;                     ///< Insert: block; Text: text style; Other: kind name
    double scaleX = 1, scaleY = 1;        ///< Insert
    double rotation = 0;                  ///< Insert, Text
    double size = 0;                      ///< Circle, Arc: radius; Text: height
    double startAngle = 0, endAngle = 0;  ///< Arc
    std::int32_t alignment = 0;           ///< Text
    bool operator==(const Shape&) const = default;
};

struct Box {
    double minX = 0, minY = 0, maxX = 0, maxY = 0;
    bool operator==(const Box&) const = default;
    void widen(const Box& other);
};

class Drawing;
class Entity;

/// One named value of an entity. Valid until the entity's attributes or texts change by other means.
class XPropertyView {
public:
    std::string_view name() const;
    /// 1000 for text. The system writes no other code.
    std::int32_t typeCode() const;
    std::string_view value() const { return value_; }

protected:
    friend class XPropertiesView;
    XPropertyView(const Drawing& drawing, std::uint32_t entity, std::size_t index, std::string_view value)
        : drawing_(&drawing), entity_(entity), index_(index), value_(value) {}
    const Drawing* drawing_;
    std::uint32_t entity_;
    std::size_t index_;
    std::string_view value_;
};

/// An attribute that can be changed.
class XProperty : public XPropertyView {
public:
    void setName(std::string_view name);
    void setValue(std::string_view text);

private:
    friend class XProperties;
    XProperty(Drawing& drawing, const XPropertyView& view) : XPropertyView(view), changed_(&drawing) {}
    Drawing* changed_;
};

/// Reads an entity's values in order, without look-ups.
class ValueCursor {
public:
    ValueCursor(const char* position, std::size_t count) : position_(position), left_(count) {}
    bool AtEnd() const { return left_ == 0; }
    std::size_t Left() const { return left_; }
    std::string_view Next();

private:
    const char* position_;
    std::size_t left_;
};

/// The attributes of an entity, in the order of addition, which is the order of its attribute template.
class XPropertiesView {
public:
    std::size_t count() const;
    XPropertyView item(std::size_t index) const;
    /// The first with that name; letter case counts.
    std::optional<XPropertyView> find(std::string_view name) const;
    std::string_view name(std::size_t index) const;
    std::int32_t typeCode(std::size_t index) const;
    /// Values, starting with the first.
    ValueCursor values() const;
    /// All texts of the entity in stored form, with their lengths: enough to see which characters occur.
    std::string_view encoded() const;

protected:
    friend class EntityView;
    XPropertiesView(const Drawing& drawing, std::uint32_t entity) : drawing_(&drawing), entity_(entity) {}
    const Drawing* drawing_;
    std::uint32_t entity_;
};

/// Attributes that can be changed.
class XProperties : public XPropertiesView {
public:
    XProperty item(std::size_t index) const { return {*changed_, XPropertiesView::item(index)}; }
    std::optional<XProperty> find(std::string_view name) const;
    void add(std::string_view name, std::string_view value, std::int32_t typeCode = textTypeCode);

private:
    friend class Entity;
    XProperties(Drawing& drawing, const XPropertiesView& view) : XPropertiesView(view), changed_(&drawing) {}
    Drawing* changed_;
};

/// One entity of a drawing, read-only: a light reference, valid until the drawing is opened anew or
/// destroyed.
class EntityView {
public:
    EntityView(const Drawing& drawing, std::uint32_t index) : drawing_(&drawing), index_(index) {}

    Kind kindCode() const { return record().kind; }
    std::string_view kind() const;
    /// Capital hexadecimal digits, unique in the drawing.
    std::string handle() const;
    std::uint64_t handleNumber() const { return record().handle; }
    const std::string& layerName() const;
    /// The index of its layer in Drawing::layers().
    std::uint32_t layerIndex() const { return record().layer; }
    bool isErased() const { return record().Has(Record::Erased); }
    XPropertiesView xproperties() const { return {*drawing_, index_}; }
    /// The identity of its attribute names: equal for entities with the same names in the same order.
    AttributeSet attributeSet() const { return record().set; }

    const Style& style() const;
    const Shape& shape() const;

    /// Position of a point, insert, text; centre of a circle or arc; first vertex of other kinds.
    Point position() const { return vertexCount() ? vertex(0) : Point{}; }
    Point insertionPoint() const { return position(); }
    Point centre() const { return position(); }
    std::size_t vertexCount() const { return record().vertexCount; }
    Point vertex(std::size_t index) const { return store().Vertex(record(), index); }
    /// x and y of all vertices.
    std::span<const PlanePoint> planVertices() const { return store().Plan(record()); }
    /// z of all vertices; empty if all are 0.
    std::span<const double> heights() const { return store().Heights(record()); }

    bool isClosed() const { return record().Has(Record::Closed); }
    bool isFilled() const { return record().Has(Record::Filled); }

    const std::string& blockName() const { return shape().name; }
    double rotation() const { return shape().rotation; }
    double radius() const { return shape().size; }
    double height() const { return shape().size; }
    /// The string of a text entity; "" for other kinds.
    std::string_view text() const;
    std::string_view label() const;
    std::string_view hyperlink() const;

    /// Length of the line through the vertices, with the closing side; circumference of a circle, length of
    /// an arc.
    double length() const;
    /// Bounding box of the vertices; for a circle or arc, of the whole circle. All 0 without vertices.
    Box extents() const;

    std::uint32_t index() const { return index_; }
    bool operator==(const EntityView&) const = default;

protected:
    const EntityStore& store() const;
    const Record& record() const { return store()[index_]; }

    const Drawing* drawing_;
    std::uint32_t index_;
};

/// An entity that can be changed.
class Entity : public EntityView {
public:
    Entity(Drawing& drawing, std::uint32_t index) : EntityView(drawing, index), changed_(&drawing) {}

    /// Moves the entity to a layer. Adds a missing layer.
    void setLayerName(std::string_view name);
    void erase();
    XProperties xproperties() const { return {*changed_, EntityView::xproperties()}; }
    void setStyle(const Style& style);
    void setShape(const Shape& shape);
    void setVertex(std::size_t index, const Point& point);
    void appendVertex(const Point& point);
    void setClosed(bool closed) { changedRecord().Set(Record::Closed, closed); }
    void setFilled(bool filled) { changedRecord().Set(Record::Filled, filled); }
    void setText(std::string_view text);
    void setLabel(std::string_view label);
    void setHyperlink(std::string_view hyperlink);

private:
    Record& changedRecord();
    void setOptionalText(std::size_t index, unsigned flag, std::string_view value);

    Drawing* changed_;
};

/// Some of a drawing's entities, in drawing order.
class SelectionSet {
public:
    std::size_t count() const { return entities_.size(); }
    Entity item(std::size_t index) const { return {*drawing_, entities_[index]}; }
    std::span<const std::uint32_t> indexes() const { return entities_; }
    Entity entity(std::uint32_t index) const { return {*drawing_, index}; }

    SelectionSet(Drawing& drawing, std::vector<std::uint32_t> entities)
        : drawing_(&drawing), entities_(std::move(entities)) {}

private:
    Drawing* drawing_;
    std::vector<std::uint32_t> entities_;
};

/// Layer names are compared without regard to the case of ASCII letters, because they name output files.
/// Attribute names are compared exactly.
class Drawing {
public:
    Drawing();
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    /// Replaces the contents by a drawing file.
    /// @throws platform::ReadError: file, chunk and reason; the drawing is then empty.
    void open(std::string_view path);
    /// Writes the drawing file, atomically. @throws platform::WriteError
    void saveAs(std::string_view path) const;
    void clear();

    std::vector<std::pair<std::string, std::string>>& properties() { return properties_; }
    const std::vector<std::pair<std::string, std::string>>& properties() const { return properties_; }

    const std::deque<Layer>& layers() const { return layers_; }
    std::size_t layerCount() const { return layers_.size(); }
    Layer* findLayer(std::string_view name);
    /// The layer with that name; created if missing.
    Layer& addLayer(std::string_view name);
    /// Erases a layer with all its entities, if it exists. Layer "0" always stays. References to layers
    /// become invalid. If it was the active layer, "0" becomes active.
    void eraseLayer(std::string_view name);

    const std::vector<Block>& blocks() const { return blocks_; }
    const Block* findBlock(std::string_view name) const;
    void addBlock(Block block);

    /// The layer of new entities; added if missing.
    void setActiveLayer(std::string_view name);
    const std::string& activeLayerName() const { return layers_[activeLayer_].name; }
    void setActiveColour(Colour value) { active_.colour = value; }
    void setActiveColourIndex(Colour index) { active_.colour = index; }
    Colour activeColour() const { return active_.colour; }
    void setActiveFillColour(Colour value) { active_.fillColour = value; }
    Colour activeFillColour() const { return active_.fillColour; }
    /// The complete style of new entities, including the two colours above.
    const Style& activeStyle() const { return active_; }
    void setActiveStyle(const Style& style) { active_ = style; }

    /// Entities that are not erased.
    std::size_t entityCount() const { return store_.Size() - store_.Erased(); }
    /// In drawing order, without erased ones.
    Entity entityAt(std::size_t index) { return {*this, store_.IndexAt(index)}; }
    EntityView entityAt(std::size_t index) const { return {*this, store_.IndexAt(index)}; }
    std::optional<Entity> findByHandle(std::string_view handle);
    /// Calls `visit(Entity)` for every entity in drawing order; the visitor may change, erase and add
    /// entities. A const drawing gives an EntityView.
    template <typename Visit>
    void forEach(Visit visit) {
        for (std::uint32_t i = 0; i < store_.Size(); ++i)
            if (!store_[i].Has(Record::Erased)) visit(Entity(*this, i));
    }
    template <typename Visit>
    void forEach(Visit visit) const {
        for (std::uint32_t i = 0; i < store_.Size(); ++i)
            if (!store_[i].Has(Record::Erased)) visit(EntityView(*this, i));
    }

    /// The entities of a layer in drawing order. The cost grows with their number only.
    SelectionSet selectLayer(std::string_view layerName);

    /// Bounding box of all entities; all 0 without entities.
    Box extents() const { return extentsOfAny().value_or(Box{}); }
    /// None if no entity has vertices.
    std::optional<Box> extentsOfAny() const;

    Entity addPoint(const Point& point);
    Entity addInsert(const Point& point, std::string_view blockName, double xScale, double yScale,
                     double rotation);
    Entity addPolyline(std::span<const Point> points = {});
    Entity addText(const Point& point, std::string_view text, double height, double rotation);
    Entity addCircle(const Point& centre, double radius);
    Entity addArc(const Point& centre, double radius, double startAngle, double endAngle);
    Entity addLine(const Point& from, const Point& to);
    /// An entity of any kind, on the active layer with the active style; `kindName` names Kind::Other.
    Entity addEntity(Kind kind, std::string_view kindName = "");
    /// Gives an entity its handle from elsewhere. False, without a change, if it is taken or not hexadecimal.
    bool setHandle(Entity entity, std::string_view handle);

    /// Scales every coordinate, radius and text height about the origin (0, 0, 0). Symbols keep their scale,
    /// which is independent of ground units.
    void scale(double factor);

    // --- For importers, which add millions of entities with the same attribute names.

    /// The sequence of these names, all of type text.
    AttributeSet attributeSet(std::span<const std::string> names);
    AttributeSet attributeSet(std::span<const AttributeName> names);
    std::size_t attributeCount(AttributeSet set) const { return names_.Of(set).size(); }
    std::vector<std::string> attributeNames(AttributeSet set) const;
    /// Gives the last added entity, which must not have attributes, those names. The values follow in order,
    /// with one appendValue() per name.
    void beginValues(AttributeSet set) { store_.Last().set = set; }
    void appendValue(std::string_view value) { store_.AppendText(store_.Last(), value); }
    /// The last added entity shares the attributes of the entity before it, which are stored once.
    void shareValues() { store_.ShareTexts(); }
    /// Adds vertices without heights to the last added entity. The caller fills them at once.
    std::span<PlanePoint> extendPlan(std::size_t count) { return store_.ExtendPlan(count); }
    /// The vertices of entity number `first` and all later ones, to convert at once. Valid only if each
    /// entity was complete before the next was added.
    std::span<PlanePoint> planFrom(std::uint32_t first) { return store_.PlanFrom(first); }

    // --- For readers and writers of drawing files: the parts of a drawing.

    struct StyleHash {
        std::size_t operator()(const Style& style) const;
    };
    struct ShapeHash {
        std::size_t operator()(const Shape& shape) const;
    };
    EntityStore& store() { return store_; }
    const EntityStore& store() const { return store_; }
    AttributeNames& names() { return names_; }
    const AttributeNames& names() const { return names_; }
    Interned<Style, StyleHash>& styles() { return styles_; }
    const Interned<Style, StyleHash>& styles() const { return styles_; }
    Interned<Shape, ShapeHash>& shapes() { return shapes_; }
    const Interned<Shape, ShapeHash>& shapes() const { return shapes_; }
    std::uint32_t activeLayerIndex() const { return activeLayer_; }
    /// Removes all layers, "0" too; allowed only without entities.
    void clearLayers();
    /// Keeps layers, blocks and the shared tables.
    void clearEntities();
    /// Number of texts of an entity before its attribute values, and with them.
    std::size_t textCount(const Record& record) const {
        return record.LeadingTexts() + attributeCount(record.set);
    }

private:
    friend class Entity;

    Entity add(Kind kind, const Shape& shape);
    Entity add(Kind kind, const Shape& shape, const Point& at);
    std::uint32_t layerIndex(std::string_view name);
    void moveToLayer(std::uint32_t entity, std::string_view name);
    void eraseEntity(std::uint32_t entity);
    void indexLayers();

    std::vector<std::pair<std::string, std::string>> properties_;
    std::deque<Layer> layers_;
    bool layersIndexed_ = false;  ///< the next two are complete; built at the first selection of a layer
    std::vector<std::vector<std::uint32_t>> onLayer_;  ///< entities by layer; may hold some that left it
    std::vector<bool> layerDirty_;  ///< onLayer_ is out of order or holds entities of other layers
    std::unordered_map<std::string, std::uint32_t> layerByName_;  ///< by the name in lower case
    std::vector<Block> blocks_;
    std::unordered_map<std::string, std::size_t> blockByName_;
    std::uint32_t activeLayer_ = 0;
    Style active_;

    EntityStore store_;
    AttributeNames names_;
    Interned<Style, StyleHash> styles_;
    Interned<Shape, ShapeHash> shapes_;
};

}  // namespace vexlator::drawing

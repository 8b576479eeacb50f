// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/PodVector.h"
#include "util/Geometry.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::drawing {

/// Drawing units; x easting, y northing, z height.
struct Point {
    double x = 0, y = 0, z = 0;
    bool operator==(const Point&) const = default;
};
using util::PlanePoint;

enum class Kind : std::uint8_t { Point, Insert, Polyline, Circle, Text, Arc, Line, Other };

/// One stored entity. Values shared with other entities are indices into tables.
struct Record {
    enum Flag : std::uint8_t {
        Closed = 1,
        Filled = 2,
        Erased = 4,
        HasLabel = 8,
        HasHyperlink = 16,
        SharesTexts = 32  ///< shares the texts of another entity: never changed in place
    };
    bool Has(unsigned flag) const { return (flags & flag) != 0; }
    void Set(unsigned flag, bool on) { flags = static_cast<std::uint8_t>(on ? flags | flag : flags & ~flag); }
    /// Number of texts before the attribute values: the string of a text entity, label, hyperlink.
    std::size_t LeadingTexts() const;

    std::uint64_t handle;
    std::uint64_t textBegin;  ///< its texts: string, label, hyperlink, attribute values, as far as present
    std::uint64_t vertexBegin;
    std::uint32_t textSize;  ///< bytes
    std::uint32_t vertexCount;
    std::uint32_t layer, style, shape, set;
    Kind kind;
    std::uint8_t flags;
};

/// The entities of a drawing, one after the other, in a few large arrays: records, vertices, texts. An entity
/// is known by its index, which never changes. An erased entity keeps its place.
class EntityStore {
public:
    enum class TextChange { Insert, Replace, Remove };

    // --- Records

    /// Including erased ones.
    std::size_t Size() const { return records_.size(); }
    Record& operator[](std::size_t index) { return records_[index]; }
    const Record& operator[](std::size_t index) const { return records_[index]; }
    Record& Last() { return records_.back(); }
    /// Bytes of vertices and texts.
    std::size_t Bytes() const { return vertices_.size() * sizeof(PlanePoint) + texts_.size(); }

    /// A new entity without vertices and texts, with the next handle.
    std::uint32_t Add(Kind kind);
    /// An entity filled in by a reader; it must have its own handle.
    void AddRecord(const Record& record) { records_.push_back(record); }
    void ReserveMore(std::size_t records) { records_.reserveMore(records); }
    void Erase(std::uint32_t index);
    std::size_t Erased() const { return erased_; }
    /// The index of the entity at a position among those not erased.
    std::uint32_t IndexAt(std::size_t place) const;
    /// Removes all entities; handles continue.
    void Clear();

    // --- Handles: numbers by which other programs know entities

    std::uint64_t NextHandle() const { return nextHandle_; }
    /// Later entities get this handle or larger ones.
    void SetNextHandle(std::uint64_t handle) { nextHandle_ = handle; }
    std::optional<std::uint32_t> IndexOfHandle(std::uint64_t handle) const;
    /// False, without a change, if another entity has or had it.
    bool SetHandle(std::uint32_t index, std::uint64_t handle);
    /// Whether all handles differ.
    bool HandlesDiffer() const;

    // --- Vertices

    Point Vertex(const Record& record, std::size_t index) const;
    std::span<const PlanePoint> Plan(const Record& record) const {
        return {vertices_.data() + record.vertexBegin, record.vertexCount};
    }
    /// Empty if all are 0.
    std::span<const double> Heights(const Record& record) const;
    void SetVertex(const Record& record, std::size_t index, const Point& point);
    void AppendVertex(Record& record, const Point& point);
    /// Adds vertices without heights to the last entity. The caller fills them at once.
    std::span<PlanePoint> ExtendPlan(std::size_t count);
    /// The vertices of an entity and all later ones. Valid only if each entity was complete before the next
    /// was added.
    std::span<PlanePoint> PlanFrom(std::uint32_t first);
    /// Adds vertices for records that follow; `heights` is empty or has one per vertex. Returns the position
    /// of the first.
    std::uint64_t AddVertices(std::span<const std::byte> plan, std::span<const std::byte> heights);
    void Scale(double factor);

    // --- Texts: `count` is the number of texts of the entity

    std::string_view Text(const Record& record, std::size_t index) const;
    const char* TextPosition(const Record& record, std::size_t index) const;
    std::string_view Encoded(const Record& record) const {
        return {texts_.data() + record.textBegin, record.textSize};
    }
    /// `value` must not be in the store.
    void ChangeTexts(Record& record, std::size_t count, TextChange change, std::size_t index,
                     std::string_view value);
    /// Adds a text after the entity's texts. `value` must not be in the store.
    void AppendText(Record& record, std::string_view value);
    /// The last entity shares the texts of the one before it, which are stored once.
    void ShareTexts();
    /// Adds texts for records that follow; returns the position of the first.
    std::uint64_t AddTexts(std::span<const std::byte> texts);

    // The whole arrays, for the writer.
    const PodVector<PlanePoint>& AllVertices() const { return vertices_; }
    const PodVector<double>& AllHeights() const { return heights_; }
    const PodVector<char>& AllTexts() const { return texts_; }

private:
    void MoveVerticesToEnd(Record& record);
    void NeedHeights();
    void IndexHandles() const;

    PodVector<Record> records_;
    PodVector<PlanePoint> vertices_;
    PodVector<double> heights_;  ///< empty while every height is 0, else one per vertex
    PodVector<char> texts_;      ///< each text as its length (LEB128) and its bytes
    std::size_t erased_ = 0;
    std::uint64_t nextHandle_ = 1;

    // Built at first use.
    mutable std::vector<std::uint32_t> order_;  ///< entities not erased; used after the first erasure
    mutable bool orderIsStale_ = true;
    mutable std::unordered_map<std::uint64_t, std::uint32_t> byHandle_;
    mutable bool handlesAreIndexed_ = false;
};

}  // namespace vexlator::drawing

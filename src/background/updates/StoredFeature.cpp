// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/updates/StoredFeature.h"

#include "feature_generated.h"

#include <cstring>
#include <vector>

namespace vexlator::background {

namespace {

using Kind = formats::GmlPart::Kind;

static_assert(sizeof(stored::Point) == sizeof(util::PlanePoint));

bool AreParts(const flatbuffers::Vector<const stored::Part*>& parts, std::size_t points) {
    std::size_t next = 0;
    for (const stored::Part* part : parts) {
        bool isNext = next == 0 ? part->begin() == 0 : part->begin() >= next;
        if (!isNext || part->begin() >= points || part->kind() > static_cast<std::uint8_t>(Kind::Hole))
            return false;
        next = std::size_t{part->begin()} + 1;
    }
    return next > 0;
}

/// Texts of a damaged feature may overlap; those of a whole one are no longer than it.
bool TakeProperties(const stored::Feature& held, std::size_t most, formats::GmlFeature& feature) {
    for (const stored::Property* property : *held.properties()) {
        std::size_t size = property->name()->size() + std::size_t{property->value()->size()};
        if (size > most) return false;
        most -= size;
        feature.properties.push_back({property->name()->str(), property->value()->str()});
    }
    return true;
}

}  // namespace

struct FeatureBytes::Builder {
    flatbuffers::FlatBufferBuilder bytes;
    std::vector<flatbuffers::Offset<stored::Property>> properties;
    std::vector<stored::Part> parts;
};

FeatureBytes::FeatureBytes() : builder_(std::make_unique<Builder>()) {}
FeatureBytes::~FeatureBytes() = default;

std::span<const std::byte> FeatureBytes::Of(const formats::GmlFeature& feature) {
    flatbuffers::FlatBufferBuilder& bytes = builder_->bytes;
    bytes.Clear();
    builder_->properties.clear();
    builder_->parts.clear();
    for (const formats::GmlProperty& property : feature.properties)
        builder_->properties.push_back(stored::CreateProperty(bytes, bytes.CreateString(property.name),
                                                              bytes.CreateString(property.value)));
    for (const formats::GmlPart& part : feature.parts)
        builder_->parts.emplace_back(static_cast<std::uint32_t>(part.begin),
                                     static_cast<std::uint32_t>(part.surface),
                                     static_cast<std::uint8_t>(part.kind));
    auto type = bytes.CreateString(feature.type);
    auto properties = bytes.CreateVector(builder_->properties);
    auto points = bytes.CreateVectorOfStructs(reinterpret_cast<const stored::Point*>(feature.points.data()),
                                              feature.points.size());
    auto parts = bytes.CreateVectorOfStructs(builder_->parts);
    bytes.Finish(stored::CreateFeature(bytes, type, properties, points, parts,
                                       static_cast<std::uint32_t>(feature.surfaces)));
    return std::as_bytes(std::span(bytes.GetBufferPointer(), bytes.GetSize()));
}

bool ReadFeatureBytes(std::span<const std::byte> bytes, formats::GmlFeature& feature) {
    std::vector<std::uint64_t> aligned(bytes.size() / sizeof(std::uint64_t) + 1);
    if (!bytes.empty()) std::memcpy(aligned.data(), bytes.data(), bytes.size());
    const auto* data = reinterpret_cast<const std::uint8_t*>(aligned.data());
    flatbuffers::Verifier verifier(data, bytes.size());
    if (!stored::VerifyFeatureBuffer(verifier)) return false;
    const stored::Feature& held = *stored::GetFeature(data);
    feature.Clear();
    if (!AreParts(*held.parts(), held.points()->size()) || !TakeProperties(held, bytes.size(), feature))
        return false;
    feature.type = held.type()->str();
    for (const stored::Point* point : *held.points()) feature.points.push_back({point->x(), point->y()});
    for (const stored::Part* part : *held.parts())
        feature.parts.push_back({static_cast<Kind>(part->kind()), part->begin(), part->surface()});
    feature.surfaces = held.surfaces();
    return true;
}

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Scene.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vexlator::render {

namespace {

float RoundDown(double value) {
    auto near = static_cast<float>(value);
    return near <= value ? near : std::nextafter(near, -std::numeric_limits<float>::infinity());
}

float RoundUp(double value) {
    return -RoundDown(-value);
}

bool IsFinite(const Box& box) {
    return std::isfinite(box.minX) && std::isfinite(box.minY) && std::isfinite(box.maxX) &&
           std::isfinite(box.maxY);
}

bool Meet(const Box& a, const Box& b) {
    return a.minX <= b.maxX && b.minX <= a.maxX && a.minY <= b.maxY && b.minY <= a.maxY;
}

/// The width of texts is unknown before painting. This is enough for all but the widest letters.
constexpr double widthOfCharacter = 0.8;  ///< times the height

Box BoxOfText(PlanePoint at, double height, double rotation, const Text& text) {
    double size = std::abs(height), width = widthOfCharacter * size * double(text.characters.size());
    if (text.anchor == TextAnchor::Diagonal) width = size;
    Placement placement{
        {std::cos(rotation), std::sin(rotation)}, {-std::sin(rotation), std::cos(rotation)}, at};
    double left = text.anchor == TextAnchor::TopCentre ? -width / 2 : 0;
    bool hangs = text.anchor == TextAnchor::TopLeft || text.anchor == TextAnchor::TopCentre;
    double bottom = hangs ? -size : -size / 4;
    PlanePoint corners[] = {placement({left, bottom}), placement({left + width, bottom}),
                            placement({left + width, bottom + 1.25 * size}),
                            placement({left, bottom + 1.25 * size})};
    return BoxAround(corners);
}

}  // namespace

void NearBox::Widen(const NearBox& other) {
    minX = std::min(minX, other.minX);
    minY = std::min(minY, other.minY);
    maxX = std::max(maxX, other.maxX);
    maxY = std::max(maxY, other.maxY);
}

Box BoxAround(std::span<const PlanePoint> points) {
    constexpr double far = std::numeric_limits<double>::infinity();
    Box box{far, far, -far, -far};
    // Zero times a finite number is 0. If a number is not finite, the sum is not 0.
    double nothing = 0;
    for (PlanePoint point : points) {
        box.minX = std::min(box.minX, point.x);
        box.minY = std::min(box.minY, point.y);
        box.maxX = std::max(box.maxX, point.x);
        box.maxY = std::max(box.maxY, point.y);
        nothing += point.x * 0 + point.y * 0;
    }
    box.minX += nothing;
    return box;
}

std::array<PlanePoint, 4> CornersOf(const Image& image, const Placement& placement) {
    double width = image.width, height = image.height;
    return {placement({0, 0}), placement({width, 0}), placement({width, height}), placement({0, height})};
}

Box Scene::BoxOf(std::size_t item) const {
    const NearBox& box = boxes_[item];
    return {origin_.x + box.minX, origin_.y + box.minY, origin_.x + box.maxX, origin_.y + box.maxY};
}

std::span<const std::uint32_t> Scene::RingEndsOf(const Item& area) const {
    std::size_t end = area.extra;
    while (ringEnds_[end] != area.vertices) ++end;
    return {ringEnds_.data() + area.extra, end + 1 - area.extra};
}

NearBox Scene::Near(const Box& ground) const {
    return {RoundDown(ground.minX - origin_.x), RoundDown(ground.minY - origin_.y),
            RoundUp(ground.maxX - origin_.x), RoundUp(ground.maxY - origin_.y)};
}

std::vector<std::uint32_t> Scene::ItemsIn(const Box& ground) const {
    std::vector<std::uint32_t> found;
    const NearBox window = Near(ground);
    for (std::size_t block = 0; block < blocks_.size(); ++block) {
        if (!blocks_[block].Meets(window)) continue;
        std::size_t end = std::min(items_.size(), (block + 1) * itemsPerBlock);
        for (std::size_t i = block * itemsPerBlock; i < end; ++i)
            if (boxes_[i].Meets(window)) found.push_back(static_cast<std::uint32_t>(i));
    }
    return found;
}

void SceneBuilder::KeepOnly(const Box& ground) {
    keepsAll_ = false;
    kept_ = ground;
}

std::uint32_t SceneBuilder::AddLayer(std::string_view name) {
    scene_.layers_.push_back({std::string(name), 0, ItemKind::Line, {}, 0});
    return static_cast<std::uint32_t>(scene_.layers_.size() - 1);
}

std::uint32_t SceneBuilder::AddPen(const Pen& pen) {
    scene_.pens_.push_back(pen);
    return static_cast<std::uint32_t>(scene_.pens_.size() - 1);
}

std::uint32_t SceneBuilder::AddSymbol(std::shared_ptr<const Scene> symbol) {
    scene_.symbols_.push_back(std::move(symbol));
    return static_cast<std::uint32_t>(scene_.symbols_.size() - 1);
}

bool SceneBuilder::Add(std::uint32_t layer, std::uint32_t pen, ItemKind kind,
                       std::span<const PlanePoint> vertices, const Box& box, std::uint32_t extra) {
    lastIsKept_ = false;
    lastLayer_ = layer;
    if (!IsFinite(box) || scene_.items_.size() == UINT32_MAX) {
        ++scene_.leftOut_;
        return false;
    }
    if (!keepsAll_ && !Meet(box, kept_)) return false;
    if (!scene_.hasOrigin_) {
        scene_.origin_ = {box.minX, box.minY};
        scene_.hasOrigin_ = true;
        scene_.extents_ = box;
    }
    scene_.extents_.widen(box);
    NearBox near = scene_.Near(box);
    if (scene_.items_.size() % Scene::itemsPerBlock == 0) scene_.blocks_.push_back(near);
    scene_.blocks_.back().Widen(near);
    scene_.boxes_.push_back(near);
    scene_.items_.push_back(
        {scene_.vertices_.size(), static_cast<std::uint32_t>(vertices.size()), pen, extra, kind});
    scene_.sources_.push_back({entity_, layer});
    scene_.vertices_.append(vertices);
    SceneLayer& of = scene_.layers_[layer];
    if (of.items++ == 0) {
        of.kind = kind;
        of.pen = scene_.pens_[pen];
        of.symbol = extra;
    }
    return lastIsKept_ = true;
}

void SceneBuilder::AddCourse(std::uint32_t layer, std::uint32_t pen, ItemKind kind,
                             std::span<const PlanePoint> course) {
    auto ring = static_cast<std::uint32_t>(scene_.ringEnds_.size());
    if (Add(layer, pen, kind, course, BoxAround(course), ring) && kind == ItemKind::Area)
        scene_.ringEnds_.push_back(static_cast<std::uint32_t>(course.size()));
}

bool SceneBuilder::AddHole(std::uint32_t layer, std::span<const PlanePoint> ring) {
    if (lastLayer_ != layer || scene_.items_.empty()) return false;
    // A hole in an invisible area is invisible too.
    if (!lastIsKept_) return !keepsAll_;
    Scene::Item& area = scene_.items_.back();
    Box box = BoxAround(ring);
    if (area.kind != ItemKind::Area || !IsFinite(box) || ring.size() > UINT32_MAX - area.vertices)
        return false;
    scene_.vertices_.append(ring);
    area.vertices += static_cast<std::uint32_t>(ring.size());
    if (!ring.empty()) scene_.ringEnds_.push_back(area.vertices);
    NearBox near = scene_.Near(box);
    scene_.boxes_.back().Widen(near);
    scene_.blocks_.back().Widen(near);
    scene_.extents_.widen(box);
    return true;
}

void SceneBuilder::AddDot(std::uint32_t layer, std::uint32_t pen, PlanePoint at) {
    Add(layer, pen, ItemKind::Dot, {&at, 1}, {at.x, at.y, at.x, at.y}, 0);
}

void SceneBuilder::AddCircle(std::uint32_t layer, std::uint32_t pen, PlanePoint centre, double radius) {
    PlanePoint vertices[] = {centre, {std::abs(radius), 0}};
    double r = vertices[1].x;
    Add(layer, pen, ItemKind::Circle, vertices, {centre.x - r, centre.y - r, centre.x + r, centre.y + r}, 0);
}

void SceneBuilder::AddArc(std::uint32_t layer, std::uint32_t pen, PlanePoint centre, double radius,
                          double start, double end) {
    PlanePoint vertices[] = {centre, {std::abs(radius), 0}, {start, end}};
    double r = vertices[1].x;
    Box box{centre.x - r, centre.y - r, centre.x + r, centre.y + r};
    if (!std::isfinite(start) || !std::isfinite(end)) box.minX = start + end;
    Add(layer, pen, ItemKind::Arc, vertices, box, 0);
}

void SceneBuilder::AddText(std::uint32_t layer, std::uint32_t pen, PlanePoint at, double height,
                           double rotation, Text text) {
    if (text.characters.empty()) return;
    PlanePoint vertices[] = {at, {std::abs(height), rotation}};
    auto number = static_cast<std::uint32_t>(scene_.texts_.size());
    if (Add(layer, pen, ItemKind::Text, vertices, BoxOfText(at, height, rotation, text), number))
        scene_.texts_.push_back(std::move(text));
}

void SceneBuilder::AddSymbolAt(std::uint32_t layer, std::uint32_t pen, std::uint32_t symbol,
                               const Placement& placement) {
    PlanePoint vertices[] = {placement.origin, placement.xAxis, placement.yAxis};
    Box box = scene_.symbols_[symbol]->Extents();
    PlanePoint corners[] = {placement({box.minX, box.minY}), placement({box.maxX, box.minY}),
                            placement({box.maxX, box.maxY}), placement({box.minX, box.maxY}),
                            placement.origin};
    Add(layer, pen, ItemKind::Symbol, vertices, BoxAround(corners), symbol);
}

void SceneBuilder::AddImage(std::uint32_t layer, std::uint32_t pen, const Image& image,
                            const Placement& placement) {
    PlanePoint vertices[] = {placement.origin, placement.xAxis, placement.yAxis};
    auto number = static_cast<std::uint32_t>(scene_.images_.size());
    if (Add(layer, pen, ItemKind::Image, vertices, BoxAround(CornersOf(image, placement)), number))
        scene_.images_.push_back(image);
}

Scene SceneBuilder::Take() {
    return std::exchange(scene_, Scene());
}

}  // namespace vexlator::render

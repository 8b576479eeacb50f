// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/EntityStore.h"

#include "drawing/TextBlock.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace vexlator::drawing {

std::size_t Record::LeadingTexts() const {
    unsigned optional = flags & (HasLabel | HasHyperlink);
    return (kind == Kind::Text ? 1U : 0U) + static_cast<std::size_t>(std::popcount(optional));
}

// --- Records

std::uint32_t EntityStore::Add(Kind kind) {
    auto index = static_cast<std::uint32_t>(records_.size());
    Record record{};
    record.handle = nextHandle_++;
    record.textBegin = texts_.size();
    record.vertexBegin = vertices_.size();
    record.kind = kind;
    records_.push_back(record);
    if (handlesAreIndexed_) byHandle_.emplace(record.handle, index);
    orderIsStale_ = true;
    return index;
}

void EntityStore::Erase(std::uint32_t index) {
    if (records_[index].Has(Record::Erased)) return;
    records_[index].Set(Record::Erased, true);
    orderIsStale_ = true;
    ++erased_;
}

std::uint32_t EntityStore::IndexAt(std::size_t place) const {
    if (erased_ == 0) return static_cast<std::uint32_t>(place);
    if (orderIsStale_) {
        order_.clear();
        for (std::uint32_t i = 0; i < records_.size(); ++i)
            if (!records_[i].Has(Record::Erased)) order_.push_back(i);
        orderIsStale_ = false;
    }
    return order_[place];
}

void EntityStore::Clear() {
    records_.truncate(0);
    vertices_.truncate(0);
    heights_.truncate(0);
    texts_.truncate(0);
    erased_ = 0;
    orderIsStale_ = true;
    byHandle_.clear();
    handlesAreIndexed_ = false;
}

// --- Handles

void EntityStore::IndexHandles() const {
    if (handlesAreIndexed_) return;
    byHandle_.reserve(records_.size());
    for (std::uint32_t i = 0; i < records_.size(); ++i) byHandle_.emplace(records_[i].handle, i);
    handlesAreIndexed_ = true;
}

std::optional<std::uint32_t> EntityStore::IndexOfHandle(std::uint64_t handle) const {
    if (records_.empty()) return std::nullopt;
    // Handles are given in order, so most drawings need no index for the look-up.
    std::uint64_t guess = handle - records_[0].handle;
    if (guess < records_.size() && records_[guess].handle == handle) return static_cast<std::uint32_t>(guess);
    if (handle >= nextHandle_) return std::nullopt;
    IndexHandles();
    auto found = byHandle_.find(handle);
    if (found == byHandle_.end()) return std::nullopt;
    return found->second;
}

bool EntityStore::SetHandle(std::uint32_t index, std::uint64_t handle) {
    Record& record = records_[index];
    if (record.handle == handle) return true;
    if (IndexOfHandle(handle)) return false;
    if (handlesAreIndexed_) {
        byHandle_.erase(record.handle);
        byHandle_.emplace(handle, index);
    }
    // A number that only this entity ever had can be given again.
    if (record.handle + 1 == nextHandle_) --nextHandle_;
    record.handle = handle;
    nextHandle_ = std::max(nextHandle_, handle + 1);
    return true;
}

bool EntityStore::HandlesDiffer() const {
    IndexHandles();
    return byHandle_.size() == records_.size();
}

// --- Vertices

Point EntityStore::Vertex(const Record& record, std::size_t index) const {
    const PlanePoint& plan = vertices_[record.vertexBegin + index];
    return {plan.x, plan.y, heights_.empty() ? 0 : heights_[record.vertexBegin + index]};
}

std::span<const double> EntityStore::Heights(const Record& record) const {
    if (heights_.empty()) return {};
    std::span<const double> all(heights_.data() + record.vertexBegin, record.vertexCount);
    bool flat = std::all_of(all.begin(), all.end(), [](double z) { return z == 0; });
    return flat ? std::span<const double>() : all;
}

void EntityStore::SetVertex(const Record& record, std::size_t index, const Point& point) {
    if (point.z != 0) NeedHeights();
    std::uint64_t at = record.vertexBegin + index;
    vertices_[at] = {point.x, point.y};
    if (!heights_.empty()) heights_[at] = point.z;
}

void EntityStore::AppendVertex(Record& record, const Point& point) {
    MoveVerticesToEnd(record);
    if (point.z != 0) NeedHeights();
    bool flat = heights_.empty() && point.z == 0;
    vertices_.push_back({point.x, point.y});
    if (!flat) heights_.push_back(point.z);
    record.vertexCount = CheckedSize(std::uint64_t{record.vertexCount} + 1);
}

void EntityStore::MoveVerticesToEnd(Record& record) {
    if (record.vertexBegin + record.vertexCount == vertices_.size()) return;
    std::uint64_t begin = vertices_.size();
    vertices_.extend(record.vertexCount);
    std::memcpy(vertices_.data() + begin, vertices_.data() + record.vertexBegin,
                record.vertexCount * sizeof(PlanePoint));
    if (!heights_.empty()) {
        heights_.extend(record.vertexCount);
        std::memcpy(heights_.data() + begin, heights_.data() + record.vertexBegin,
                    record.vertexCount * sizeof(double));
    }
    record.vertexBegin = begin;
}

void EntityStore::NeedHeights() {
    if (!heights_.empty()) return;
    std::size_t count = vertices_.size();
    std::fill_n(heights_.extend(count), count, 0.0);
}

std::span<PlanePoint> EntityStore::ExtendPlan(std::size_t count) {
    Record& record = Last();
    record.vertexCount = CheckedSize(record.vertexCount + count);
    if (!heights_.empty()) std::fill_n(heights_.extend(count), count, 0.0);
    return {vertices_.extend(count), count};
}

std::span<PlanePoint> EntityStore::PlanFrom(std::uint32_t first) {
    if (first >= records_.size()) return {};
    std::uint64_t begin = records_[first].vertexBegin;
    return {vertices_.data() + begin, vertices_.size() - begin};
}

std::uint64_t EntityStore::AddVertices(std::span<const std::byte> plan, std::span<const std::byte> heights) {
    if (!heights.empty()) NeedHeights();
    std::uint64_t begin = vertices_.size();
    std::size_t count = plan.size() / sizeof(PlanePoint);
    if (count == 0) return begin;
    std::memcpy(static_cast<void*>(vertices_.extend(count)), plan.data(), plan.size());
    if (!heights.empty())
        std::memcpy(heights_.extend(count), heights.data(), heights.size());
    else if (!heights_.empty())
        std::fill_n(heights_.extend(count), count, 0.0);
    return begin;
}

void EntityStore::Scale(double factor) {
    for (std::size_t i = 0; i < vertices_.size(); ++i) {
        vertices_[i].x *= factor;
        vertices_[i].y *= factor;
    }
    for (std::size_t i = 0; i < heights_.size(); ++i) heights_[i] *= factor;
}

// --- Texts

const char* EntityStore::TextPosition(const Record& record, std::size_t index) const {
    const char* position = texts_.data() + record.textBegin;
    for (; index > 0; --index) TakeText(position);
    return position;
}

std::string_view EntityStore::Text(const Record& record, std::size_t index) const {
    const char* position = TextPosition(record, index);
    return TakeText(position);
}

void EntityStore::ChangeTexts(Record& record, std::size_t count, TextChange change, std::size_t index,
                              std::string_view value) {
    if (record.textSize == 0) count = 0;
    PodVector<char> changed;
    const char* position = texts_.data() + record.textBegin;
    for (std::size_t i = 0; i < count || (i == index && change == TextChange::Insert); ++i) {
        if (i == index && change != TextChange::Remove) drawing::AppendText(changed, value);
        if (i >= count) break;
        std::string_view text = TakeText(position);
        if (i != index || change == TextChange::Insert) drawing::AppendText(changed, text);
    }
    if (changed.size() > record.textSize || record.Has(Record::SharesTexts)) {
        record.textBegin = texts_.size();
        record.Set(Record::SharesTexts, false);
        texts_.extend(changed.size());
    }
    if (!changed.empty()) std::memcpy(texts_.data() + record.textBegin, changed.data(), changed.size());
    record.textSize = CheckedSize(changed.size());
}

void EntityStore::AppendText(Record& record, std::string_view value) {
    if (record.textSize == 0) {
        record.textBegin = texts_.size();
    } else if (record.textBegin + record.textSize != texts_.size()) {
        std::uint64_t begin = texts_.size();
        texts_.extend(record.textSize);
        std::memcpy(texts_.data() + begin, texts_.data() + record.textBegin, record.textSize);
        record.textBegin = begin;
        record.Set(Record::SharesTexts, false);
    }
    drawing::AppendText(texts_, value);
    record.textSize = CheckedSize(texts_.size() - record.textBegin);
}

void EntityStore::ShareTexts() {
    Record& record = Last();
    Record& before = records_[records_.size() - 2];
    record.set = before.set;
    record.textBegin = before.textBegin;
    record.textSize = before.textSize;
    record.Set(Record::SharesTexts, true);
    before.Set(Record::SharesTexts, true);
}

std::uint64_t EntityStore::AddTexts(std::span<const std::byte> texts) {
    std::uint64_t begin = texts_.size();
    if (!texts.empty()) std::memcpy(texts_.extend(texts.size()), texts.data(), texts.size());
    return begin;
}

}  // namespace vexlator::drawing

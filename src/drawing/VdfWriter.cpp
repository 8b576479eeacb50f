// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"
#include "drawing/DrawingSink.h"
#include "drawing/Vdf.h"
#include "vdf_generated.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <flatbuffers/flatbuffers.h>
#include <functional>
#include <utility>
#include <xxhash.h>

static_assert(std::endian::native == std::endian::little, "drawing files hold columns as they lie in memory");

namespace vexlator::drawing {

namespace {

std::string_view BytesOf(const flatbuffers::FlatBufferBuilder& builder) {
    return {reinterpret_cast<const char*>(builder.GetBufferPointer()), builder.GetSize()};
}

std::string_view BytesOf(std::initializer_list<std::uint64_t> numbers) {
    return {reinterpret_cast<const char*>(numbers.begin()), numbers.size() * sizeof(std::uint64_t)};
}

}  // namespace

class VdfWriter {
public:
    using Sink = std::function<void(std::string_view)>;

    VdfWriter(const Drawing& drawing, Sink sink) : drawing_(drawing), sink_(std::move(sink)) {
        Write(vdf::magic);
        Write(BytesOf({vdf::version}));
    }

    void WriteEntities() {
        std::size_t next = 0;
        while (next < store().Size()) {
            next = TakeRecords(next);
            if (!records_.empty()) WriteChunk();
        }
    }

    /// The end of all entities.
    void WriteIndex() {
        std::uint64_t offset = size_;
        BuildIndex();
        std::string_view bytes = BytesOf(builder_);
        Write(bytes);
        Write(BytesOf({offset, bytes.size(), XXH3_64bits(bytes.data(), bytes.size())}));
        Write(vdf::endMagic);
    }

private:
    const EntityStore& store() const { return drawing_.store(); }

    void Write(std::string_view bytes) {
        sink_(bytes);
        size_ += bytes.size();
    }

    /// Collects the records of one chunk, from `next` on; returns the start of the following chunk.
    std::size_t TakeRecords(std::size_t next) {
        records_.clear();
        std::size_t bytes = 0;
        for (; next < store().Size(); ++next) {
            if (records_.size() == vdf::entitiesPerChunk || bytes > vdf::bytesPerChunk) break;
            const Record& record = store()[next];
            if (record.Has(Record::Erased)) continue;
            records_.push_back(&record);
            bytes += record.textSize + record.vertexCount * sizeof(PlanePoint);
        }
        return next;
    }

    bool SharesTextsWithBefore(std::size_t i) const {
        if (i == 0 || !records_[i]->Has(Record::SharesTexts)) return false;
        return records_[i]->textBegin == records_[i - 1]->textBegin &&
               records_[i]->textSize == records_[i - 1]->textSize && records_[i]->textSize > 0;
    }

    template <typename T, typename Value>
    flatbuffers::Offset<flatbuffers::Vector<T>> Column(Value value) {
        std::vector<T> column(records_.size());
        for (std::size_t i = 0; i < records_.size(); ++i) column[i] = static_cast<T>(value(i));
        bool uniform = std::all_of(column.begin(), column.end(), [&](T v) { return v == column[0]; });
        return builder_.CreateVector(column.data(), uniform ? 1 : column.size());
    }

    flatbuffers::Offset<flatbuffers::Vector<std::uint64_t>> Handles() {
        std::vector<std::uint64_t> handles;
        handles.reserve(records_.size());
        bool counting = true;
        for (const Record* record : records_) {
            counting = counting && record->handle == records_[0]->handle + handles.size();
            handles.push_back(record->handle);
        }
        return builder_.CreateVector(handles.data(), counting ? 1 : handles.size());
    }

    /// Calls `copy(begin, size)` for the ranges of an arena that the records use, with neighbours joined.
    template <typename Range, typename Copy>
    void ForEachStretch(Range range, Copy copy) {
        std::uint64_t begin = 0, end = 0;
        for (std::size_t i = 0; i < records_.size(); ++i) {
            auto [from, size] = range(i);
            if (size == 0) continue;
            if (from != end) {
                if (end > begin) copy(begin, end - begin);
                begin = from;
            }
            end = from + size;
        }
        if (end > begin) copy(begin, end - begin);
    }

    std::pair<std::uint64_t, std::uint64_t> VertexRange(std::size_t i) const {
        return {records_[i]->vertexBegin, records_[i]->vertexCount};
    }
    std::pair<std::uint64_t, std::uint64_t> TextRange(std::size_t i) const {
        return {records_[i]->textBegin, SharesTextsWithBefore(i) ? 0 : records_[i]->textSize};
    }

    template <typename T, typename Range>
    flatbuffers::Offset<flatbuffers::Vector<T>> Arena(const char* arena, std::size_t elementSize,
                                                      Range range) {
        std::size_t size = 0;
        ForEachStretch(range, [&](std::uint64_t, std::uint64_t count) { size += count * elementSize; });
        T* target = nullptr;
        auto vector = builder_.CreateUninitializedVector<T>(size / sizeof(T), &target);
        char* out = reinterpret_cast<char*>(target);
        ForEachStretch(range, [&](std::uint64_t begin, std::uint64_t count) {
            std::memcpy(out, arena + begin * elementSize, count * elementSize);
            out += count * elementSize;
        });
        return vector;
    }

    bool HasHeights() const {
        if (store().AllHeights().empty()) return false;
        return std::any_of(records_.begin(), records_.end(), [&](const Record* record) {
            const double* z = store().AllHeights().data() + record->vertexBegin;
            return std::any_of(z, z + record->vertexCount, [](double height) { return height != 0; });
        });
    }

    void WriteChunk() {
        builder_.Clear();
        auto vertexRange = [&](std::size_t i) { return VertexRange(i); };
        auto textRange = [&](std::size_t i) { return TextRange(i); };
        auto texts = Arena<std::uint8_t>(store().AllTexts().data(), 1, textRange);
        auto plan = Arena<double>(reinterpret_cast<const char*>(store().AllVertices().data()),
                                  sizeof(PlanePoint), vertexRange);
        flatbuffers::Offset<flatbuffers::Vector<double>> heights;
        if (HasHeights())
            heights = Arena<double>(reinterpret_cast<const char*>(store().AllHeights().data()),
                                    sizeof(double), vertexRange);
        std::vector<std::uint8_t> kindColumn(records_.size());
        for (std::size_t i = 0; i < records_.size(); ++i)
            kindColumn[i] = static_cast<std::uint8_t>(records_[i]->kind);
        auto kinds = builder_.CreateVector(kindColumn);
        auto flags = Column<std::uint8_t>([&](std::size_t i) {
            unsigned kept = records_[i]->flags & ~unsigned{Record::Erased | Record::SharesTexts};
            return kept | (SharesTextsWithBefore(i) ? vdf::sameTexts : 0U);
        });
        auto layers = Column<std::uint32_t>([&](std::size_t i) { return records_[i]->layer; });
        auto styles = Column<std::uint32_t>([&](std::size_t i) { return records_[i]->style; });
        auto shapes = Column<std::uint32_t>([&](std::size_t i) { return records_[i]->shape; });
        auto sets = Column<std::uint32_t>([&](std::size_t i) { return records_[i]->set; });
        auto counts = Column<std::uint32_t>([&](std::size_t i) { return records_[i]->vertexCount; });
        builder_.Finish(vdf::CreateChunk(builder_, kinds, flags, layers, styles, shapes, sets, Handles(),
                                         counts, plan, heights, texts));
        WriteFrame();
    }

    void WriteFrame() {
        std::string_view bytes = BytesOf(builder_);
        chunks_.emplace_back(size_, records_.size());
        Write(BytesOf({bytes.size(), XXH3_64bits(bytes.data(), bytes.size())}));
        Write(bytes);
        // The next chunk starts at a multiple of 8, so its columns can be read in place.
        Write(std::string_view("\0\0\0\0\0\0\0", (8 - bytes.size() % 8) % 8));
    }

    auto StyleEntry(const Style& style) {
        return vdf::CreateStyleEntry(builder_, style.colour, style.fillColour, style.outlineColour,
                                     style.lineWeight, builder_.CreateString(style.lineType));
    }
    auto ShapeEntry(const Shape& shape) {
        return vdf::CreateShapeEntry(builder_, builder_.CreateString(shape.name), shape.scaleX, shape.scaleY,
                                     shape.rotation, shape.size, shape.startAngle, shape.endAngle,
                                     shape.alignment);
    }
    auto BlockEntry(const Block& block) {
        const auto* content = reinterpret_cast<const std::uint8_t*>(block.content.data());
        return vdf::CreateBlockEntry(builder_, builder_.CreateString(block.name),
                                     builder_.CreateVector(content, block.content.size()));
    }

    /// One index table: an entry for each element of a list.
    template <typename List, typename Entry>
    auto Table(const List& list, Entry entry) {
        std::vector<decltype(entry(*list.begin()))> offsets;
        offsets.reserve(list.size());
        for (const auto& element : list) offsets.push_back(entry(element));
        return builder_.CreateVector(offsets);
    }

    void BuildIndex() {
        builder_.Clear();
        auto properties = Table(drawing_.properties(), [&](const auto& p) {
            return vdf::CreateProperty(builder_, builder_.CreateString(p.first),
                                       builder_.CreateString(p.second));
        });
        auto layers = Table(drawing_.layers(), [&](const Layer& layer) {
            return vdf::CreateLayerEntry(builder_, builder_.CreateString(layer.name), layer.frozen,
                                         layer.colour);
        });
        auto active = StyleEntry(drawing_.activeStyle());
        auto blocks = Table(drawing_.blocks(), [&](const Block& block) { return BlockEntry(block); });
        auto styles = Table(drawing_.styles().All(), [&](const Style& style) { return StyleEntry(style); });
        auto shapes = Table(drawing_.shapes().All(), [&](const Shape& shape) { return ShapeEntry(shape); });
        auto names = Table(drawing_.names().All(), [&](const auto& name) {
            return vdf::CreateNameEntry(builder_, builder_.CreateString(name.name), name.typeCode);
        });
        std::vector<flatbuffers::Offset<vdf::SetEntry>> setEntries;
        for (AttributeSet set = 0; set < drawing_.names().SetCount(); ++set)
            setEntries.push_back(
                vdf::CreateSetEntry(builder_, builder_.CreateVector(drawing_.names().Of(set))));
        auto sets = builder_.CreateVector(setEntries);
        auto chunks = builder_.CreateVectorOfStructs(chunks_);
        builder_.Finish(vdf::CreateIndex(builder_, properties, layers, drawing_.activeLayerIndex(), active,
                                         blocks, styles, shapes, names, sets, store().NextHandle(), chunks));
    }

    const Drawing& drawing_;
    Sink sink_;
    std::uint64_t size_ = 0;  ///< bytes written so far
    flatbuffers::FlatBufferBuilder builder_{3 * vdf::bytesPerChunk};
    std::vector<const Record*> records_;
    std::vector<vdf::ChunkEntry> chunks_;
};

void WriteVdf(const Drawing& drawing, platform::OutputFile& file) {
    VdfWriter writer(drawing, [&](std::string_view bytes) { file.Write(bytes); });
    writer.WriteEntities();
    writer.WriteIndex();
}

std::string VdfBytes(const Drawing& drawing) {
    std::string all;
    VdfWriter writer(drawing, [&](std::string_view bytes) { all += bytes; });
    writer.WriteEntities();
    writer.WriteIndex();
    return all;
}

DrawingSink::DrawingSink() = default;
DrawingSink::~DrawingSink() = default;

void DrawingSink::ConvertBy(Conversion conversion) {
    EndConversion();
    conversion_ = std::move(conversion);
    firstUnconverted_ = static_cast<std::uint32_t>(drawing_.store().Size());
}

void DrawingSink::EndConversion() {
    Convert();
    conversion_ = nullptr;
}

void DrawingSink::Convert() {
    if (conversion_) conversion_(drawing_.planFrom(firstUnconverted_));
    firstUnconverted_ = static_cast<std::uint32_t>(drawing_.store().Size());
}

void DrawingSink::DropUnfinished() {
    for (std::uint32_t i = firstUnfinished_; i < drawing_.store().Size(); ++i) Entity(drawing_, i).erase();
}

void DrawingSink::WriteEntities() {
    Convert();
    if (!file_) {
        file_.emplace(path_);
        writer_ =
            std::make_unique<VdfWriter>(drawing_, [this](std::string_view bytes) { file_->Write(bytes); });
    }
    writer_->WriteEntities();
    drawing_.clearEntities();
    firstUnconverted_ = 0;
}

void DrawingSink::Commit() {
    WriteEntities();
    writer_->WriteIndex();
    file_->Commit();
}

}  // namespace vexlator::drawing

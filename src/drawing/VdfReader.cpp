// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"
#include "drawing/DrawingFile.h"
#include "drawing/TextBlock.h"
#include "drawing/Vdf.h"
#include "platform/Paths.h"
#include "vdf_generated.h"

#include <algorithm>
#include <cstring>
#include <flatbuffers/flatbuffers.h>
#include <numeric>
#include <xxhash.h>

namespace vexlator::drawing {

using platform::ReadError;

namespace {

std::uint64_t NumberAt(std::span<const std::byte> bytes, std::size_t offset) {
    std::uint64_t number;
    std::memcpy(&number, bytes.data() + offset, sizeof number);
    return number;
}

bool TextAt(std::span<const std::byte> bytes, std::size_t offset, std::string_view text) {
    return std::memcmp(bytes.data() + offset, text.data(), text.size()) == 0;
}

/// The verifier checks the alignment of a vector's length only, not of elements with a larger alignment. The
/// end of an empty vector does not matter.
template <typename Element, typename Vector>
bool IsAligned(const Vector* vector) {
    if (!vector || vector->size() == 0) return true;
    return reinterpret_cast<std::uintptr_t>(vector->Data()) % alignof(Element) == 0;
}

template <typename Vector>
std::span<const std::byte> BytesOf(const Vector* vector) {
    if (!vector) return {};
    return std::as_bytes(std::span(vector->data(), vector->size()));
}

/// A column in which one element may apply to all entities.
template <typename T>
class Column {
public:
    explicit Column(const flatbuffers::Vector<T>* vector)
        : data_(vector ? vector->data() : nullptr), size_(vector ? vector->size() : 0) {}
    bool Fits(std::size_t entities) const { return size_ == entities || size_ == 1; }
    T operator[](std::size_t i) const { return data_[size_ == 1 ? 0 : i]; }
    bool AllBelow(std::size_t limit) const {
        return std::all_of(data_, data_ + size_, [&](T value) { return value < limit; });
    }
    bool IsSingle() const { return size_ == 1; }

private:
    const T* data_;
    std::size_t size_;
};

}  // namespace

/// Reads the index at once, and chunks on request.
class VdfReader {
public:
    VdfReader(std::span<const std::byte> bytes, Drawing& drawing) : bytes_(bytes), drawing_(drawing) {
        CheckHeader();
        const vdf::Index& index = FindIndex();
        ReadIndex(index);
        CountEntities(index);
    }

    std::uint64_t EntityCount() const { return entities_; }
    /// The file has been read up to this position.
    std::size_t Offset() const { return offset_; }

    /// Adds all entities to the drawing. Calls `afterChunk` after each chunk.
    template <typename AfterChunk>
    void ReadAll(AfterChunk afterChunk) {
        drawing_.store().ReserveMore(entities_);
        while (ReadNextChunk()) afterChunk();
        if (!handlesRise_) CheckHandlesDiffer();
    }

    /// Replaces the entities of the drawing by the next chunk's; false after the last.
    bool ReplaceByNextChunk() {
        drawing_.clearEntities();
        return ReadNextChunk();
    }

    void Rewind() {
        offset_ = vdf::headerSize;
        chunk_ = 0;
        lastHandle_ = 0;
        handlesRise_ = true;
    }

private:
    [[noreturn]] static void Damaged(const std::string& place, const std::string& reason) {
        throw ReadError("", place, reason);
    }

    void CheckHeader() const {
        if (bytes_.size() < vdf::headerSize + vdf::trailerSize || !TextAt(bytes_, 0, vdf::magic))
            Damaged("header", "this is not a drawing file");
        std::uint64_t version = NumberAt(bytes_, vdf::magic.size());
        if (version != vdf::version)
            Damaged("header", "drawing format version " + std::to_string(version) + " is not known");
    }

    const vdf::Index& FindIndex() {
        std::size_t trailer = bytes_.size() - vdf::trailerSize;
        if (!TextAt(bytes_, trailer + 24, vdf::endMagic)) Damaged("end", "the drawing file is cut off");
        std::uint64_t offset = NumberAt(bytes_, trailer), length = NumberAt(bytes_, trailer + 8);
        if (offset < vdf::headerSize || offset > trailer || length != trailer - offset || offset % 8 != 0)
            Damaged("end", "the index is not at the offset in the file's end");
        indexOffset_ = offset;
        std::span<const std::byte> index = bytes_.subspan(offset, length);
        if (XXH3_64bits(index.data(), index.size()) != NumberAt(bytes_, trailer + 16))
            Damaged("index", "the checksum is wrong");
        return *Verified<vdf::Index>(index, "index");
    }

    template <typename Table>
    const Table* Verified(std::span<const std::byte> bytes, const std::string& place) const {
        const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
        flatbuffers::Verifier verifier(data, bytes.size(), 16,
                                       static_cast<flatbuffers::uoffset_t>(bytes.size() / 4 + 64));
        if (bytes.size() < 8 || !verifier.VerifyBuffer<Table>(nullptr))
            Damaged(place, "the structure is damaged");
        return flatbuffers::GetRoot<Table>(data);
    }

    // Tables of an index may overlap in a hostile file, so a small file can name the same long text many
    // times. The total of the names must not exceed the size of the file.
    void Take(std::uint64_t size) {
        taken_ += size;
        if (taken_ > bytes_.size()) Damaged("index", "its entries overlap");
    }
    std::string TakeString(const flatbuffers::String* text) {
        if (!text) return "";
        Take(text->size());
        return text->str();
    }

    template <typename List, typename Read>
    static void ForEach(const List* list, Read read) {
        if (!list) return;
        for (const auto* entry : *list) read(*entry);
    }

    Style TakeStyle(const vdf::StyleEntry& entry) {
        return {entry.colour(), entry.fill_colour(), entry.outline_colour(), entry.line_weight(),
                TakeString(entry.line_type())};
    }

    Shape TakeShape(const vdf::ShapeEntry& entry) {
        return {TakeString(entry.name()), entry.scale_x(),   entry.scale_y(),  entry.rotation(), entry.size(),
                entry.start_angle(),      entry.end_angle(), entry.alignment()};
    }

    void ReadIndex(const vdf::Index& index) {
        ForEach(index.properties(), [&](const vdf::Property& entry) {
            std::string name = TakeString(entry.name());
            drawing_.properties().emplace_back(std::move(name), TakeString(entry.value()));
        });
        ReadLayers(index);
        ForEach(index.blocks(), [&](const vdf::BlockEntry& entry) {
            Block block{TakeString(entry.name()), ""};
            if (const auto* content = entry.content()) {
                Take(content->size());
                block.content.assign(reinterpret_cast<const char*>(content->data()), content->size());
            }
            drawing_.addBlock(std::move(block));
        });
        ForEach(index.styles(),
                [&](const vdf::StyleEntry& entry) { drawing_.styles().AddUnchecked(TakeStyle(entry)); });
        ForEach(index.shapes(),
                [&](const vdf::ShapeEntry& entry) { drawing_.shapes().AddUnchecked(TakeShape(entry)); });
        ReadNames(index);
    }

    void ReadLayers(const vdf::Index& index) {
        drawing_.clearLayers();
        ForEach(index.layers(), [&](const vdf::LayerEntry& entry) {
            Layer& layer = drawing_.addLayer(TakeString(entry.name()));
            layer.frozen = entry.frozen();
            layer.colour = entry.colour();
        });
        std::size_t listed = index.layers() ? index.layers()->size() : 0;
        if (listed != drawing_.layerCount()) Damaged("index", "two layers have the same name");
        if (index.active_layer() >= listed) Damaged("index", "the active layer does not exist");
        drawing_.setActiveLayer(drawing_.layers()[index.active_layer()].name);
        if (index.active_style()) drawing_.setActiveStyle(TakeStyle(*index.active_style()));
    }

    void ReadNames(const vdf::Index& index) {
        ForEach(index.names(), [&](const vdf::NameEntry& entry) {
            drawing_.names().PlaceOf(TakeString(entry.name()), entry.type_code());
        });
        std::size_t names = index.names() ? index.names()->size() : 0;
        if (names != drawing_.names().All().size()) Damaged("index", "it holds an attribute name twice");
        ForEach(index.attribute_sets(), [&](const vdf::SetEntry& entry) {
            AttributeNames::Names set;
            if (entry.names()) {
                Take(entry.names()->size() * sizeof(std::uint32_t));
                set.assign(entry.names()->begin(), entry.names()->end());
            }
            if (std::ranges::any_of(set, [&](std::uint32_t name) { return name >= names; }))
                Damaged("index", "an attribute set refers to a missing name");
            sets_.push_back(drawing_.names().SetOf(std::move(set)));
        });
    }

    void CountEntities(const vdf::Index& index) {
        if (!IsAligned<vdf::ChunkEntry>(index.chunks())) Damaged("index", "the structure is damaged");
        chunks_ = index.chunks();
        for (flatbuffers::uoffset_t i = 0; i < ChunkCount(); ++i) entities_ += chunks_->Get(i)->entities();
        if (entities_ > bytes_.size()) Damaged("index", "it announces more entities than the file can hold");
        drawing_.store().SetNextHandle(std::max(drawing_.store().NextHandle(), index.next_handle()));
    }

    flatbuffers::uoffset_t ChunkCount() const { return chunks_ ? chunks_->size() : 0; }

    bool ReadNextChunk() {
        if (chunk_ == ChunkCount()) {
            if (offset_ != indexOffset_) Damaged("index", "it does not follow the last chunk");
            return false;
        }
        const vdf::ChunkEntry& entry = *chunks_->Get(chunk_++);
        std::string place = "chunk " + std::to_string(chunk_);
        if (entry.offset() != offset_) Damaged(place, "it does not follow the chunk before it");
        offset_ = ReadChunk(place, offset_, entry.entities());
        return true;
    }

    /// Returns the offset after the chunk.
    std::size_t ReadChunk(const std::string& place, std::size_t offset, std::uint64_t entities) {
        if (indexOffset_ - offset < vdf::frameSize) Damaged(place, "it is cut off");
        std::uint64_t length = NumberAt(bytes_, offset), left = indexOffset_ - offset - vdf::frameSize;
        std::size_t padding = (8 - length % 8) % 8;
        if (length > left || padding > left - length) Damaged(place, "it is cut off");
        std::span<const std::byte> data = bytes_.subspan(offset + vdf::frameSize, length);
        if (XXH3_64bits(data.data(), data.size()) != NumberAt(bytes_, offset + 8))
            Damaged(place, "the checksum is wrong");
        for (std::byte byte : bytes_.subspan(offset + vdf::frameSize + length, padding))
            if (byte != std::byte{0}) Damaged(place, "bytes that must be 0 are not");
        AddEntities(place, *Verified<vdf::Chunk>(data, place), entities);
        return offset + vdf::frameSize + length + padding;
    }

    void AddEntities(const std::string& place, const vdf::Chunk& chunk, std::uint64_t entities) {
        std::size_t count = chunk.kinds() ? chunk.kinds()->size() : 0;
        if (count != entities || count == 0 || count > vdf::entitiesPerChunk)
            Damaged(place, "the number of entities is wrong");
        Column<std::uint8_t> kinds(chunk.kinds()), flags(chunk.flags());
        Column<std::uint32_t> layers(chunk.layers()), styles(chunk.styles()), shapes(chunk.shapes()),
            sets(chunk.attribute_sets()), vertexCounts(chunk.vertex_counts());
        Column<std::uint64_t> handles(chunk.handles());
        bool complete = flags.Fits(count) && layers.Fits(count) && styles.Fits(count) && shapes.Fits(count) &&
                        sets.Fits(count) && handles.Fits(count) && vertexCounts.Fits(count);
        if (!complete) Damaged(place, "a column is too short or too long");
        if (!IsAligned<std::uint64_t>(chunk.handles())) Damaged(place, "the structure is damaged");
        if (!kinds.AllBelow(static_cast<std::size_t>(Kind::Other) + 1) ||
            !layers.AllBelow(drawing_.layerCount()) || !styles.AllBelow(drawing_.styles().Size()) ||
            !shapes.AllBelow(drawing_.shapes().Size()) || !sets.AllBelow(sets_.size()) ||
            !flags.AllBelow(std::size_t{2} * vdf::sameTexts))
            Damaged(place, "a column refers to something that does not exist");

        Cursor cursor = CopyArenas(place, chunk);
        for (std::size_t i = 0; i < count; ++i) {
            Record record{};
            record.kind = static_cast<Kind>(kinds[i]);
            record.flags =
                flags[i] & (Record::Closed | Record::Filled | Record::HasLabel | Record::HasHyperlink);
            record.layer = layers[i];
            record.style = styles[i];
            record.shape = shapes[i];
            record.set = sets_[sets[i]];
            record.handle = handles.IsSingle() ? handles[0] + i : handles[i];
            CheckHandle(place, record.handle);
            record.vertexBegin = cursor.vertex;
            record.vertexCount = vertexCounts[i];
            if (record.vertexCount > cursor.vertexEnd - cursor.vertex) Damaged(place, "vertices are missing");
            cursor.vertex += record.vertexCount;
            if (flags[i] & vdf::sameTexts)
                ShareTexts(place, record, i);
            else
                TakeTexts(place, record, cursor);
            drawing_.store().AddRecord(record);
        }
        if (cursor.vertex != cursor.vertexEnd || cursor.text != cursor.textEnd)
            Damaged(place, "vertices or texts are left over");
    }

    /// The position in the drawing's arenas of the vertices and texts of the chunk's next entity.
    struct Cursor {
        std::uint64_t vertex, vertexEnd, text, textEnd;
    };

    Cursor CopyArenas(const std::string& place, const vdf::Chunk& chunk) {
        std::size_t vertices = chunk.plan() ? chunk.plan()->size() / 2 : 0;
        std::size_t heights = chunk.heights() ? chunk.heights()->size() : 0;
        std::size_t texts = chunk.texts() ? chunk.texts()->size() : 0;
        if ((chunk.plan() && chunk.plan()->size() % 2 != 0) || (heights != 0 && heights != vertices))
            Damaged(place, "the coordinates are incomplete");
        Cursor cursor{};
        cursor.vertex = drawing_.store().AddVertices(BytesOf(chunk.plan()), BytesOf(chunk.heights()));
        cursor.vertexEnd = cursor.vertex + vertices;
        cursor.text = drawing_.store().AddTexts(BytesOf(chunk.texts()));
        cursor.textEnd = cursor.text + texts;
        return cursor;
    }

    void TakeTexts(const std::string& place, Record& record, Cursor& cursor) {
        const char* texts = drawing_.store().AllTexts().data();
        const char* begin = texts + cursor.text;
        const char* position = begin;
        const char* end = texts + cursor.textEnd;
        if (!SkipTexts(position, end, drawing_.textCount(record))) Damaged(place, "texts are missing");
        record.textBegin = cursor.text;
        record.textSize = CheckedSize(static_cast<std::uint64_t>(position - begin));
        cursor.text += record.textSize;
    }

    void ShareTexts(const std::string& place, Record& record, std::size_t i) {
        if (i == 0) Damaged(place, "its first entity shares texts, but no entity precedes it");
        Record& before = drawing_.store().Last();
        if (drawing_.textCount(record) != drawing_.textCount(before))
            Damaged(place, "entities with shared texts have different numbers of texts");
        record.textBegin = before.textBegin;
        record.textSize = before.textSize;
        record.Set(Record::SharesTexts, true);
        before.Set(Record::SharesTexts, true);
    }

    void CheckHandle(const std::string& place, std::uint64_t handle) {
        if (handle >= drawing_.store().NextHandle()) Damaged(place, "a handle is too large");
        handlesRise_ = handlesRise_ && handle > lastHandle_;
        lastHandle_ = handle;
    }

    void CheckHandlesDiffer() {
        if (!drawing_.store().HandlesDiffer()) Damaged("index", "two entities have the same handle");
    }

    std::span<const std::byte> bytes_;
    Drawing& drawing_;
    std::size_t indexOffset_ = 0;
    std::uint64_t taken_ = 0;
    std::vector<AttributeSet> sets_;  ///< the drawing's number of each set of the file
    const flatbuffers::Vector<const vdf::ChunkEntry*>* chunks_ = nullptr;
    std::uint64_t entities_ = 0;
    flatbuffers::uoffset_t chunk_ = 0;  ///< the next one
    std::size_t offset_ = vdf::headerSize;
    std::uint64_t lastHandle_ = 0;
    bool handlesRise_ = true;
};

void ReadVdf(std::span<const std::byte> bytes, Drawing& drawing) {
    VdfReader(bytes, drawing).ReadAll([] {});
}

void ReadVdf(const Block& block, Drawing& drawing) {
    std::vector<std::uint64_t> aligned((block.content.size() + 7) / 8);
    std::memcpy(aligned.data(), block.content.data(), block.content.size());
    ReadVdf(std::as_bytes(std::span(aligned)).first(block.content.size()), drawing);
}

void ReadVdf(std::string_view path, Drawing& drawing) {
    platform::MappedFile file(path);
    try {
        VdfReader reader(file.Bytes(), drawing);
        reader.ReadAll([&] { file.DoneBefore(reader.Offset()); });
    } catch (const ReadError& error) {
        throw error.InFile(file.Name());
    }
}

DrawingFile::DrawingFile(std::string_view path) : file_(path) {
    try {
        reader_ = std::make_unique<VdfReader>(file_.Bytes(), drawing_);
    } catch (const ReadError& error) {
        throw error.InFile(file_.Name());
    }
}

DrawingFile::~DrawingFile() = default;

std::uint64_t DrawingFile::EntityCount() const {
    return reader_->EntityCount();
}

Box DrawingFile::Extents() {
    std::optional<Box> box;
    ForEachChunk([&](const Drawing& chunk) {
        std::optional<Box> reached = chunk.extentsOfAny();
        if (!box) box = reached;
        if (reached) box->widen(*reached);
    });
    return box.value_or(Box{});
}

void DrawingFile::Rewind() {
    reader_->Rewind();
}

bool DrawingFile::ReadChunk() {
    try {
        file_.DoneBefore(reader_->Offset());
        return reader_->ReplaceByNextChunk();
    } catch (const ReadError& error) {
        throw error.InFile(file_.Name());
    }
}

}  // namespace vexlator::drawing

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/LayerFile.h"

#include "background/package/PlainLine.h"

#include <algorithm>

namespace vexlator::background {

namespace {

/// Attributes of these types hold positions, which have no meaning on the device.
bool IsPosition(std::int32_t typeCode) {
    return typeCode == 1010 || typeCode == 1011;
}

/// A record reserves 2 bytes of its width for CR LF, the header line 6.
constexpr int recordMargin = 2, headerMargin = 6;

std::size_t Room(int width, int margin) {
    return static_cast<std::size_t>(std::max(0, width - margin));
}

}  // namespace

void LayerFile::WriteLine(std::string_view bytes) {
    if (file_ == nullptr) file_ = &files_.Add(path_);
    file_->Write(bytes);
    file_->Write("\r\n");
}

std::int32_t LayerFile::WriteRecord(std::string_view bytes) {
    WriteLine(bytes);
    return records_++;
}

std::string LayerFile::Encode(std::string_view text) {
    return PlainLine(text, replaced_);
}

std::int32_t LayerFile::AddLayer(std::string_view name) {
    return WriteRecord(Encode(name));
}

std::optional<std::int32_t> LayerFile::AddListed(const ListedLayer& layer,
                                                 std::span<const std::string_view> values) {
    std::size_t room = Room(layer.width, recordMargin);
    if (room == 0) return std::nullopt;
    if (IsEmpty()) {
        std::string header = Encode("***," + layer.fieldList + ",");
        header.resize(Room(layer.width, headerMargin), ' ');
        WriteLine(header);
    }
    record_.clear();
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i > 0) record_ += ',';
        record_ += Encode(values[i]);
    }
    record_.resize(room, ' ');
    return WriteRecord(record_);
}

std::optional<std::int32_t> LayerFile::AddFree(std::span<const FreeAttribute> attributes) {
    if (attributes.empty()) return std::nullopt;
    record_.clear();
    for (const FreeAttribute& attribute : attributes) {
        if (&attribute != attributes.data()) record_ += ',';
        record_ += Encode(attribute.name) + ':';
        if (!IsPosition(attribute.typeCode)) record_ += Encode(attribute.value);
    }
    return WriteRecord(record_);
}

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/PackageIndex.h"

#include "platform/Utf16.h"

#include <algorithm>
#include <cstring>

namespace vexlator::background {

namespace {

GrpIndexRecord MakeRecord(std::string_view nameBytes, std::int16_t kind, const Box& box) {
    GrpIndexRecord record{};
    std::memset(record.name, ' ', sizeof record.name);
    std::memcpy(record.name, nameBytes.data(), std::min(nameBytes.size(), sizeof record.name));
    record.kind = kind;
    record.minX = box.minX;
    record.minY = box.minY;
    record.maxX = box.maxX;
    record.maxY = box.maxY;
    return record;
}

}  // namespace

PackageIndex::PackageIndex() {
    records_.push_back(MakeRecord("", member::header, unsetBox));
}

void PackageIndex::AddIndexEntry(std::string_view memberName, const Box& box, std::int16_t kind) {
    std::string name = platform::Utf16FromUtf8(memberName);
    name.append(2, '\0');
    records_.push_back(MakeRecord(name, kind, box));
    const GrpIndexRecord& header = records_.front();
    Box extents{header.minX, header.minY, header.maxX, header.maxY};
    extents.Widen(box);
    SetExtents(extents);
}

void PackageIndex::SetExtents(const Box& box) {
    GrpIndexRecord& header = records_.front();
    header.minX = box.minX;
    header.minY = box.minY;
    header.maxX = box.maxX;
    header.maxY = box.maxY;
}

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/fmo/GeometryValue.h"
#include "platform/Errors.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void Expect(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

/// The bytes are a geometry value. Vertices that it gives pack into a value that gives them again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vexlator::formats;
    std::string_view value(reinterpret_cast<const char*>(data), size);
    Expect(BLOBtoNodeMemory(value).size() <= size / 4 + 2);
    try {
        auto vertices = BlobToVertexList(value);
        Expect(vertices.size() * 8 < size + 1);
        bool close = false;
        Expect(BlobToVertexList(vArraytoBLOB(vertices, close)) == vertices);
    } catch (const vexlator::platform::ReadError&) {
    }
    return 0;
}

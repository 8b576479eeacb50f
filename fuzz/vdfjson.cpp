// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a document that loads or an error; what loads and is dumped loads again to the same dump.
#include "platform/Errors.h"
#include "vdfjson/DrawingToJson.h"
#include "vdfjson/JsonToDrawing.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace vexlator;

namespace {

/// A small document may ask for a long dump: each of its parts has all the attributes of the whole.
constexpr std::size_t mostText = std::size_t{32} << 20;
struct TooLong {};

std::string Dump(drawing::Drawing& drawing) {
    std::string json;
    vdfjson::DrawingToJson(drawing, [&](std::string_view piece) {
        json += piece;
        if (json.size() > mostText) throw TooLong{};
    });
    return json;
}

std::string LoadAndDump(std::string_view json) {
    drawing::Drawing drawing;
    vdfjson::JsonToDrawing(json, "plain", drawing);
    return Dump(drawing);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        std::string first = LoadAndDump({reinterpret_cast<const char*>(data), size});
        try {
            if (LoadAndDump(first) != first) std::abort();
        } catch (const platform::ReadError&) {
            std::abort();
        }
    } catch (const platform::ReadError&) {
    } catch (const TooLong&) {
    }
    return 0;
}

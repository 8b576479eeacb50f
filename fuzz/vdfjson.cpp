// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a document that loads, or give an error. The dump of a loaded document loads again with the
// same dump.
#include "BoundedDump.h"
#include "platform/Errors.h"
#include "vdfjson/JsonToDrawing.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace vexlator;

namespace {

std::string LoadAndDump(std::string_view json) {
    drawing::Drawing drawing;
    vdfjson::JsonToDrawing(json, "plain", drawing);
    return fuzz::Dump(drawing);
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
    } catch (const fuzz::TooLong&) {
    }
    return 0;
}

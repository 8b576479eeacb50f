// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are records in UTF-8 with a code and finite coordinates, or an error.
#include "formats/adt/AdtFile.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace vexlator;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        formats::AdtFile file({reinterpret_cast<const char*>(data), size});
        formats::AdtRecord record;
        while (file.Next(record)) {
            if (record.code.empty() || !platform::IsUtf8(record.code)) std::abort();
            for (double number : {record.east, record.north, record.height})
                if (!std::isfinite(number)) std::abort();
            for (std::string_view value : record.values)
                if (!platform::IsUtf8(value)) std::abort();
        }
    } catch (const platform::ReadError&) {
    }
    return 0;
}

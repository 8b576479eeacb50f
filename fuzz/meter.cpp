// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are meters in UTF-8 or an error, and positions are finite.
#include "formats/meter/MeterFile.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace vexlator;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        formats::MeterFile file({reinterpret_cast<const char*>(data), size});
        formats::MeterRecord meter;
        while (file.Next(meter)) {
            for (std::string_view text : {meter.reference, meter.reading, meter.date, meter.remarks})
                if (!platform::IsUtf8(text)) std::abort();
            std::optional<util::PlanePoint> place = formats::MeterPosition(meter.remarks);
            if (place && (!std::isfinite(place->x) || !std::isfinite(place->y))) std::abort();
        }
        if (file.Position() > size) std::abort();
    } catch (const platform::ReadError&) {
    }
    return 0;
}

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// The first byte chooses the layout; the rest is a table of points.
#include "formats/csv/CsvRecords.h"
#include "platform/CodePages.h"

#include <cstdint>
#include <cstdlib>

using namespace vexlator;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    formats::CsvTable settings;
    settings.header = (data[0] & 1) != 0;
    settings.delimiter = (data[0] & 2) != 0 ? '\t' : ',';
    settings.key = settings.header ? "ID" : "0";
    settings.east = settings.header ? "E" : "1";
    settings.north = settings.header ? "N" : "2";
    std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);
    formats::CsvColumns columns(settings);
    formats::CsvRecords records(text, settings.delimiter);
    try {
        if (settings.header) columns.ReadCsvHeader(records.ReadRow());
    } catch (const platform::ReadError&) {
        return 0;  // too many columns
    }
    formats::CsvRecord record{};
    while (records.Next(columns, record)) {
        bool fits = !settings.header || record.values.size() <= columns.AttributeNames().size();
        if (!fits || record.values[0].empty()) std::abort();
        for (std::string_view value : record.values)
            if (!platform::IsUtf8(value)) std::abort();
    }
    return 0;
}

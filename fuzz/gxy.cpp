// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gpx/GpxWriter.h"
#include "util/Files.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Expect(bool condition) {
    if (!condition) std::abort();
}

/// No byte of a trail may break its XML.
bool IsPlainText(std::string_view text) {
    for (char c : text)
        if (c < ' ' || c > '~') return false;
    return true;
}

}  // namespace

/// The bytes are a trail. Its lines are read as positions. The last one equals that of LastLine.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vexlator;
    std::string_view text(reinterpret_cast<const char*>(data), size), line;
    for (util::LineReader lines(text); !lines.AtEnd();) {
        line = lines.ReadTextLine();
        gpx::TrailPosition position = gpx::ParseTrailLine(line);
        Expect(position.time.Text().size() >= 3 && IsPlainText(position.time.Text()));
        Expect(!position.time.IsValid() || position.time.Text().size() == 19);
        Expect(position.grid.x == position.grid.x && position.height - position.height == 0);
    }
    Expect(text.empty() || gpx::LastLine(text) == line);
    return 0;
}

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/SharedSettings.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/FieldMapping.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Expect(bool condition) {
    if (!condition) std::abort();
}

void Check(const vexlator::drawing::AtpField& field, const vexlator::config::SharedSettings& settings) {
    Expect(field.Width() >= 0 && field.Width() <= 99);
    Expect(field.Decimals() >= 0 && field.Decimals() <= 99);
    Expect(field.name.find_first_of(",=<\r\n") == std::string::npos);
    std::string_view shortened = vexlator::drawing::ShortenValue(settings, field.shortName);
    Expect(field.shortName.starts_with(shortened));
}

}  // namespace

/// The bytes are a template. Its first field's name is the separator that shortens values.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vexlator::drawing;
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<AtpField> fields = ParseAtpFields(text, NullFields::Keep);
    vexlator::config::SharedSettings settings;
    if (!fields.empty()) settings.SHORTENFIELDSON = fields[0].name;
    for (const AtpField& field : fields) Check(field, settings);
    Expect(ParseAtpFields(text).size() <= fields.size());
    return 0;
}

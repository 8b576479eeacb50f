// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a background styling file. Every value equals that of a separate look-up, and every row has a
// style. A saved file reads the same, unless the writer refuses it.
#include "background/styling/LayerStyles.h"
#include "background/styling/modGRPstyling.h"
#include "config/Ini.h"
#include "platform/Errors.h"
#include "support/TempFolder.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace vexlator;

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

void CompareLookUps(std::string_view bytes) {
    const config::IniText ini(bytes);
    for (std::string_view section : {"LAYERS", "MOBILEATTRIBS", "ANNOTATIONS", "LAYERON"})
        for (std::string_view key : {"1", "2", "3", "FIELD"})
            Require(ini.Value(section, key) == config::IniValue(bytes, section, key));
}

void SaveAndLoad(const std::string& file, background::BackgroundStyle style) {
    try {
        background::SaveBackgroundStyle(file, style, false);
    } catch (const platform::WriteError&) {
        return;
    }
    if (style.searchOnField == background::noSearchField) style.searchOnField.clear();
    Require(background::LoadBackgroundStyle(file, false) == style);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TempFolder folder;
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CompareLookUps(bytes);
    background::BackgroundStyle style = background::LoadBackgroundStyle(folder.Write("in.bsf", bytes));
    const background::LayerStyles styles(style.rows, background::MobileStyles(bytes));
    for (const background::StyleRow& row : style.rows) Require(styles.StyleFor(row.layer) != nullptr);
    SaveAndLoad(folder / "out.bsf", style);
    return 0;
}

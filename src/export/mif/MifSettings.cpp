// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/MifSettings.h"

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<MifSettings>;

constexpr config::KeyOf<MifSettings> keys[] = {
    Keys::Text("MID", "MIDMIFHEADER", &MifSettings::coordSys, "coordinate system line of MIF exports",
               "the British National Grid"),
    Keys::Flag(
        "MID", "Strict", &MifSettings::strict,
        "rows get a value for every column, and lines or areas of fewer than two vertices become points or "
        "no objects, because some programs stop reading where that is not so"),
};

}  // namespace

MifSettings ReadMifSettings(const config::Run& run) {
    return config::ReadKeys<MifSettings>(run.Installation(), keys);
}

config::KeyList MifKeys() {
    return config::ListOf<MifSettings>(keys);
}

}  // namespace vexlator::exporter

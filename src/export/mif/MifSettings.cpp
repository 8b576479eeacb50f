// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/MifSettings.h"

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<MifSettings>;

constexpr config::KeyOf<MifSettings> keys[] = {
    Keys::Text("MID", "MIDMIFHEADER", &MifSettings::coordSys, "CoordSys line of MIF exports",
               "the British National Grid"),
    Keys::Flag("MID", "Strict", &MifSettings::strict,
               "MIF exports suit strict readers. Each row has a value for every column. A line or area with "
               "one vertex becomes a point. One without vertices becomes no object"),
};

}  // namespace

MifSettings ReadMifSettings(const config::Run& run) {
    return config::ReadKeys<MifSettings>(run.Installation(), keys);
}

config::KeyList MifKeys() {
    return config::ListOf<MifSettings>(keys);
}

}  // namespace vexlator::exporter

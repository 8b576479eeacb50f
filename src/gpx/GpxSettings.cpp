// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gpx/GpxSettings.h"

namespace vexlator::gpx {

namespace {

using Keys = config::Keys<GpxSettings>;

constexpr config::KeyOf<GpxSettings> keys[] = {
    Keys::Flag("GPX", "Strict", &GpxSettings::strict,
               "GPS trails become valid GPX 1.1. Positions without latitude/longitude are left out"),
    Keys::Text("GPX", "WebBase", &GpxSettings::webBase,
               "web address that the GPX files of GPS trails refer to",
               "https://www.veltrom.example/professional-services"),
};

}  // namespace

GpxSettings ReadGpxSettings(const config::Run& run) {
    return config::ReadKeys<GpxSettings>(run.Installation(), keys);
}

config::KeyList GpxKeys() {
    return config::ListOf<GpxSettings>(keys);
}

}  // namespace vexlator::gpx

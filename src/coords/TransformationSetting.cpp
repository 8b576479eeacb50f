// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/TransformationSetting.h"

#include "coords/CoordinateOperation.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <cstdint>

namespace vexlator::coords {

namespace {

constexpr std::uint64_t largestDefinition = 1 << 20;

struct IniSettings {
    std::string transformation;
};

using Keys = config::Keys<IniSettings>;

constexpr config::KeyOf<IniSettings> keys[] = {
    Keys::Text("GPS", "TRANSFORMATION", &IniSettings::transformation,
               "coordinate system of the drawings: an EPSG code, WKT or PROJ text, or the path of a file "
               "with one of these. A path with the letters LatLng in a folder's name or the file's name "
               "means that drawings are already in latitude/longitude. The file's content then has no "
               "effect, but the file must not be empty",
               "British National Grid with a correction grid from Resources: OSTN15 "
               "(uk_os_OSTN15_NTv2_OSGBtoETRS.tif), OSTN02.INT or OSTN97.INT"),
};

}  // namespace

GridFolders GridFoldersOf(const config::Run& run) {
    const std::string& program = run.Settings().ProgramFolder;
    std::string resources = util::JoinPath(program, "Resources");
    return {{"c:\\program files\\common files\\Gorvane", resources, program, "C:\\windows"}, resources};
}

TransformationSetting ReadTransformationSetting(const config::Run& run) {
    using Kind = TransformationSetting::Kind;
    TransformationSetting setting;
    setting.value = config::ReadKeys<IniSettings>(run.Installation(), keys).transformation;
    setting.isSet = !setting.value.empty();
    if (!setting.isSet) setting.value = "\\qxmCS.DAT";
    setting.isFile = util::FileSize(setting.value) > 0;
    if (setting.isFile)
        setting.kind = util::InStrNoCase(setting.value, "LatLng") > 0 ? Kind::Degrees : Kind::Definition;
    else if (setting.isSet && IsDefinition(setting.value))
        setting.kind = Kind::Definition;
    return setting;
}

std::string TransformationSetting::Name() const {
    return isFile ? platform::NativePath(value) : value;
}

std::string TransformationSetting::Definition() const {
    return isFile ? ReadDefinition(value) : DefinitionText(value);
}

std::string TransformationSetting::DrawingSystem() const {
    switch (kind) {
        case Kind::CorrectionGrid:
            return "EPSG:27700";
        case Kind::Degrees:
            return "EPSG:4326";
        default:
            return Definition();
    }
}

std::string ReadDefinition(const std::string& path) {
    platform::MappedFile file(path);
    if (file.Bytes().size() > largestDefinition)
        throw platform::ReadError(file.Name(), "", "too large for a definition");
    return DefinitionText(file.Text());
}

bool HoldsDefinition(const std::string& path) {
    try {
        return IsDefinition(ReadDefinition(path));
    } catch (const platform::ReadError&) {
        return false;
    }
}

config::KeyList CoordinateKeys() {
    return config::ListOf<IniSettings>(keys);
}

}  // namespace vexlator::coords

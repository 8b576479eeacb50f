// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dxf/CadSettings.h"

#include "util/Angles.h"
#include "util/Numbers.h"
#include "util/Text.h"

namespace vexlator::exporter {

namespace {

using Keys = config::Keys<CadSettings>;

constexpr config::KeyOf<CadSettings> keys[] = {
    Keys::Text(
        "DWG", "Version", &CadSettings::version,
        "release of DXF exports: R12, 2000, 2004, 2007, 2010, 2013 or 2018. 24-bit colours need 2004, fills "
        "and line weights 2000",
        "2007"),
    Keys::Flag("DWG", "AsAttribs", &CadSettings::asAttribs,
               "in DXF exports the values of symbols are attributes of their inserts. Off: they are extended "
               "data, as those of other features",
               true),
    Keys::Flag("DWG", "AttribsVis", &CadSettings::attribsVis,
               "attributes of inserts in DXF exports are visible"),
    Keys::Text("DWG", "ROTATE", &CadSettings::rotate,
               "degrees by which CAD exports turn the drawing, counter-clockwise about its origin", "0"),
    Keys::Text("GENERAL", "FalseOrigin", &CadSettings::falseOrigin,
               "easting,northing that become 0,0 in CAD exports", "coordinates stay as they are"),
};

constexpr config::Key namedKeys[] = {
    {"DWG", "-ANNO",
     "attribute whose value CAD exports write as a text beside each feature, on a layer CODE-ANNO; behind a "
     "comma the "
     "height of the text. CODE-ANNO is the same for one feature code",
     "no texts"},
    {"DWG", "-PREFIX",
     "what the names of layers begin with in CAD exports. CODE-PREFIX is the same for one feature code",
     "nothing"},
    {"DWG", "", "CODE-ANNO and CODE-PREFIX: as above, for one feature code"},
};

std::string ValueFor(const config::Run& run, std::string_view code, const std::string& key) {
    std::string own = run.ReadIni("DWG", std::string(code) + key);
    return own.empty() ? run.ReadIni("DWG", key) : own;
}

}  // namespace

CadSettings ReadCadSettings(config::Run& run) {
    auto settings = config::ReadKeys<CadSettings>(run.Installation(), keys);
    if (!formats::FindDxfRelease(settings.version, settings.release))
        run.Ui().Report("[DWG] Version " + settings.version + " is no release of DXF; 2007 is written");
    settings.turn = util::NumberOf(settings.rotate) / util::degreesPerRadian;
    settings.originX = util::GetCommaNumber(0, settings.falseOrigin);
    settings.originY = util::GetCommaNumber(1, settings.falseOrigin);
    return settings;
}

std::optional<CadAnnotation> CadAnnotationOf(const config::Run& run, std::string_view code) {
    std::string value = ValueFor(run, code, "-ANNO");
    if (value.empty()) return std::nullopt;
    CadAnnotation annotation{.attribute = std::string(util::Trim(util::GetCommaField(0, value)))};
    if (double height = util::GetCommaNumber(1, value); height > 0) annotation.height = height;
    return annotation;
}

std::string CadPrefixOf(const config::Run& run, std::string_view code) {
    return ValueFor(run, code, "-PREFIX");
}

config::KeyList CadExportKeys() {
    config::KeyList list = config::ListOf<CadSettings>(keys);
    list.insert(list.end(), std::begin(namedKeys), std::end(namedKeys));
    return list;
}

}  // namespace vexlator::exporter

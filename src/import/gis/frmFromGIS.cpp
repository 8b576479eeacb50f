// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gis/frmFromGIS.h"

#include "config/Converter.h"
#include "import/FeatureLayer.h"
#include "import/SourceFiles.h"
#include "platform/Paths.h"

#include <vector>

namespace vexlator::importer {

namespace {

struct TabImportSettings {
    bool smallAreasAsPoints = false;
};

using Keys = config::Keys<TabImportSettings>;

constexpr config::KeyOf<TabImportSettings> keys[] = {
    Keys::Flag("TAB", "SMALLPOLYSASPOINTS", &TabImportSettings::smallAreasAsPoints,
               "imports of MapInfo tables make a symbol of an area that is nowhere wider than one unit"),
};

}  // namespace

config::Outcome frmFromGIS::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    auto view = run_.Ui().ShowForm("frmFrom" + code_);
    std::vector<std::string> arguments{"import", code_,
                                       platform::NativePath(DrawingPath(sourcePath, sourceFolder))};
    for (const std::string& path : SourceFiles(sourcePath, fileList)) {
        run_.Log("Reading:" + platform::NativePath(path));
        arguments.push_back(platform::NativePath(path));
    }
    config::ConversionReport report = config::RunConverter(run_, *view, std::move(arguments));
    OfferTemplates(run_, report);
    view->SetLabel("Completed!");
    return report.outcome;
}

double SmallAreaSize(const config::Run& run) {
    return config::ReadKeys<TabImportSettings>(run.Installation(), keys).smallAreasAsPoints ? 1 : 0;
}

config::KeyList TabImportKeys() {
    return config::ListOf<TabImportSettings>(keys);
}

}  // namespace vexlator::importer

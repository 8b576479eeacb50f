// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gml/frmFromGML.h"

#include "import/SourceFiles.h"
#include "import/gml/GmlFile.h"

namespace vexlator::importer {

config::Outcome frmFromGML::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder);
    import_.ForEachSource(sourcePath, fileList, [&](const std::string& path) { return ImportGmlFile(path); });
    import_.View().SetLabel("Completed!");
    return import_.Finish();
}

bool frmFromGML::ImportGmlFile(const std::string& path) {
    auto file = OpenTextSource(path, run_.Ui());
    if (!file) return false;
    GmlFile gml(run_, *file);
    GmlCounts counts;
    entities_.BeginFile(gml.HasLineLayout());
    std::string shownType;
    gml.ReadFeatures([&](const formats::GmlFeature& feature) {
        if (feature.type != shownType) import_.View().SetLabel(shownType = feature.type);
        counts.Count(feature);
        if (entities_.Add(feature, gml.Consumed())) import_.CountFeatures(1);
        import_.Sink().FeatureDone();
        import_.View().Progress(counts.features, 0);
    });
    counts.Report(file->Name(), run_.Ui());
    if (counts.features + counts.withoutPoints + counts.damaged == 0)
        run_.Ui().Report(file->Name() + ": no features were found");
    return counts.features > 0;
}

}  // namespace vexlator::importer

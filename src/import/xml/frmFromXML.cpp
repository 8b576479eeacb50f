// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/xml/frmFromXML.h"

#include "formats/xml/ByteBlocks.h"
#include "import/SourceFiles.h"
#include "import/xml/XmlToDrawing.h"
#include "util/Paths.h"

#include <limits>
#include <utility>

namespace vexlator::importer {

config::Outcome frmFromXML::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder);
    import_.ForEachSource(sourcePath, fileList, [&](const std::string& path) { return ImportXmlFile(path); });
    import_.View().SetLabel("Completed!");
    return import_.Finish();
}

bool frmFromXML::ImportXmlFile(const std::string& path) {
    auto file = OpenTextSource(path, run_.Ui());
    if (!file) return false;
    import_.View().SetLabel(util::BaseNameOf(path));
    auto blocks = formats::BlocksOf(file->Bytes(), std::numeric_limits<std::uint64_t>::max());
    auto into = std::exchange(isFirst_, false) ? DrawingBuilder::Into::Empty : DrawingBuilder::Into::Filled;
    try {
        XmlToDrawing(*blocks, import_.Drawing(), into, [&] {
            import_.CountFeatures(1);
            import_.Sink().FeatureDone();
            file->DoneBefore(blocks->Consumed());
            import_.View().Progress(import_.Features(), 0);
        });
    } catch (const platform::ReadError& error) {
        throw error.InFile(file->Name());
    }
    return true;
}

}  // namespace vexlator::importer

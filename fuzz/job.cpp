// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/job/SupersededRecords.h"
#include "import/job/JobToDrawing.h"
#include "platform/Errors.h"
#include "support/TestUi.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Expect(bool condition) {
    if (!condition) std::abort();
}

/// Every position record becomes one position at most, and every point, feature and marker is one entity.
void Check(vexlator::drawing::Drawing& drawing, const vexlator::importer::JobCounts& counts,
           std::size_t size) {
    Expect(counts.entities <= counts.positions && counts.positions <= size);
    Expect(drawing.entityCount() <= counts.entities + counts.positions);
}

}  // namespace

/// The bytes are the text of a job. It is imported without templates, with quality markers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vexlator;
    std::string_view text(reinterpret_cast<const char*>(data), size);
    test::TestUi ui;
    config::Installation installation;
    config::Run run(installation, ui);
    drawing::Drawing drawing;
    importer::JobToDrawing importer(run, drawing, {.importQA = true, .forceClose = size % 2 == 0});
    try {
        formats::JobTable table(text);
        formats::ResolveSupersededRecords(table);
        Check(drawing, importer.ImportRecords(table, "J.JOB", *ui.ShowForm("")), size);
    } catch (const platform::ReadError& error) {
        Expect(!error.Place().empty());
    }
    return 0;
}

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a set of files that can be imported, or give an error. The imported drawing opens, and its
// export can be imported again with the same number of features. An input is the lengths of .SHX, .DBF and
// .CPG as 32-bit little-endian numbers, then these files, then .SHP.
#include "export/shapefile/frmSHP.h"
#include "import/shapefile/frmFromSHP.h"
#include "platform/Errors.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

using namespace vexlator;

namespace {

using Bytes = std::span<const std::uint8_t>;

Bytes Take(Bytes& rest, std::size_t size) {
    Bytes taken = rest.first(std::min(size, rest.size()));
    rest = rest.subspan(taken.size());
    return taken;
}

std::uint32_t TakeNumber(Bytes& rest) {
    std::uint32_t number = 0;
    Bytes bytes = Take(rest, sizeof number);
    if (!bytes.empty()) std::memcpy(&number, bytes.data(), bytes.size());
    return number;
}

void Write(const test::TempFolder& folder, const char* name, Bytes bytes) {
    folder.Write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

/// Makes the files of an import from the bytes of an input.
void WriteFiles(const test::TempFolder& folder, Bytes rest) {
    std::uint32_t shx = TakeNumber(rest), dbf = TakeNumber(rest), cpg = TakeNumber(rest);
    Write(folder, "in.SHX", Take(rest, shx));
    Write(folder, "in.DBF", Take(rest, dbf));
    Write(folder, "in.CPG", Take(rest, cpg));
    Write(folder, "in.SHP", rest);
}

/// Messages are not kept, because there may be one per record.
class SilentUi : public test::TestUi {
    void ShowMessage(std::string_view) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TempFolder folder;
    WriteFiles(folder, {data, size});
    SilentUi userInterface;
    config::Installation installation;
    config::Run run(installation, userInterface);
    installation.Settings().ATPDirectory = folder.Path();
    try {
        importer::frmFromSHP(run).Start(folder / "in.SHP", folder.Path(), "");
    } catch (const platform::ReadError&) {
        return 0;
    }
    drawing::Drawing drawing;
    drawing.open(folder / "in.VDF");
    exporter::frmSHP(run).Start(folder / "in.VDF", folder.Path());
    std::size_t entities = drawing.entityCount();
    if (entities == 0) return 0;
    config::Outcome again = importer::frmFromSHP(run).Start(folder / "IN.SHP", folder.Path(), "");
    if (again.features != entities) std::abort();
    std::filesystem::remove(folder / "IN.ATP");
    return 0;
}

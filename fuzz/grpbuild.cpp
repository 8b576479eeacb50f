// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any drawing with any settings becomes a valid package. The bytes of an input are the numbers from which
// drawing, style and settings are made. The last bytes are the text of the attribute list.
#include "background/builder/frmGRP.h"
#include "background/package/PackageProof.h"
#include "background/package/PackageReader.h"
#include "background_builder/RandomMap.h"
#include "config/Run.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

using namespace vexlator;

namespace {

/// The remaining numbers; then 0.
class Numbers {
public:
    Numbers(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}
    unsigned Next(unsigned limit) {
        std::uint16_t number = 0;
        std::size_t size = std::min(rest_.size(), limit > 256 ? sizeof number : 1);
        std::memcpy(&number, rest_.data(), size);
        rest_.remove_prefix(size);
        return number % limit;
    }
    double NextDouble() {
        double number = 0;
        if (rest_.size() < sizeof number) return number;
        std::memcpy(&number, rest_.data(), sizeof number);
        rest_.remove_prefix(sizeof number);
        return number;
    }
    std::string_view Rest() const { return rest_; }

private:
    std::string_view rest_;
};

/// Coordinates, sizes and angles outside of sensible drawings.
void MakeOdd(drawing::Drawing& drawing, Numbers& numbers) {
    drawing.forEach([&](drawing::Entity entity) {
        if (numbers.Next(4) != 1) return;
        drawing::Shape shape = entity.shape();
        for (double* number : {&shape.size, &shape.rotation, &shape.scaleX, &shape.startAngle})
            *number = numbers.NextDouble();
        entity.setShape(shape);
        if (entity.vertexCount() > 0) entity.setVertex(0, {numbers.NextDouble(), numbers.NextDouble()});
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TempFolder folder;
    Numbers numbers(data, size);
    test::RandomMap map([&](unsigned limit) { return numbers.Next(limit); });
    drawing::Drawing drawing;
    map.Fill(drawing, folder, numbers.Next(40));
    MakeOdd(drawing, numbers);
    drawing.saveAs(folder / "area.VDF");
    background::SaveBackgroundStyle(folder / "style.BSF", map.Style(), false);

    test::TestUi ui;
    config::Installation installation;
    config::Run run(installation, ui);
    std::string flags = map.OneIn(2) ? "DONTEXPLODE=1\r\n" : "";
    if (map.OneIn(2)) flags += "GENFULLPOLYS=1\r\n";
    if (map.OneIn(4)) flags += "MEMORYMB=0\r\n";
    std::string style = map.OneIn(3) ? "" : folder / "style.BSF";
    installation.Settings().IniFilePath =
        folder.Write("gv.ini", "[GRP]\r\n" + flags + "AttributeList=" + std::string(numbers.Rest()));
    background::frmGRP(run).Start(folder / "area.VDF", folder / "map", style);
    ProvePackage(background::PackageReader(folder / "map/map.GRP"));
    return 0;
}

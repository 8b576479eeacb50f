// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// The first byte says whether to accept more kinds of objects. A line "~" separates the .MIF from the .MID.
#include "import/mif/MifToDrawing.h"
#include "platform/CodePages.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>

using namespace vexlator;

namespace {

class NoOne : public ui::UserInterface {
public:
    void ShowMessage(std::string_view text) override {
        if (!platform::IsUtf8(text)) std::abort();
    }
    bool AskYesNo(std::string_view) override { return false; }
    void Report(std::string_view) override {}
    std::unique_ptr<ui::FormView> ShowForm(std::string_view) override { return nullptr; }
    void Settle(double) override {}
    void Beep() override {}
};

void Check(drawing::Entity entity, std::size_t columns) {
    if (entity.xproperties().count() > columns || !platform::IsUtf8(entity.text())) std::abort();
    for (const util::PlanePoint& point : entity.planVertices())
        if (std::isnan(point.x) || std::isnan(point.y)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);
    std::size_t parting = text.find("~\n");
    std::optional<std::string_view> mid;
    if (parting != std::string_view::npos) mid = text.substr(parting + 2);

    NoOne person;
    drawing::Drawing drawing;
    formats::MifLines lines(text.substr(0, parting), "");
    std::optional<formats::MifHeader> header;
    try {
        header = formats::ReadMifHeader(lines);
        if (!header) return 0;
        importer::MifToDrawing objects({drawing, person, "default", (data[0] & 1) != 0}, *header, lines, mid);
        while (objects.ReadObject()) {
        }
        objects.ShowRemainingRows();
    } catch (const platform::ReadError&) {
    }
    if (!header) return 0;
    drawing.forEach([&](drawing::Entity entity) { Check(entity, header->columns.size()); });
    return 0;
}

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dxf/SymbolDrawings.h"

#include "drawing/Vdf.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <algorithm>

namespace vexlator::exporter {

namespace {

constexpr int deepest = 16;  ///< more than the device shows

}  // namespace

SymbolDrawings::SymbolDrawings(config::Run& run, const drawing::Drawing& owner,
                               const std::set<std::string>& named)
    : run_(run) {
    for (const drawing::Block& block : owner.blocks()) Add(block, 0);
    for (const std::string& name : named)
        if (!Has(name)) AddFromFolder(name);
}

bool SymbolDrawings::Has(std::string_view name) const {
    return std::ranges::any_of(symbols_,
                               [&](const Symbol& symbol) { return platform::SameNoCase(symbol.name, name); });
}

void SymbolDrawings::Add(const drawing::Block& block, int depth) {
    if (block.name.empty() || Has(block.name)) return;
    if (block.content.empty()) return AddFromFolder(block.name);
    Symbol& symbol = symbols_.emplace_back();
    symbol.name = block.name;
    try {
        drawing::ReadVdf(block, symbol.content);
    } catch (const platform::ReadError& error) {
        run_.Ui().ShowMessage("symbol " + block.name + ": " + error.what());
        symbol.content.clear();
    }
    AddNested(symbol, depth);
}

void SymbolDrawings::AddFromFolder(const std::string& name) {
    if (name.empty()) return;
    Symbol& symbol = symbols_.emplace_back();
    symbol.name = name;
    std::string path = util::JoinPath(run_.Settings().SymbolsDirectory, util::SafeFileName(name) + ".VDF");
    if (util::FileSize(path) == 0) return;
    try {
        symbol.content.open(path);
    } catch (const platform::ReadError& error) {
        run_.Ui().ShowMessage(error.what());
        symbol.content.clear();
    }
    AddNested(symbol, 0);
}

void SymbolDrawings::AddNested(Symbol& symbol, int depth) {
    if (depth >= deepest) return;
    for (const drawing::Block& nested : symbol.content.blocks()) Add(nested, depth + 1);
}

}  // namespace vexlator::exporter

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"

#include <deque>
#include <set>
#include <string>
#include <string_view>

namespace vexlator::exporter {

/// The symbols of a drawing, each once: those that it holds, those within them, and those of the symbols
/// folder that it names only.
class SymbolDrawings {
public:
    struct Symbol {
        std::string name;
        drawing::Drawing content;  ///< empty if nothing is known but the name
    };

    SymbolDrawings(config::Run& run, const drawing::Drawing& owner, const std::set<std::string>& named);

    const std::deque<Symbol>& All() const { return symbols_; }

private:
    void Add(const drawing::Block& block, int depth);
    void AddFromFolder(const std::string& name);
    bool Has(std::string_view name) const;
    void AddNested(Symbol& symbol, int depth);

    config::Run& run_;
    std::deque<Symbol> symbols_;
};

}  // namespace vexlator::exporter

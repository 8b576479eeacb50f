// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/SymbolBlock.h"

#include "platform/Files.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

namespace vexlator::drawing {

namespace {

/// The symbol's file or the default symbol's; "" if both are missing or empty.
std::string SymbolFile(const config::Run& run, std::string_view name) {
    const std::string& folder = run.Settings().SymbolsDirectory;
    std::string path = util::JoinPath(folder, util::SafeFileName(name) + ".VDF");
    if (util::FileSize(path) > 0) return path;
    path = util::JoinPath(folder, "DEFAULT.VDF");
    return util::FileSize(path) > 0 ? path : "";
}

/// @throws platform::ReadError
std::string ReadSymbol(std::string_view path) {
    platform::MappedFile file(path);
    std::size_t size = file.Text().size();
    if (size > largestSymbol)
        throw platform::ReadError(file.Name(), "",
                                  "is too large for a symbol: " + util::GroupedCount(size) +
                                      " bytes, at most " + util::GroupedCount(largestSymbol));
    return std::string(file.Text());
}

std::string LoadSymbol(config::Run& run, std::string_view path, Drawing& drawing) {
    std::string name = util::BaseNameOf(path);
    if (drawing.findBlock(name)) return name;
    try {
        drawing.addBlock({name, ReadSymbol(path)});
        return name;
    } catch (const platform::ReadError& error) {
        run.Ui().ShowMessage(error.what());
        return "";
    }
}

}  // namespace

std::string EnsureSymbolBlock(config::Run& run, std::string_view symbolName, Drawing& drawing) {
    std::string_view name = symbolName.empty() ? "default" : symbolName;
    if (drawing.findBlock(name)) return std::string(name);
    std::string path = SymbolFile(run, name);
    if (!path.empty()) return LoadSymbol(run, path, drawing);
    run.Ui().ShowMessage("No Default Sym");
    return "";
}

}  // namespace vexlator::drawing

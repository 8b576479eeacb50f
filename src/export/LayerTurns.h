// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "export/LayerLoop.h"
#include "platform/Files.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// Layers one after the other in one file, although the drawing mixes their entities. The first layer that is
/// not complete goes straight to the file; those after it wait in a file aside until it is their turn.
class LayerTurns {
public:
    /// `path` is that of `file`: the file aside lies beside it for as long as this object lives.
    LayerTurns(platform::OutputFile& file, std::string_view path, const std::vector<ExportLayer>& layers);

    /// Where the next part of a layer is to be written. @throws platform::WriteError
    platform::OutputFile& Begin(std::size_t layer);
    /// To be called when that part has been written. @throws platform::WriteError
    void End(const LayerPart& part);

private:
    struct Stretch {
        std::uint64_t begin, end;
    };
    struct Layer {
        std::uint64_t entitiesLeft;
        std::vector<Stretch> aside = {};
    };

    platform::OutputFile& file_;
    std::string path_;
    std::vector<Layer> layers_;
    std::size_t turn_ = 0;     ///< the first layer that is not complete
    std::size_t current_ = 0;  ///< the layer that is being written
    std::optional<platform::OutputFile> aside_;
};

}  // namespace vexlator::exporter

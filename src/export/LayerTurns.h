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

/// Writes layers one after the other into one file, although the drawing mixes their entities. The first
/// incomplete layer goes straight to the file. Later layers wait in a separate file until it is their turn.
class LayerTurns {
public:
    /// `path` is that of `file`. The separate file is beside it for the lifetime of this object.
    LayerTurns(platform::OutputFile& file, std::string_view path, const std::vector<ExportLayer>& layers);

    /// The target of the next part of a layer. @throws platform::WriteError
    platform::OutputFile& Begin(std::size_t layer);
    /// Call it after that part has been written. @throws platform::WriteError
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
    std::size_t turn_ = 0;     ///< the first incomplete layer
    std::size_t current_ = 0;  ///< the layer of the current part
    std::optional<platform::OutputFile> aside_;
};

}  // namespace vexlator::exporter

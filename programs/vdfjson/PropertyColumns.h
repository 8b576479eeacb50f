// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::vdfjson {

/// The property names of the plain features of each layer, each once, in the order of first occurrence.
/// Exports use attributes by position, so every feature of a layer must have all of them. They are complete
/// after all features have been read. If features differ, these are read again.
class PropertyColumns {
public:
    class Layer {
    public:
        /// Takes the next feature: gives each of its properties a position in Names(), which grows for a new
        /// name. Properties with the same name have separate positions.
        const std::vector<std::size_t>& PlacesOf(const std::vector<std::string_view>& names);
        const std::vector<std::string>& Names() const { return names_; }

    private:
        friend class PropertyColumns;
        std::size_t PlaceOf(std::string_view name, std::size_t expected);

        std::vector<std::string> names_;
        std::unordered_map<std::string, std::vector<std::size_t>> byName_;
        std::vector<std::uint64_t> takenBy_;  ///< by position: the last feature that has it, counted from 1
        std::vector<std::size_t> places_;
        std::uint64_t features_ = 0, values_ = 0;
        bool isUniform_ = true;    ///< all features so far have the same names in the same order
        bool hasRepeats_ = false;  ///< a feature has two properties with the same name
    };

    /// By the layer's name in the drawing's spelling.
    Layer& Of(const std::string& layer) { return layers_[layer]; }
    /// Whether the features of each layer have the same names in the same order.
    bool AreUniform() const;
    /// Call it when all features have been read once: the names are complete.
    /// @throws platform::ReadError if the missing values of features would be many times larger than the
    /// document
    void Settle(std::uint64_t documentBytes);
    bool AreSettled() const { return areSettled_; }

private:
    bool areSettled_ = false;
    std::unordered_map<std::string, Layer> layers_;
};

}  // namespace vexlator::vdfjson

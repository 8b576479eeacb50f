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

/// The names of the properties that the plain features of each layer have, each once, in the order in which
/// they come up. Exports go by the positions of attributes, so that every feature of a layer has to have all
/// of them. They are known when all features have been read; where features differ, these are read once more.
class PropertyColumns {
public:
    class Layer {
    public:
        /// Takes the next feature: gives each of its properties a place among Names(), which grows when one
        /// is new. Of properties that share their name, each has a place of its own.
        const std::vector<std::size_t>& PlacesOf(const std::vector<std::string_view>& names);
        const std::vector<std::string>& Names() const { return names_; }

    private:
        friend class PropertyColumns;
        std::size_t PlaceOf(std::string_view name, std::size_t expected);

        std::vector<std::string> names_;
        std::unordered_map<std::string, std::vector<std::size_t>> byName_;
        std::vector<std::uint64_t> takenBy_;  ///< by place: the last feature that has it, counted from 1
        std::vector<std::size_t> places_;
        std::uint64_t features_ = 0, values_ = 0;
        bool isUniform_ = true;    ///< all features so far have the same names in the same order
        bool hasRepeats_ = false;  ///< a feature has two properties of one name
    };

    /// By the layer's name as the drawing spells it.
    Layer& Of(const std::string& layer) { return layers_[layer]; }
    /// Whether the features of each layer have the same names in the same order.
    bool AreUniform() const;
    /// All features have been read once, and their names are complete.
    /// @throws platform::ReadError when the values that features lack would outweigh the document many times
    void Settle(std::uint64_t documentBytes);
    bool AreSettled() const { return areSettled_; }

private:
    bool areSettled_ = false;
    std::unordered_map<std::string, Layer> layers_;
};

}  // namespace vexlator::vdfjson

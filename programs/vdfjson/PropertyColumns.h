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
/// they come up. Exports go by the positions of attributes, so that every feature of a layer gets all of
/// them. They are known when all features have been read once; AreComplete() tells whether a second time is
/// needed.
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
        bool isComplete_ = true;   ///< no name came up behind the first feature
        bool hasRepeats_ = false;  ///< a feature has two properties of one name
    };

    /// By the layer's name as the drawing spells it.
    Layer& Of(const std::string& layer) { return layers_[layer]; }
    /// Whether every feature so far has had all names of its layer.
    bool AreComplete() const;
    /// @throws platform::ReadError when the values that features lack would outweigh the document many times
    void CheckRoom(std::uint64_t documentBytes) const;

private:
    std::unordered_map<std::string, Layer> layers_;
};

}  // namespace vexlator::vdfjson

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/LayerFile.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// The layers whose attributes go into records of fixed width, as in [GRP] AttributeList of gv.ini:
///
///     {ROADS,64,NAME,CLASS}{PARCELS,64,UPRN}
///
/// A layer, the width of its records in bytes (0 to 65,535, with their CR LF), names of attributes. Text
/// outside of braces, and a group without its closing brace, are ignored.
class AttributeList {
public:
    struct Group {
        std::string layer;
        ListedLayer record;
        std::vector<std::string> fields;
    };

    explicit AttributeList(std::string_view text = {});
    void Add(std::string_view layer, int width, std::span<const std::string> fields);
    /// The first group of the layer, in any letter case; nullptr if it has none.
    const Group* Find(std::string_view layer) const;

private:
    void AddGroup(std::string_view text);
    std::vector<Group> groups_;
};

}  // namespace vexlator::background

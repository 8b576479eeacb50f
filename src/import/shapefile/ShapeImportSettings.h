// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

#include <string>

namespace vexlator::importer {

struct ShapeImportSettings {
    bool degrees = false, feet = false, followPrj = false;
    std::string customer;  ///< customer whose import rules apply
};
ShapeImportSettings ReadShapeImportSettings(const config::Run& run);
config::KeyList ShapeImportKeys();

}  // namespace vexlator::importer

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vexlator::gis {

/// Whether the elements of a design file of version 7 lead to its end mark. A file without one may have been
/// cut.
bool HasDesignEnd(std::string_view bytes);

}  // namespace vexlator::gis

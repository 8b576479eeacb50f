// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Registry values, as folders and files: the value V of the key A\B is the first line of the file user/A/B/V
/// or machine/A/B/V below the registry folder (environment variable VEXLATOR_REGISTRY, else vexlator/registry
/// in the user's data folder). Letter case is ignored.
namespace vexlator::platform {

enum class Hive { CurrentUser, Machine };

/// The value's text; "" if there is none.
std::string RegistryValue(Hive hive, std::string_view key, std::string_view value);

}  // namespace vexlator::platform

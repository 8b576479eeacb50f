// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/FreeMemory.h"

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string_view>

namespace vexlator::platform {

std::uint64_t FreeMemory() {
    constexpr std::uint64_t kilobyte = 1024;
    constexpr std::string_view key = "MemAvailable:";
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen("/proc/meminfo", "re"), std::fclose);
    char line[256];
    while (file && std::fgets(line, sizeof(line), file.get()))
        if (std::string_view(line).starts_with(key))
            return std::strtoull(line + key.size(), nullptr, 10) * kilobyte;
    return std::numeric_limits<std::uint64_t>::max();
}

}  // namespace vexlator::platform

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Errors.h"
#include "support/TempFolder.h"
#include "workflow/ZipInput.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string_view>

/// The bytes are an archive. Unpacked files are inside the target folder, and a refused archive leaves
/// nothing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    namespace fs = std::filesystem;
    constexpr std::uint64_t mostBytes = 1 << 20;
    static const vexlator::test::TempFolder folder;
    std::string archive = folder.Write("a.zip", std::string_view(reinterpret_cast<const char*>(data), size));
    try {
        vexlator::workflow::ZipInput input(archive);
        input.Check(mostBytes);
        input.UnpackTo(folder / "a");
    } catch (const vexlator::platform::ReadError&) {
        if (fs::exists(folder / "a")) std::abort();
    } catch (const vexlator::platform::WriteError&) {
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.Path()))
        if (entry.path() != folder / "a" && entry.path() != archive) std::abort();
    fs::remove_all(folder / "a");
    return 0;
}

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/MadeFiles.h"

#include "platform/Files.h"
#include "platform/NativeFiles.h"
#include "platform/Paths.h"

#include <unistd.h>

namespace vexlator::platform {

void MadeFiles::Commit(OutputFile& file) {
    file.Finish();
    FileMark mark = MarkOf(file.TemporaryName());
    file.CommitNew();
    made_.emplace_back(file.Name(), mark);
}

void MadeFiles::Folder(std::string_view path) {
    if (FolderExists(path)) return;
    std::string native = PathToWrite(path);
    if (std::string above = FolderPart(native); above != native) Folder(above);
    RequireFolder(native);
    made_.emplace_back(native, MarkOf(native));
}

void MadeFiles::Remove() {
    for (auto made = made_.rbegin(); made != made_.rend(); ++made) {
        const auto& [native, mark] = *made;
        if (MarkOf(native) == mark && ::unlink(native.c_str()) != 0) ::rmdir(native.c_str());
    }
    made_.clear();
}

}  // namespace vexlator::platform

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "platform/MadeFiles.h"

#include <string>
#include <string_view>

namespace vexlator::workflow {

/// Packs job folders into ZIP archives and unpacks them.
class frmZip2 {
public:
    explicit frmZip2(config::Run& run) : run_(run) {}

    /// Packs the files that match `pattern` into an archive in their folder, with the folder's name:
    /// Survey\Survey.ZIP. The pattern is a folder followed by "\*.*" or another pattern of file names.
    /// Sub-folders are packed too if the pattern matches every name. Links, unfinished files and the archive
    /// of an earlier run are not packed. The archive appears whole or not at all; an older one stays until
    /// then.
    /// @throws platform::ReadError a file that cannot be read or a folder that cannot be listed;
    /// platform::WriteError the archive.
    void ZipJobFolder(std::string_view pattern);

    /// Unpacks an archive into the folder with the archive's path without its extension. Archives are not
    /// trusted. An archive is refused before anything is written if it would write outside that folder,
    /// contains links or names that differ only in letter case, unpacks to more than [ZIP] MaxMB megabytes
    /// (default 2,048), or has an entry that unpacks to more than 1,000 times its size. Existing files stay:
    /// see ZipInput::UnpackTo().
    /// @returns the files and folders that did not exist before
    /// @throws platform::ReadError the archive, the entry and the reason; platform::WriteError
    platform::MadeFiles UnZipJobFolder(std::string_view archive);

private:
    config::Run& run_;
};

config::KeyList PackageKeys();

}  // namespace vexlator::workflow

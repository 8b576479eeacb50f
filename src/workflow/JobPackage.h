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

    /// Packs the files that match `pattern`, a folder followed by "\*.*" or another pattern of file names,
    /// into the archive in that folder that is named after it: Survey\Survey.ZIP. Sub-folders are packed too
    /// when the pattern matches every name; links and unfinished files never are, nor an archive of an
    /// earlier run. The archive appears whole or not at all; an older one stays until then.
    /// @throws platform::ReadError a file that cannot be read or a folder that cannot be listed;
    /// platform::WriteError the archive.
    void ZipJobFolder(std::string_view pattern);

    /// Unpacks an archive into the folder that has the archive's path without its extension. Archives come
    /// from anywhere: one that would write outside that folder, holds links or names that differ only by
    /// letter case, unpacks to more than [ZIP] MaxMB megabytes (2,048 when not set) or an entry to more than
    /// 1,000 times its size, is refused before anything is written.
    /// Files that are there already stay: see ZipInput::UnpackTo().
    /// @returns the files and folders that were not there before
    /// @throws platform::ReadError the archive, the entry and the reason; platform::WriteError
    platform::MadeFiles UnZipJobFolder(std::string_view archive);

private:
    config::Run& run_;
};

config::KeyList PackageKeys();

}  // namespace vexlator::workflow

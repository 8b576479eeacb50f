// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Session.h"

#include <string_view>

namespace vexlator::workflow {

/// Packs job folders into ZIP archives.
class frmZip2 {
public:
    explicit frmZip2(config::Session& session) : session_(session) {}

    /// Packs the files that match `pattern`, a folder followed by "\*.*" or another pattern of file names,
    /// into the archive in that folder that is named after it: Survey\Survey.ZIP. Sub-folders are packed too
    /// when the pattern matches every name; links and unfinished files never are, nor an archive of an
    /// earlier run. The archive appears whole or not at all; an older one stays until then.
    /// @throws platform::ReadError a file that cannot be read; platform::WriteError the archive.
    void ZipJobFolder(std::string_view pattern);

private:
    config::Session& session_;
};

}  // namespace vexlator::workflow

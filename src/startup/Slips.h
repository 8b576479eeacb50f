// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"
#include "startup/ExitStatus.h"
#include "startup/Sources.h"

#include <optional>
#include <string>
#include <string_view>

/// Commands that are nearly right. What lies on the disk decides: a command that names a file which is there,
/// in a format that is known, is never taken for another.
namespace vexlator::startup {

/// Why a command cannot be run as it stands, in words that let the person put it right.
struct Slip {
    ExitStatus status = ExitStatus::NothingToDo;
    std::string advice;
};

/// Nothing when the importer can try: the format is known, and nothing else can be meant. `text` is the
/// command as it was given, `sources` what it means.
std::optional<Slip> FindImportSlip(const Conversions& conversions, std::string_view text,
                                   const SourceList& sources);

/// Nothing when the exporter can try, and when nothing tells what an unknown format may stand for.
std::optional<Slip> FindExportSlip(const Conversions& conversions, std::string_view text);

}  // namespace vexlator::startup

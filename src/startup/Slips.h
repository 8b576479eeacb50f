// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "startup/Conversions.h"
#include "startup/ExitStatus.h"
#include "startup/Sources.h"

#include <optional>
#include <string>
#include <string_view>

/// Commands with slips. The files on the disk decide: a command that names an existing file in a known format
/// is always taken literally.
namespace vexlator::startup {

/// Why a command cannot run as given, in words that let the user correct it.
struct Slip {
    ExitStatus status = ExitStatus::NothingToDo;
    std::string advice;
};

/// Nothing if the importer can try: the format is known, and nothing else can be meant. `text` is the command
/// as given, `sources` its meaning.
std::optional<Slip> FindImportSlip(const Conversions& conversions, std::string_view text,
                                   const SourceList& sources);

/// Nothing if the exporter can try, and if nothing shows what an unknown format may mean.
std::optional<Slip> FindExportSlip(const Conversions& conversions, std::string_view text);

}  // namespace vexlator::startup

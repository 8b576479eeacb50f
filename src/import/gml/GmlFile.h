// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "formats/gml/GmlFeature.h"
#include "formats/gml/GmlReader.h"
#include "platform/Files.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vexlator::importer {

/// The features of a file, counted by what becomes of them.
struct GmlCounts {
    std::uint64_t features = 0;  ///< with a place
    std::uint64_t withoutPoints = 0, withArcs = 0, damaged = 0;
    std::string firstDamage;  ///< its line and reason

    void Count(const formats::GmlFeature& feature);
    /// Tells what was left out, or drawn otherwise.
    void Report(const std::string& file, ui::UserInterface& show) const;
};

/// A GML file, compressed ones too, that is read as gv.ini says.
class GmlFile {
public:
    /// @throws platform::ReadError for damaged compressed data
    GmlFile(config::Run& run, platform::MappedFile& file);

    bool HasLineLayout() const { return gml_.lineLayout; }
    /// How many bytes of the file have been read.
    std::size_t Consumed() const { return gml_.reader->Consumed(); }
    /// Calls `take` with each feature. Tells at the end when the coordinate system that the file names is not
    /// the drawings'. @throws platform::ReadError
    void ReadFeatures(const formats::GmlReader::Take& take);

private:
    void CompareSystem() const;

    config::Run& run_;
    platform::MappedFile& file_;
    formats::OpenedGml gml_;
};

}  // namespace vexlator::importer

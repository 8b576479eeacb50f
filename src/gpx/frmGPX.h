// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "coords/frmLatLng.h"
#include "gpx/GpxWriter.h"
#include "util/Files.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::gpx {

/// GPS trails (.GXY) become GPX files beside them. [GPX] Strict and WebBase of gv.ini say how.
class frmGPX {
public:
    explicit frmGPX(config::Run& run);

    /// Converts every trail of the folder that has no GPX file yet, or an empty one. A trail that cannot be
    /// read or written is reported; false when there was one.
    bool ProcessAnyTrailData(std::string_view folder);

    /// Writes the GPX file of one trail; an empty trail gives none. Positions that cannot be converted are
    /// counted for the person and have empty texts. A strict file is that of a trail without them, without
    /// those outside the ranges of GPX, which count too, and without blank lines; with no position left it is
    /// not written.
    /// @throws platform::ReadError, platform::WriteError
    void ConvertTrailFile(const std::string& path);

private:
    /// Up to this many positions are converted at once, so that memory does not grow with the trail.
    static constexpr std::size_t batchSize = 65536;

    bool ConvertOrReport(const std::string& path);
    /// Fills `batch` with the next positions.
    void ReadBatch(util::LineReader& lines, std::vector<TrailPosition>& batch) const;
    bool IsPosition(std::string_view line) const;
    TrailPosition Parse(std::string_view line) const;
    bool HasPlace(const GpxPosition& position) const;
    /// The last position that goes into the file; an empty one when none does.
    GpxPosition LastPosition(std::string_view text);
    GpxPosition Convert(const TrailPosition& position);
    /// Replaces `converted_` by the positions of a batch.
    void ConvertBatch(std::span<const TrailPosition> positions);
    void Report(const std::string& name, std::uint64_t withoutPlace, bool isEmpty);
    coords::frmLatLng& Converter();

    config::Run& run_;
    GpxSettings settings_;
    std::unique_ptr<ui::FormView> view_;
    std::unique_ptr<coords::frmLatLng>
        converter_;  ///< made for the first trail: it may have to tell something
    std::vector<GpxPosition> converted_;
};

}  // namespace vexlator::gpx

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

/// Converts GPS trails (.GXY) to GPX files beside them. Settings: [GPX] Strict and WebBase of gv.ini.
class frmGPX {
public:
    explicit frmGPX(config::Run& run);

    /// Converts every trail of the folder without a GPX file, or with an empty one. A trail that cannot be
    /// read or written is reported; false if there was one.
    bool ProcessAnyTrailData(std::string_view folder);

    /// Writes the GPX file of one trail; none for an empty trail. Positions that cannot be converted are
    /// counted for the user and have empty texts. A strict file omits these positions, those outside the
    /// ranges of GPX, which are counted too, and blank lines. It is not written if no position is left.
    /// @throws platform::ReadError, platform::WriteError
    void ConvertTrailFile(const std::string& path);

private:
    /// Number of positions converted at once, so that memory does not grow with the trail.
    static constexpr std::size_t batchSize = 65536;

    bool ConvertOrReport(const std::string& path);
    /// Fills `batch` with the next positions.
    void ReadBatch(util::LineReader& lines, std::vector<TrailPosition>& batch) const;
    bool IsPosition(std::string_view line) const;
    TrailPosition Parse(std::string_view line) const;
    bool HasPlace(const GpxPosition& position) const;
    /// The last position of the file; an empty one if there is none.
    GpxPosition LastPosition(std::string_view text);
    GpxPosition Convert(const TrailPosition& position);
    /// Fills `converted_` with the positions of a batch.
    void ConvertBatch(std::span<const TrailPosition> positions);
    void Report(const std::string& name, std::uint64_t withoutPlace, bool isEmpty);
    coords::frmLatLng& Converter();

    config::Run& run_;
    GpxSettings settings_;
    std::unique_ptr<ui::FormView> view_;
    std::unique_ptr<coords::frmLatLng>
        converter_;  ///< made for the first trail, because it may show messages
    std::vector<GpxPosition> converted_;
};

}  // namespace vexlator::gpx

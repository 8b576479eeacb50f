// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gpx/frmGPX.h"

#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <algorithm>

namespace vexlator::gpx {

namespace {

constexpr int degreeDecimals = 6;

GpxSettings ReadSettings(const config::Session& session) {
    GpxSettings settings;
    settings.strict = session.ReadIniFlag("GPX", "Strict");
    std::string webBase = session.ReadIni("GPX", "WebBase");
    if (!webBase.empty()) settings.webBase = webBase;
    return settings;
}

/// Fills `batch` with the next positions.
void ReadBatch(util::LineReader& lines, std::size_t size, std::vector<TrailPosition>& batch) {
    batch.clear();
    while (!lines.AtEnd() && batch.size() < size) batch.push_back(ParseTrailLine(lines.ReadTextLine()));
}

}  // namespace

frmGPX::frmGPX(config::Session& session) : session_(session), settings_(ReadSettings(session)) {}

bool frmGPX::ProcessAnyTrailData(std::string_view folder) {
    view_ = session_.Ui().ShowForm("frmGPX");
    bool complete = true;
    for (const std::string& name : platform::ListFiles(folder.empty() ? "." : folder)) {
        if (!util::MatchesPattern(name, "*.GXY")) continue;
        std::string path = folder.empty() ? name : util::JoinPath(folder, name);
        if (util::FileSize(util::ChangeExtension(path, "GPX")) == 0) complete &= ConvertOrReport(path);
    }
    view_.reset();
    return complete;
}

bool frmGPX::ConvertOrReport(const std::string& path) {
    try {
        ConvertTrailFile(path);
        return true;
    } catch (const platform::ReadError& error) {
        session_.Ui().ShowMessage(error.what());
    } catch (const platform::WriteError& error) {
        session_.Ui().ShowMessage(error.what());
    }
    return false;
}

void frmGPX::ConvertTrailFile(const std::string& path) {
    if (view_) view_->SetLabel("Processing:" + platform::NativePath(path));
    platform::MappedFile trail(path);
    if (trail.Text().empty()) return;
    platform::OutputFile file(util::ChangeExtension(path, "GPX"));
    GpxWriter writer(file, settings_);
    GpxPosition end = Convert(ParseTrailLine(LastLine(trail.Text())));
    std::uint64_t written = 0, unconverted = 0;
    std::vector<TrailPosition> batch;
    for (util::LineReader lines(trail.Text()); !lines.AtEnd();) {
        bool isFirst = lines.Position() == 0;
        ReadBatch(lines, batchSize, batch);
        ConvertBatch(batch);
        if (isFirst) writer.Begin(converted_.front(), end);
        for (const GpxPosition& position : converted_) {
            ++(position.IsConverted() ? written : unconverted);
            writer.TrackPoint(position);
        }
        trail.DoneBefore(lines.Position());
    }
    writer.End(end);
    ReportUnconverted(trail.Name(), unconverted);
    if (written > 0 || !settings_.strict) file.Commit();
}

coords::frmLatLng& frmGPX::Converter() {
    if (!converter_) converter_ = std::make_unique<coords::frmLatLng>(session_);
    return *converter_;
}

GpxPosition frmGPX::Convert(const TrailPosition& position) {
    auto texts = Converter().GridToLatLng(position.grid.x, position.grid.y, position.height, false);
    if (!texts) return {position.time, "", "", ""};
    return {position.time, texts->first, texts->second, texts->height};
}

void frmGPX::ConvertBatch(std::span<const TrailPosition> positions) {
    std::vector<util::PlanePoint> points;
    std::vector<double> heights;
    for (const TrailPosition& position : positions) {
        points.push_back(position.grid);
        heights.push_back(position.height);
    }
    converted_.clear();
    if (Converter().GridToLatLng(points, heights) > 0) {
        // Some fail, and only one by one it is known which.
        for (const TrailPosition& position : positions) converted_.push_back(Convert(position));
        return;
    }
    for (std::size_t i = 0; i < positions.size(); ++i)
        converted_.push_back({positions[i].time, util::FormatFixed(points[i].y, degreeDecimals),
                              util::FormatFixed(points[i].x, degreeDecimals),
                              Converter().HeightText(heights[i])});
}

void frmGPX::ReportUnconverted(const std::string& name, std::uint64_t count) {
    if (count == 0) return;
    session_.Ui().Report(name + ": " + util::GroupedCount(count) +
                         " positions could not be converted to latitude/longitude and " +
                         (settings_.strict ? "are left out" : "have none"));
}

}  // namespace vexlator::gpx

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gpx/frmGPX.h"

#include "platform/Paths.h"
#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <algorithm>

namespace vexlator::gpx {

namespace {

constexpr int degreeDecimals = 6;

}  // namespace

frmGPX::frmGPX(config::Run& run) : run_(run), settings_(ReadGpxSettings(run)) {}

bool frmGPX::ProcessAnyTrailData(std::string_view folder) {
    view_ = run_.Ui().ShowForm("frmGPX");
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
        run_.Ui().ShowMessage(error.what());
    } catch (const platform::WriteError& error) {
        run_.Ui().ShowMessage(error.what());
    }
    return false;
}

void frmGPX::ConvertTrailFile(const std::string& path) {
    if (view_) view_->SetLabel("Processing:" + platform::NativePath(path));
    platform::MappedFile trail(path);
    if (trail.Text().empty()) return;
    platform::OutputFile file(util::ChangeExtension(path, "GPX"));
    GpxWriter writer(file, settings_);
    const GpxPosition end = LastPosition(trail.Text());
    std::uint64_t written = 0, withoutPlace = 0;
    std::vector<TrailPosition> batch;
    for (util::LineReader lines(trail.Text()); !lines.AtEnd();) {
        ReadBatch(lines, batch);
        ConvertBatch(batch);
        for (const GpxPosition& position : converted_) {
            if (!HasPlace(position)) {
                ++withoutPlace;
                if (settings_.strict) continue;
            }
            if (written++ == 0) writer.Begin(position, end);
            writer.TrackPoint(position);
        }
        trail.DoneBefore(lines.Position());
    }
    Report(trail.Name(), withoutPlace, written == 0);
    if (written == 0) return;
    writer.End(end);
    file.Commit();
}

bool frmGPX::IsPosition(std::string_view line) const {
    return !settings_.strict || line.find_first_not_of(" \t") != std::string_view::npos;
}

TrailPosition frmGPX::Parse(std::string_view line) const {
    TrailPosition position = ParseTrailLine(line);
    position.isPlaced = !settings_.strict || HasCoordinates(line);
    return position;
}

bool frmGPX::HasPlace(const GpxPosition& position) const {
    return settings_.strict ? position.IsOnEarth() : position.IsConverted();
}

void frmGPX::ReadBatch(util::LineReader& lines, std::vector<TrailPosition>& batch) const {
    batch.clear();
    while (!lines.AtEnd() && batch.size() < batchSize) {
        std::string_view line = lines.ReadTextLine();
        if (IsPosition(line)) batch.push_back(Parse(line));
    }
}

GpxPosition frmGPX::LastPosition(std::string_view text) {
    while (!text.empty()) {
        std::string_view line = LastLine(text);
        text = text.substr(0, static_cast<std::size_t>(line.data() - text.data()));
        if (!IsPosition(line)) continue;
        GpxPosition position = Convert(Parse(line));
        if (!settings_.strict || HasPlace(position)) return position;
    }
    return {};
}

coords::frmLatLng& frmGPX::Converter() {
    if (!converter_) converter_ = std::make_unique<coords::frmLatLng>(run_);
    return *converter_;
}

GpxPosition frmGPX::Convert(const TrailPosition& position) {
    if (!position.isPlaced) return {position.time, "", "", ""};
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
    bool areAllPlaced = std::ranges::all_of(positions, &TrailPosition::isPlaced);
    if (Converter().GridToLatLng(points, heights) > 0 || !areAllPlaced) {
        // Some positions fail. Single conversions show which.
        for (const TrailPosition& position : positions) converted_.push_back(Convert(position));
        return;
    }
    for (std::size_t i = 0; i < positions.size(); ++i)
        converted_.push_back({positions[i].time, util::FormatFixed(points[i].y, degreeDecimals),
                              util::FormatFixed(points[i].x, degreeDecimals),
                              Converter().HeightText(heights[i])});
}

void frmGPX::Report(const std::string& name, std::uint64_t withoutPlace, bool isEmpty) {
    std::string place = settings_.strict ? " left out: no latitude and longitude within the ranges of GPX"
                                         : " without latitude and longitude: outside of the conversion";
    if (withoutPlace > 0) run_.Ui().Report(name + ": " + util::Counted(withoutPlace, "position") + place);
    if (isEmpty) run_.Ui().Report(name + ": no position to write, so no GPX file is made");
}

}  // namespace vexlator::gpx

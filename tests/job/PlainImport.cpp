// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "job/PlainImport.h"

#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Text.h"

namespace vexlator::test {

namespace {

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (char c : text) {
        if (c == separator)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

std::string Trimmed(const std::string& text) {
    return std::string(util::Trim(text));
}

std::string Part(const std::string& text, char separator, std::size_t index) {
    std::vector<std::string> parts = Split(text, separator);
    return index < parts.size() ? parts[index] : "";
}

std::string CodeOf(const std::string& id) {
    return id.substr(0, id.find('('));
}

}  // namespace

const std::string& PlainImport::Cell(std::size_t r, std::size_t column) const {
    static const std::string empty;
    return r < table_.size() && column < table_[r].size() ? table_[r][column] : empty;
}

bool PlainImport::Begins(std::size_t r, const std::string& text) const {
    return Cell(r, 0).starts_with(text);
}

void PlainImport::ImportJobFile(const std::string& text, const std::string& folder,
                                const std::string& baseName) {
    folder_ = folder;
    baseName_ = baseName;
    ReadJobTable(text);
    ResolveSupersededRecords();
    used_.clear();
    if (settings.importQA) drawing_.setActiveLayer("$QA");
    for (std::size_t r = 0; r < table_.size(); ++r) {
        if (IsPositionRecord(r)) {
            if (Cell(r, 1) == "P")
                ImportPointRecord(r);
            else
                ImportFeatureRecord(r);
        } else if (Cell(r, 0) == "CO" && Cell(r, 2) == "Close") {
            CloseFeature(Cell(r, 1));
        }
    }
    RemoveReferenceLayers();
}

void PlainImport::ReadJobTable(const std::string& text) {
    table_.clear();
    width_ = 0;
    std::vector<std::string> lines = Split(text, '\n');
    if (lines.back().empty()) lines.pop_back();
    for (const std::string& line : lines) {
        table_.push_back(Split(line, ','));
        width_ = std::max(width_, table_.back().size());
    }
    for (std::vector<std::string>& row : table_) row.resize(width_);
}

void PlainImport::ResolveSupersededRecords() {
    for (std::size_t r = 0; r < table_.size(); ++r) {
        if (!Begins(r, "*")) continue;
        std::string number = std::to_string(util::IntegerOf(Cell(r, 2)));
        std::size_t v = none;
        for (std::size_t i = r + 1; i < table_.size(); ++i)
            if (Begins(i, "$") && Cell(i, 2) == number) v = i;
        if (v == none) {
            table_[r][0] = "DEL";
            if (r > 0 && Cell(r - 1, 0) == " DB" && Cell(r, 1) == "P") table_[r - 1][0] = "DELDB";
            if (Begins(r + 1, "=")) table_[r + 1][0] = "DEL=";
            continue;
        }
        table_[r] = table_[v];
        if (Begins(r + 1, "=") && Begins(v + 1, "=")) table_[r + 1] = table_[v + 1];
        table_[v][0] = "MOVEDup";
    }
}

bool PlainImport::IsPositionRecord(std::size_t r) const {
    if (!Begins(r, "$")) return false;
    if (Cell(r, 0) != "$GIS") return true;
    return (Cell(r, 4) + Cell(r, 5)).find_first_not_of("0123456789-.") == std::string::npos;
}

PlainImport::Point PlainImport::GetRecordCoordinates(std::size_t r, std::string& quality) const {
    quality = Cell(r, 0) == "$GPS" ? Cell(r, 8) : "";
    auto point = [&](std::size_t row, std::size_t first) {
        return Point{util::NumberOf(Cell(row, first)), util::NumberOf(Cell(row, first + 1)),
                     util::NumberOf(Cell(row, first + 2))};
    };
    if (Begins(r + 1, "=")) return point(r + 1, 1);
    return Cell(r, 0) == "$GIS" ? point(r, 4) : Point{};
}

void PlainImport::ImportPointRecord(std::size_t r) {
    std::string number = Cell(r, 2), quality;
    for (std::size_t i = 0; i < used_.size(); ++i) {
        if (!platform::SameNoCase(used_[i].first, number)) continue;
        drawing_.findByHandle(used_[i].second)->erase();
        used_.erase(used_.begin() + static_cast<std::ptrdiff_t>(i));
        break;
    }
    std::string code = Trimmed(Cell(r, 3));
    if (aliases.contains(platform::UpperAscii(code))) code = aliases[platform::UpperAscii(code)];
    SelectFeatureLayer(code, true);
    Point at = GetRecordCoordinates(r, quality);
    drawing::Entity insert = drawing_.addInsert(at, symbol_, 1, 1, 0);
    std::size_t row = none;
    for (std::size_t i = r; row == none && i-- > 0;)
        if (Cell(i, 0) == " DB" && Cell(i, 1) == number) row = i;
    AttachRecordAttributes(insert, number, row);
    used_.emplace_back(number, insert.handle());
    if (!quality.empty() && settings.importQA) AddQualityMarker(at, quality, number, code);
    table_[r][0] = "PTdone";
}

void PlainImport::ImportFeatureRecord(std::size_t r) {
    std::string id = Trimmed(Cell(r, 3)), type = Trimmed(Cell(r, 1)), quality;
    SelectFeatureLayer(CodeOf(id), false);
    drawing::Entity polyline = drawing_.addPolyline();
    auto addVertex = [&](std::size_t row) {
        Point at = GetRecordCoordinates(row, quality);
        polyline.appendVertex(at);
        if (!quality.empty() && settings.importQA) AddQualityMarker(at, quality, Cell(row, 2), id);
    };
    addVertex(r);
    std::size_t attributes = r > 0 && Cell(r - 1, 0) == " DB" && Cell(r - 1, 1) == id ? r - 1 : none;
    for (std::size_t i = 0; attributes == none && i < table_.size(); ++i)
        if (Cell(i, 0) == " DB" && Cell(i, 1) == id) attributes = i;
    AttachRecordAttributes(polyline, id, attributes);
    polyline.setLabel(id);
    table_[r][0] = "FEATdone";
    for (std::size_t i = r + 1; i < table_.size(); ++i) {
        if (!Cell(i, 3).starts_with(id) || !Begins(i, "$")) continue;
        addVertex(i);
        table_[i][0] = "NODEdone";
    }
    if (type == "A") CloseAreaIfNeeded(polyline);
}

void PlainImport::CloseAreaIfNeeded(drawing::Entity polyline) {
    if (polyline.vertexCount() < 2) return;
    Point first = polyline.vertex(0), last = polyline.vertex(polyline.vertexCount() - 1);
    if (settings.forceClose || drawing::distance(first, last) < 0.01) polyline.setClosed(true);
    polyline.setFilled(util::NumberOf(Part(current_.style, ',', 1)) >= 0);
}

void PlainImport::CloseFeature(const std::string& id) {
    SelectFeatureLayer(CodeOf(id), false);
    drawing_.forEach([&](drawing::Entity entity) {
        if (entity.label() != id || entity.kind() != "VDPOLYLINE") return;
        entity.setClosed(true);
        entity.setFilled(!current_.style.empty() && util::NumberOf(Part(current_.style, ',', 1)) >= 0);
    });
}

void PlainImport::SelectFeatureLayer(std::string code, bool point) {
    code = platform::UpperAscii(code);
    if (code == drawing_.activeLayerName() && !current_.style.empty()) return;
    drawing_.setActiveLayer(code);
    current_ = templates[code];
    if (current_.style.empty())
        drawing_.setActiveColourIndex(static_cast<drawing::Colour>(drawing_.layerCount()));
    else
        drawing_.setActiveColour(static_cast<drawing::Colour>(util::NumberOf(Part(current_.style, ',', 2))));
    if (!point) return;
    std::string symbol = Part(current_.style, ',', 1);
    symbol_ = symbols.contains(symbol) ? symbols[symbol] : "DEFAULT";
}

void PlainImport::AttachRecordAttributes(drawing::Entity entity, const std::string& key, std::size_t row) {
    auto add = [&](const std::string& name, std::size_t column) {
        std::string value = util::ReplaceAll(Trimmed(Cell(row, column)), ";;", ",");
        entity.xproperties().add(name, value);
        if (name == "HOTLINK" && !current_.fields.empty())
            entity.setHyperlink(value.empty() ? "" : folder_ + "/" + value);
    };
    if (row == none) {
        if (current_.fields.empty())
            entity.xproperties().add("FOID", key);
        else
            entity.xproperties().add(current_.fields[0], baseName_ + "-" + key);
    } else if (current_.fields.empty()) {
        for (std::size_t k = 1; k + 2 <= width_; ++k) add("FIELD" + std::to_string(k), k + 1);
    } else {
        for (std::size_t i = 0; i < current_.fields.size(); ++i) add(current_.fields[i], i + 2);
    }
}

void PlainImport::AddQualityMarker(const Point& at, const std::string& quality, const std::string& number,
                                   const std::string& feature) {
    std::vector<std::string> parts = Split(quality, '/');
    std::string accuracy = Part(quality, '/', 3);
    double realTime = 0, postProcessed = 0, radius = 0;
    if (accuracy.find('[') != std::string::npos) {
        accuracy = util::ReplaceAll(util::ReplaceAll(accuracy, "[", ","), "]", "");
        realTime = util::NumberOf(Part(accuracy, ',', 0));
        radius = postProcessed = util::NumberOf(Part(accuracy, ',', 1));
    } else {
        if (parts.size() != 4) return;
        radius = realTime = util::NumberOf(accuracy);
    }
    drawing::Entity circle = drawing_.addCircle(at, radius);
    circle.setLayerName("$QA");
    drawing::XProperties properties = circle.xproperties();
    properties.add("PtId", number);
    properties.add("Feature", feature);
    properties.add("NumSats", parts[0]);
    properties.add("DOP", parts[1]);
    properties.add("DiffMode", parts[2]);
    properties.add("RealTimeAcc", util::FormatFixed(realTime, 3));
    if (postProcessed > 0) properties.add("PostProAcc", util::FormatFixed(postProcessed, 3));
}

void PlainImport::RemoveReferenceLayers() {
    for (const char* name : {"REFLINE", "REFPOINT"}) {
        if (drawing_.activeLayerName() == name) current_ = {};
        drawing_.eraseLayer(name);
    }
}

}  // namespace vexlator::test

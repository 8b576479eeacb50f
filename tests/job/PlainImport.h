// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "import/job/JobToDrawing.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::test {

/// A template as plain data.
struct PlainTemplate {
    std::string style;
    std::vector<std::string> fields;
};

/// The import of device jobs by plain searches through a table of texts: slow, and easy to check by eye. The
/// indexed import must give the same drawing. Every job is "/j/J0412.JOB".
class PlainImport {
public:
    std::map<std::string, PlainTemplate> templates;  ///< by code in capitals
    std::map<std::string, std::string> aliases;
    std::map<std::string, std::string> symbols;  ///< blocks by symbol name; any other gives DEFAULT
    importer::JobSettings settings;
    std::uint64_t leftOut = 0;  ///< positions of the last job that have no place

    explicit PlainImport(drawing::Drawing& drawing) : drawing_(drawing) {}

    void ImportJobFile(const std::string& text) {
        table_.clear();
        leftOut = 0;
        for (const std::string& line : Split(text, '\n')) table_.push_back(Split(line, ','));
        table_.pop_back();  // what follows the last line feed
        width_ = 2;
        for (const auto& line : table_) width_ = std::max(width_, line.size());
        ResolveSupersededRecords();
        used_.clear();
        if (settings.importQA) drawing_.setActiveLayer("$QA");
        for (std::size_t r = 0; r < table_.size(); ++r) {
            bool isPosition = Begins(r, "$") && HasPlace(r);
            if (isPosition && Cell(r, 1) == "P")
                ImportPoint(r);
            else if (isPosition)
                ImportFeature(r);
            else if (Cell(r, 0) == "CO" && Cell(r, 2) == "Close")
                CloseFeature(Cell(r, 1));
            else if (Begins(r, "$"))
                ++leftOut;
        }
        for (const char* name : {"REFLINE", "REFPOINT"}) {
            if (drawing_.activeLayerName() == name) current_ = {};
            drawing_.eraseLayer(name);
        }
    }

private:
    using Row = std::optional<std::size_t>;

    static std::vector<std::string> Split(const std::string& text, char separator) {
        std::vector<std::string> parts(1);
        for (char c : text) {
            if (c == separator)
                parts.emplace_back();
            else
                parts.back() += c;
        }
        return parts;
    }
    static std::string Part(const std::string& text, char separator, std::size_t index) {
        std::vector<std::string> parts = Split(text, separator);
        return index < parts.size() ? parts[index] : "";
    }
    std::string Cell(std::size_t r, std::size_t column) const {
        return r < table_.size() && column < table_[r].size() ? table_[r][column] : "";
    }
    std::string Trimmed(std::size_t r, std::size_t column) const {
        return std::string(util::Trim(Cell(r, column)));
    }
    bool Begins(std::size_t r, const std::string& text) const { return Cell(r, 0).starts_with(text); }
    bool HasAttributes(std::size_t r, const std::string& key) const {
        return Cell(r, 0) == " DB" && Cell(r, 1) == key;
    }
    bool HasPlace(std::size_t r) const {
        auto isNumber = [](const std::string& text) {
            char* end = nullptr;
            std::strtod(text.c_str(), &end);
            return text.find_first_not_of("0123456789-.") == std::string::npos && *end == 0;
        };
        return Cell(r, 0) != "$GIS" || (isNumber(Cell(r, 4)) && isNumber(Cell(r, 5)));
    }
    void MarkAsDone(std::size_t r) { table_[r][0] = "done"; }
    bool IsFillingStyle() const { return util::NumberOf(Part(current_.style, ',', 1)) >= 0; }

    void ResolveSupersededRecords() {
        for (std::size_t r = 0; r < table_.size(); ++r) {
            if (!Begins(r, "*")) continue;
            std::string number = std::to_string(util::IntegerOf(Cell(r, 2)));
            Row newest;
            for (std::size_t i = r + 1; i < table_.size(); ++i)
                if (Begins(i, "$") && Cell(i, 2) == number) newest = i;
            if (newest) {
                table_[r] = table_[*newest];
                if (Begins(r + 1, "=") && Begins(*newest + 1, "=")) table_[r + 1] = table_[*newest + 1];
                MarkAsDone(*newest);
            } else {
                if (r > 0 && Cell(r - 1, 0) == " DB" && Cell(r, 1) == "P") MarkAsDone(r - 1);
                if (Begins(r + 1, "=")) MarkAsDone(r + 1);
                MarkAsDone(r);
            }
        }
    }

    drawing::Point Place(std::size_t r) const {
        bool below = Begins(r + 1, "=");
        if (!below && Cell(r, 0) != "$GIS") return {};
        auto number = [&](std::size_t i) {
            return util::NumberOf(below ? Cell(r + 1, 1 + i) : Cell(r, 4 + i));
        };
        return {number(0), number(1), number(2)};
    }

    void ImportPoint(std::size_t r) {
        std::string number = Cell(r, 2), code = Trimmed(r, 3);
        auto before = std::find_if(used_.begin(), used_.end(), [&](const auto& used) {
            return platform::SameNoCase(used.first, number);
        });
        if (before != used_.end()) {
            drawing_.findByHandle(before->second)->erase();
            used_.erase(before);
        }
        if (aliases.contains(platform::UpperAscii(code))) code = aliases[platform::UpperAscii(code)];
        SelectLayer(code);
        std::string symbol = Part(current_.style, ',', 1);
        if (layerChanged_) symbol_ = symbols.contains(symbol) ? symbols[symbol] : "DEFAULT";
        drawing::Entity insert = drawing_.addInsert(Place(r), symbol_, 1, 1, 0);
        Row row;
        for (std::size_t i = 0; i < r; ++i)
            if (HasAttributes(i, number)) row = i;
        AttachAttributes(insert, number, row);
        used_.emplace_back(number, insert.handle());
        AddQualityMarker(r, code);
        MarkAsDone(r);
    }

    void ImportFeature(std::size_t r) {
        std::string id = Trimmed(r, 3);
        bool isArea = Trimmed(r, 1) == "A";
        SelectLayer(Part(id, '(', 0));
        drawing::Entity polyline = drawing_.addPolyline();
        polyline.setLabel(id);
        Row row;
        for (std::size_t i = table_.size(); i-- > 0;)
            if (HasAttributes(i, id)) row = i;
        if (r > 0 && HasAttributes(r - 1, id)) row = r - 1;
        AttachAttributes(polyline, id, row);
        for (std::size_t i = r; i < table_.size(); ++i) {
            if (i > r && !(Begins(i, "$") && Cell(i, 3).starts_with(id))) continue;
            if (i > r && !HasPlace(i) && !Begins(i + 1, "=")) continue;
            polyline.appendVertex(Place(i));
            AddQualityMarker(i, id);
            MarkAsDone(i);
        }
        if (!isArea || polyline.vertexCount() < 2) return;
        drawing::Point first = polyline.vertex(0), last = polyline.vertex(polyline.vertexCount() - 1);
        if (settings.forceClose || drawing::distance(first, last) < 0.01) polyline.setClosed(true);
        polyline.setFilled(IsFillingStyle());
    }

    void CloseFeature(const std::string& id) {
        SelectLayer(Part(id, '(', 0));
        drawing_.forEach([&](drawing::Entity entity) {
            if (entity.label() != id || entity.kind() != "VDPOLYLINE") return;
            entity.setClosed(true);
            entity.setFilled(!current_.style.empty() && IsFillingStyle());
        });
    }

    void SelectLayer(const std::string& feature) {
        std::string code = platform::UpperAscii(feature);
        layerChanged_ = code != drawing_.activeLayerName() || current_.style.empty();
        if (!layerChanged_) return;
        drawing_.setActiveLayer(code);
        current_ = templates[code];
        if (current_.style.empty())
            drawing_.setActiveColourIndex(static_cast<drawing::Colour>(drawing_.layerCount()));
        else
            drawing_.setActiveColour(
                static_cast<drawing::Colour>(util::NumberOf(Part(current_.style, ',', 2))));
    }

    void AttachAttributes(drawing::Entity entity, const std::string& key, Row row) {
        const std::vector<std::string>& fields = current_.fields;
        drawing::XProperties properties = entity.xproperties();
        if (!row) {
            fields.empty() ? properties.add("FOID", key) : properties.add(fields[0], "J0412-" + key);
            return;
        }
        std::size_t count = fields.empty() ? width_ - 2 : fields.size();
        for (std::size_t i = 0; i < count; ++i) {
            std::string name = fields.empty() ? "FIELD" + std::to_string(i + 1) : fields[i];
            std::string value = util::ReplaceAll(Trimmed(*row, i + 2), ";;", ",");
            properties.add(name, value);
            if (name == "HOTLINK") entity.setHyperlink(value.empty() ? "" : "/j/" + value);
        }
    }

    void AddQualityMarker(std::size_t r, const std::string& feature) {
        std::string quality = Cell(r, 0) == "$GPS" ? Cell(r, 8) : "", accuracy = Part(quality, '/', 3);
        bool isProcessed = accuracy.find('[') != std::string::npos;
        if (!settings.importQA || (!isProcessed && std::count(quality.begin(), quality.end(), '/') != 3))
            return;
        if (isProcessed) accuracy = util::ReplaceAll(util::ReplaceAll(accuracy, "[", ","), "]", "");
        double realTime = util::NumberOf(Part(accuracy, ',', 0)),
               processed = isProcessed ? util::NumberOf(Part(accuracy, ',', 1)) : 0;
        drawing::Entity circle = drawing_.addCircle(Place(r), isProcessed ? processed : realTime);
        circle.setLayerName("$QA");
        drawing::XProperties properties = circle.xproperties();
        properties.add("PtId", Cell(r, 2));
        properties.add("Feature", feature);
        for (std::size_t i = 0; i < 3; ++i)
            properties.add(std::vector{"NumSats", "DOP", "DiffMode"}[i], Part(quality, '/', i));
        properties.add("RealTimeAcc", util::FormatFixed(realTime, 3));
        if (processed > 0) properties.add("PostProAcc", util::FormatFixed(processed, 3));
    }

    drawing::Drawing& drawing_;
    std::vector<std::vector<std::string>> table_;
    std::size_t width_ = 0;                                  ///< of the widest line
    std::vector<std::pair<std::string, std::string>> used_;  ///< numbers of points and their handles
    PlainTemplate current_;
    bool layerChanged_ = false;
    std::string symbol_;
};

}  // namespace vexlator::test

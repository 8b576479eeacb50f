// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "import/job/JobToDrawing.h"

#include <map>
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
/// indexed import must give the same drawing.
class PlainImport {
public:
    std::map<std::string, PlainTemplate> templates;  ///< by code in capitals
    std::map<std::string, std::string> aliases;
    std::map<std::string, std::string> symbols;  ///< blocks by symbol name; any other gives DEFAULT
    importer::JobSettings settings;

    explicit PlainImport(drawing::Drawing& drawing) : drawing_(drawing) {}
    void ImportJobFile(const std::string& text, const std::string& folder, const std::string& baseName);

private:
    using Point = drawing::Point;
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    void ReadJobTable(const std::string& text);
    void ResolveSupersededRecords();
    bool IsPositionRecord(std::size_t r) const;
    void ImportPointRecord(std::size_t r);
    void ImportFeatureRecord(std::size_t r);
    void CloseFeature(const std::string& id);
    void SelectFeatureLayer(std::string code, bool point);
    Point GetRecordCoordinates(std::size_t r, std::string& quality) const;
    void AttachRecordAttributes(drawing::Entity entity, const std::string& key, std::size_t row);
    void CloseAreaIfNeeded(drawing::Entity polyline);
    void AddQualityMarker(const Point& at, const std::string& quality, const std::string& number,
                          const std::string& feature);
    void RemoveReferenceLayers();

    const std::string& Cell(std::size_t r, std::size_t column) const;
    bool Begins(std::size_t r, const std::string& text) const;

    drawing::Drawing& drawing_;
    std::vector<std::vector<std::string>> table_;
    std::size_t width_ = 0;
    std::vector<std::pair<std::string, std::string>> used_;
    PlainTemplate current_;
    std::string symbol_, folder_, baseName_;
};

}  // namespace vexlator::test

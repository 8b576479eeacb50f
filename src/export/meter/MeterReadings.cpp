// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/meter/MeterReadings.h"

#include "export/LeftOutEntities.h"
#include "platform/CodePages.h"
#include "util/Dates.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cmath>

namespace vexlator::exporter {

namespace {

constexpr std::string_view noPosition = "000000000000";

/// Without its fraction; 0 for a text that is not a number.
std::int64_t CutToWhole(double value) {
    constexpr double most = 1e15;  // far beyond any grid, far within the result type
    return std::isnan(value) ? 0 : static_cast<std::int64_t>(std::clamp(value, -most, most));
}

/// Collects the lines of a layer's file.
class MeterLines {
public:
    MeterLines(config::Run& run, std::string_view layer, platform::OutputFile& file)
        : run_(run), layer_(layer), file_(file) {}

    void Header(std::string_view drawingName, std::size_t entities) {
        file_.Write("mr," + util::SlashDateText(run_.Now()) + ",");
        Field("", drawingName, ',');
        file_.Write("," + std::to_string(entities) + ",mr\r\n");
    }

    void Meter(drawing::EntityView entity) {
        file_.Write("cr,");
        for (const char* name : {"MeterRef", "Reading", "Date"}) {
            Field(name, Value(entity, name), ',');
            file_.Write(",");
        }
        std::string reference = MeterGridReference(entity.insertionPoint());
        bool misplaced = reference != noPosition && reference != Value(entity, "GPS");
        Field("Remarks", misplaced ? reference : Value(entity, "Remarks"), '\n');
        file_.Write("\r\n");
    }

private:
    static std::string_view Value(drawing::EntityView entity, std::string_view name) {
        std::optional<drawing::XPropertyView> property = entity.xproperties().find(name);
        return property ? property->value() : "";
    }

    /// Line ends and field separators become blanks, NUL becomes a question mark.
    void Field(std::string_view name, std::string_view value, char end) {
        std::uint64_t replaced = 0;
        std::string text = platform::Windows1252FromUtf8(value, &replaced);
        for (char& c : text) {
            if (c != '\r' && c != '\n' && c != '\0' && c != end) continue;
            c = c == '\0' ? '?' : ' ';
            ++replaced;
        }
        file_.Write(text);
        if (replaced > 0) run_.Losses().Count(config::LossReport::Kind::Replaced, layer_, name, replaced);
    }

    config::Run& run_;
    std::string_view layer_;
    platform::OutputFile& file_;
};

}  // namespace

std::string MeterGridReference(const drawing::Point& position) {
    return util::ZeroPadded(CutToWhole(position.x), 6) + util::ZeroPadded(CutToWhole(position.y), 6);
}

std::uint64_t WriteMeterReadings(config::Run& run, const WholeLayer& layer, std::string_view drawingName,
                                 platform::OutputFile& file) {
    MeterLines lines(run, layer.layer.name, file);
    lines.Header(drawingName, layer.set.count());
    LeftOutEntities leftOut;
    std::uint64_t meters = 0;
    for (std::uint32_t index : layer.set.indexes()) {
        drawing::EntityView entity = layer.set.entity(index);
        drawing::Kind kind = entity.kindCode();
        if (kind != drawing::Kind::Insert && kind != drawing::Kind::Point) {
            leftOut.Add(kind);
            continue;
        }
        lines.Meter(entity);
        ++meters;
    }
    leftOut.Report(run, layer.layer.name);
    return meters;
}

}  // namespace vexlator::exporter

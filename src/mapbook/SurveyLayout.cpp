// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/SurveyLayout.h"

#include "drawing/LineTypes.h"
#include "drawing/Vdf.h"
#include "mapbook/Symbols.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "util/Text.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

namespace vexlator::mapbook {

namespace {

using drawing::Entity;
using drawing::Kind;
using util::PlanePoint;

struct Family {
    std::string_view attribute, layer, annotationLayer;
};
constexpr Family families[] = {{"TRACK_ID", "CHAINAGE", "TRKIDANNO"},
                               {"BRIDGE_NO", "BRIDGE", "BRDGANNO"},
                               {"MILES_CHAINS", "MILEPOST", "MILEANNO"},
                               {"TYPE", "SIGNAL", "SIGANNO"}};

constexpr std::string_view hatchedLayers[] = {"LAKE", "POND", "MARSH", "PONDING"};
constexpr std::string_view standingLayer = "STANDING", tadpoleLayer = "TADPOLES";

/// Red is lowest.
constexpr drawing::Colour paleWater = 0xF7EEDF, standingWater = 0xE8CFA8, slopeColour = 0x3F5F7F;

bool IsOneOf(std::string_view name, std::span<const std::string_view> names) {
    return std::ranges::any_of(names,
                               [&](std::string_view each) { return platform::SameNoCase(each, name); });
}

/// A position on a course, and the direction there in radians.
struct Spot {
    PlanePoint at;
    double direction = 0;
};

/// Calls `visit(Spot, number)` along a course: after half a step, then after each step.
template <typename Visit>
void WalkAlong(std::span<const PlanePoint> course, double step, std::size_t most, Visit visit) {
    double next = step / 2;
    std::size_t number = 0;
    for (std::size_t i = 1; i < course.size() && number < most; ++i) {
        double dx = course[i].x - course[i - 1].x, dy = course[i].y - course[i - 1].y;
        double length = std::hypot(dx, dy);
        for (; next <= length && number < most; next += step)
            visit(Spot{{course[i - 1].x + dx * next / length, course[i - 1].y + dy * next / length},
                       std::atan2(dy, dx)},
                  number++);
        next -= length;
    }
}

double LengthOf(std::span<const PlanePoint> course) {
    double length = 0;
    for (std::size_t i = 1; i < course.size(); ++i)
        length += std::hypot(course[i].x - course[i - 1].x, course[i].y - course[i - 1].y);
    return length;
}

/// Where a feature's text begins.
Spot TextSpot(const Entity& entity, double height, std::size_t letters) {
    std::span<const PlanePoint> course = entity.planVertices();
    constexpr double letterWidth = 0.6;
    double width = letterWidth * height * double(letters);
    if (entity.isClosed() || course.size() < 2) {
        drawing::Box box = entity.extents();
        PlanePoint middle{box.minX / 2 + box.maxX / 2, box.minY / 2 + box.maxY / 2};
        bool isArea = entity.isClosed();
        return {{middle.x + (isArea ? -width / 2 : 0.6 * height),
                 middle.y + (isArea ? -height / 2 : 0.6 * height)},
                0};
    }
    Spot spot{course.front(), 0};
    // With this step the first spot is the middle.
    WalkAlong(course, LengthOf(course), 1, [&](Spot middle, std::size_t) { spot = middle; });
    double along = std::cos(spot.direction) < 0 ? spot.direction + std::numbers::pi : spot.direction;
    double above = 0.4 * height;
    return {{spot.at.x - std::cos(along) * width / 2 - std::sin(along) * above,
             spot.at.y - std::sin(along) * width / 2 + std::cos(along) * above},
            along};
}

void AnnotateEntity(drawing::Drawing& drawing, const Entity& entity, std::string_view attribute,
                    double height) {
    auto property = entity.xproperties().find(attribute);
    if (!property || entity.vertexCount() == 0) return;
    std::string text(util::Trim(property->value(), util::lineBlanks));
    if (text.empty()) return;
    Spot spot = TextSpot(entity, height, text.size());
    drawing.addText({spot.at.x, spot.at.y, 0}, text, height,
                    std::remainder(spot.direction, 2 * std::numbers::pi));
}

void StylePolyline(Entity entity) {
    drawing::Style style = entity.style();
    if (std::uint8_t number = drawing::LineTypeNumber("Line" + entity.layerName()))
        style.lineType = drawing::LineTypeOf(number).name;
    bool isHatched = IsOneOf(entity.layerName(), hatchedLayers);
    if (entity.isClosed() && (isHatched || platform::SameNoCase(entity.layerName(), standingLayer))) {
        if (!entity.isFilled()) style.outlineColour = style.colour;
        entity.setFilled(true);
        style.fillColour = isHatched ? paleWater : standingWater;
        if (isHatched) style.lineType = drawing::concreteHatch;
    }
    entity.setStyle(style);
}

/// How many units high the block's symbol is.
double HeightOfBlock(const drawing::Drawing& drawing, std::string_view name) {
    const drawing::Block* block = drawing.findBlock(name);
    drawing::Drawing content;
    try {
        if (block && !block->content.empty()) drawing::ReadVdf(*block, content);
    } catch (const platform::ReadError&) {
        return 1;
    }
    drawing::Box box = content.extents();
    return box.maxY > box.minY ? box.maxY - box.minY : 1;
}

/// The tadpoles of slopes. Long and short ones take turns.
class Slopes {
public:
    Slopes(drawing::Drawing& drawing, const LayoutSizes& sizes)
        : drawing_(drawing), sizes_(sizes), blockHeight_(HeightOfBlock(drawing, tadpoleSymbol)) {}

    /// On an embankment the heads are on the line, which is its top, and the tails point away from it; in a
    /// cutting the tails' ends are on the line, and the heads are at the top beside it.
    void Draw(const Entity& line, bool isEmbankment) {
        constexpr std::size_t mostTadpoles = 100'000;  // of one line
        constexpr double right = -std::numbers::pi / 2, shortShare = 0.6;
        auto side = line.xproperties().find("SideOfRail");
        bool isRight = side && platform::SameNoCase(util::Trim(side->value()), "RIGHT");
        std::vector<PlanePoint> course(line.planVertices().begin(), line.planVertices().end());
        if (line.isClosed() && !course.empty()) course.push_back(course.front());
        WalkAlong(course, sizes_.tadpoleSpacing, mostTadpoles, [&](Spot spot, std::size_t number) {
            double length = sizes_.tadpole * (number % 2 == 0 ? 1 : shortShare);
            Add(spot.at, spot.direction + (isRight ? right : -right), length, isEmbankment);
        });
    }

private:
    void Add(PlanePoint at, double away, double length, bool isEmbankment) {
        double scale = length / blockHeight_, turn = away - std::numbers::pi / 2;
        if (!isEmbankment) {
            at = {at.x + std::cos(away) * length, at.y + std::sin(away) * length};
            turn += std::numbers::pi;
        }
        drawing_.addInsert({at.x, at.y, 0}, tadpoleSymbol, scale, scale,
                           std::remainder(turn, 2 * std::numbers::pi));
    }

    drawing::Drawing& drawing_;
    const LayoutSizes& sizes_;
    double blockHeight_;
};

}  // namespace

LayoutSizes LayoutSizes::ForScale(double denominator) {
    double millimetre = denominator / 1000;
    return {.text = 2 * millimetre, .tadpole = 5 * millimetre, .tadpoleSpacing = 2.5 * millimetre};
}

void BeginLayer(drawing::Drawing& drawing, std::string_view name) {
    drawing::SelectionSet old = drawing.selectLayer(name);
    for (std::size_t i = 0; i < old.count(); ++i) old.item(i).erase();
    drawing.setActiveLayer(name);
    drawing.setActiveStyle({});
}

void Annotate(drawing::Drawing& drawing, std::string_view attribute, std::string_view sourceLayer,
              std::string_view annotationLayer, const LayoutSizes& sizes) {
    BeginLayer(drawing, annotationLayer);
    std::vector<std::uint32_t> sources;
    if (sourceLayer.empty()) {
        drawing.forEach([&](const Entity& entity) { sources.push_back(entity.index()); });
    } else {
        drawing::SelectionSet found = drawing.selectLayer(sourceLayer);
        sources.assign(found.indexes().begin(), found.indexes().end());
    }
    for (std::uint32_t source : sources)
        AnnotateEntity(drawing, Entity(drawing, source), attribute, sizes.text);
}

void AnnotateSurvey(drawing::Drawing& drawing, const LayoutSizes& sizes) {
    for (const Family& family : families)
        Annotate(drawing, family.attribute, family.layer, family.annotationLayer, sizes);
}

void StylePolylines(drawing::Drawing& drawing) {
    drawing.forEach([](Entity entity) {
        if (entity.kindCode() == Kind::Polyline) StylePolyline(entity);
    });
}

void DrawTadpoles(drawing::Drawing& drawing, const LayoutSizes& sizes) {
    BeginLayer(drawing, tadpoleLayer);
    drawing.setActiveColour(slopeColour);
    Slopes slopes(drawing, sizes);
    for (bool isEmbankment : {true, false}) {
        drawing::SelectionSet lines = drawing.selectLayer(isEmbankment ? "EMBANKMENT" : "CUTTING");
        for (std::size_t i = 0; i < lines.count(); ++i)
            if (lines.item(i).kindCode() == Kind::Polyline) slopes.Draw(lines.item(i), isEmbankment);
    }
}

}  // namespace vexlator::mapbook

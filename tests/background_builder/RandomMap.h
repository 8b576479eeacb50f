// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/modGRPstyling.h"
#include "drawing/Drawing.h"
#include "support/TempFolder.h"

#include <cmath>
#include <functional>
#include <initializer_list>
#include <numbers>
#include <string>
#include <vector>

namespace vexlator::test {

/// Random drawings, symbols and settings of all kinds. The random numbers come from a generator, or from a
/// fuzzer.
class RandomMap {
public:
    /// `number(limit)` gives a number from 0 to limit - 1.
    explicit RandomMap(std::function<unsigned(unsigned)> number) : number_(std::move(number)) {}

    void Fill(drawing::Drawing& drawing, const TempFolder& folder, unsigned entities) {
        attributes_ = static_cast<Attributes>(number_(3));
        width_ = PickOf({50., 2000., 60000.});
        const char* layers[] = {"ROADS", "PARCELS", "0", "roofs", "WATER"};
        unsigned layerCount = 1 + number_(5);
        AddSymbols(drawing, folder);
        for (unsigned i = 0; i < entities; ++i) {
            drawing.setActiveLayer(layers[number_(layerCount)]);
            drawing::Entity entity = AddEntity(drawing, Place());
            if (attributes_ != Attributes::None && !OneIn(5)) AddAttributes(entity);
        }
    }

    background::BackgroundStyle Style() {
        background::BackgroundStyle style;
        for (const char* layer : {"ROADS", "Parcels", "DEFAULT", "Mill"})
            if (OneIn(5))
                style.rows.push_back({layer, "", "", "", "-1", "0", Pick({"0", "-1"})});
            else if (OneIn(2))
                style.rows.push_back({layer, Cell(), Cell(), Cell(), Pick({"0", "-1"}), Pick({"0", "-1"}),
                                      Pick({"0", "0", "0", "-1"})});
        for (const char* name : {"NAME", "CLASS", "SIZE"}) {
            style.optimisedAttributes.push_back({name, OneIn(2)});
            style.annotationFields.push_back({name, OneIn(2)});
        }
        if (OneIn(3)) style.layerOnField = "CLASS";
        if (OneIn(2)) style.searchOnField = "NAME";
        style.fixedAnnotationHeight = Pick({"", "", "2.5", "0"});
        return style;
    }

    std::string AttributeList() {
        return Pick({"", "{ROADS,24,NAME,CLASS}", "{roads,12,SIZE,NAME,NONE}{Parcels,64,NAME}"});
    }

    bool OneIn(unsigned limit) { return number_(limit) == 0; }

private:
    enum class Attributes { None, Some, Classified };
    using Texts = std::initializer_list<const char*>;

    std::string Pick(Texts texts) { return texts.begin()[number_(static_cast<unsigned>(texts.size()))]; }
    double PickOf(std::initializer_list<double> values) {
        return values.begin()[number_(static_cast<unsigned>(values.size()))];
    }
    std::string Cell() { return Pick({"", "Red", "gray", "Hedge", "wall", "Unknown"}); }
    double Upto(double limit) { return limit * number_(1 << 16) / (1 << 16); }
    double Angle() { return OneIn(3) ? 0 : Upto(2 * std::numbers::pi); }
    drawing::Point Place() {
        double margin = OneIn(50) ? -20 : 30;
        return {margin + Upto(width_), margin + Upto(width_) / 3};
    }
    drawing::Point Near(const drawing::Point& place, double distance) {
        double x = place.x + Upto(distance) - distance / 2, y = place.y + Upto(distance) - distance / 2;
        return {std::round(x * 1000) / 1000, std::round(y * 1000) / 1000};
    }

    /// OUTER contains INNER, with its own block or from the drawing.
    void AddSymbols(drawing::Drawing& drawing, const TempFolder& folder) {
        for (const char* name : {"INNER", "OUTER"}) {
            drawing::Drawing content;
            if (!symbolInSymbols_.empty() && OneIn(2)) AddBlock(content, symbolInSymbols_, folder);
            if (symbolInSymbols_.empty()) symbolInSymbols_ = "NONE";
            for (unsigned i = 1 + number_(5); i > 0; --i) AddEntity(content, {Upto(4), Upto(4)});
            content.saveAs(folder / (std::string(name) + ".VDF"));
            AddBlock(drawing, name, folder);
            symbolInSymbols_ = name;
        }
        drawing::Drawing().saveAs(folder / "EMPTY.VDF");
        AddBlock(drawing, "EMPTY", folder);
        drawing.addBlock({"NAMEONLY", ""});
        symbolInSymbols_.clear();
    }
    static void AddBlock(drawing::Drawing& drawing, const std::string& name, const TempFolder& folder) {
        drawing.addBlock({name, TempFolder::Read(folder / (name + ".VDF"))});
    }

    drawing::Entity AddEntity(drawing::Drawing& drawing, const drawing::Point& at) {
        double size = PickOf({1, 20, 400});
        switch (number_(symbolInSymbols_.empty() ? 12 : 7)) {
            case 0:
                return drawing.addPoint(at);
            case 1:
                return AddInsert(drawing, at);
            case 2:
                return drawing.addCircle(at, Upto(size) / 4);
            case 3:
                return AddArc(drawing, at, size);
            case 4:
                return AddText(drawing, at);
            case 5: {
                drawing::Entity line = drawing.addLine(at, Near(at, size));
                line.setClosed(OneIn(3));
                return line;
            }
            case 6:
                if (OneIn(4)) return drawing.addEntity(drawing::Kind::Other, "VDSOLID");
                [[fallthrough]];
            default:
                return AddPolyline(drawing, at, size);
        }
    }

    // One random number per statement: compilers differ in the evaluation order of arguments.

    drawing::Entity AddArc(drawing::Drawing& drawing, const drawing::Point& at, double size) {
        double radius = Upto(size) / 4, start = Angle(), end = Angle();
        return drawing.addArc(at, radius, start, end);
    }

    drawing::Entity AddText(drawing::Drawing& drawing, const drawing::Point& at) {
        std::string characters = Pick({"", "Mill", "caf\xC3\xA9"});
        double height = PickOf({.7, 2.5, 4}), angle = Angle();
        drawing::Entity text = drawing.addText(at, characters, height, angle);
        drawing::Shape shape = text.shape();
        shape.alignment = OneIn(3) ? 106 : 6;
        text.setShape(shape);
        return text;
    }

    drawing::Entity AddInsert(drawing::Drawing& drawing, const drawing::Point& at) {
        std::string block = symbolInSymbols_;
        if (block.empty()) block = Pick({"INNER", "OUTER", "outer", "EMPTY", "NAMEONLY", "NONE"});
        double scale = PickOf({.5, 1, 2});
        return drawing.addInsert(at, block, scale, scale, Angle());
    }

    drawing::Entity AddPolyline(drawing::Drawing& drawing, const drawing::Point& at, double size) {
        drawing::Entity polyline = drawing.addPolyline();
        unsigned count = OneIn(400) ? 16000 + number_(3) : number_(9);
        for (unsigned i = 0; i < count; ++i) polyline.appendVertex(Near(at, size));
        if (count > 2 && OneIn(3)) {
            drawing::Point first = polyline.vertex(0);
            polyline.appendVertex({first.x + PickOf({0, .004, .012}), first.y});
        }
        polyline.setClosed(OneIn(3));
        return polyline;
    }

    void AddAttributes(drawing::Entity entity) {
        auto add = [&](const char* name, const std::string& value, std::int32_t type = 1000) {
            entity.xproperties().add(name, value, type);
        };
        if (attributes_ == Attributes::Classified && !OneIn(9)) {
            add("TOID", Pick({"1000000041355", "osgb77", "0001000000041355"}));
            std::string theme = Pick({"THEME", "Themes"});
            add(theme.c_str(), Pick({"Buildings", "water", "land;water"}));
            add("MAKE", Pick({"Manmade", "natural", ""}));
        }
        if (OneIn(2)) add("NAME", Pick({"", "Mill", " High St ", "a,b", "caf\xC3\xA9", "Mill Lane"}));
        if (OneIn(2)) add("CLASS", Pick({"A", "roads", "Mill", "7.00", "12.500"}));
        std::string size = Pick({"3.10", "x"});
        if (OneIn(2)) add("SIZE", size, OneIn(3) ? 1010 : 1000);
        if (entity.kindCode() != drawing::Kind::Polyline) return;
        if (OneIn(4)) add("MPOLY", Pick({"0", "3", "", "17 parts", "x"}));
        if (OneIn(4)) add("ISHOLE", "");
    }

    std::function<unsigned(unsigned)> number_;
    Attributes attributes_ = Attributes::None;
    std::string symbolInSymbols_;  ///< placements of symbols; "" outside of them
    double width_ = 0;
};

}  // namespace vexlator::test

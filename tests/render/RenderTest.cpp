// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/DrawingScene.h"
#include "render/Furniture.h"
#include "render/Painter.h"
#include "render/UsualExtent.h"
#include "vdfjson/JsonToDrawing.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace vexlator::render {
namespace {

using drawing::Drawing;
using drawing::Point;

/// Texts need an application, but no display.
class Application : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int count = 1;
        static char name[] = "test_render";
        static char* arguments[] = {name, nullptr};
        application_ = std::make_unique<QGuiApplication>(count, arguments);
    }
    void TearDown() override { application_.reset(); }

private:
    std::unique_ptr<QGuiApplication> application_;
};
const testing::Environment* const application = testing::AddGlobalTestEnvironment(new Application);

constexpr int side = 100;  // size of the pictures, in pixels and in ground units

QImage Picture(const Scene& scene, const PaintOptions& options = {}) {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    PaintScene(scene, View({0, 0, side, side}, side, side), image, options);
    return image;
}

/// The drawing of features in JSON with single quotes.
Scene SceneOf(std::string features, std::string description = "") {
    std::string json =
        "{'type':'FeatureCollection','drawing':{" + description + "},'features':[" + features + "]}";
    std::replace(json.begin(), json.end(), '\'', '"');
    Drawing drawing;
    vdfjson::JsonToDrawing(json, "plain", drawing);
    return SceneOfDrawing(drawing, {});
}
std::string Feature(const std::string& vdf) {
    return "{'type':'Feature','vdf':{" + vdf + "}}";
}

struct Probe {
    double x, y;  ///< in ground units
    Argb colour;
};

constexpr Argb red = 0xFFFF0000;

struct Look {
    std::string what, features, description;
    std::vector<Probe> probes;
};

const std::string horizontal = "'kind':'VDPOLYLINE','vertices':[[10,50.5,0],[90,50.5,0]]";
const std::string square =
    "'kind':'VDPOLYLINE','vertices':[[10.5,10.5,0],[90.5,10.5,0],[90.5,90.5,0],[10.5,90.5,0]]";
const std::string hole = "'kind':'VDPOLYLINE','vertices':[[30,30,0],[70,30,0],[70,70,0],[30,70,0]]";

const std::vector<Look> looks = {
    {"a line has its colour and is one pixel wide",
     Feature(horizontal + ",'colour':1,'lineWeight':30"),
     "",
     {{50, 50, red}, {50, 51.5, white}, {50, 49.5, white}, {95, 50.5, white}}},
    {"red is lowest in 24 bits", Feature(horizontal + ",'colour':8388863"), "", {{50, 50, 0xFFFF0080}}},
    {"the default colour is black, a light one is darkened",
     Feature(horizontal) + "," + Feature("'kind':'VDLINE','colour':2,'vertices':[[10,20.5,0],[90,20.5,0]]"),
     "",
     {{50, 50, black}, {50, 20, 0xFFA9A900}}},
    {"weights are hundredths of a millimetre",
     Feature(horizontal + ",'colour':1,'lineWeight':200"),
     "",
     {{50, 53.5, red}, {50, 47.5, red}, {50, 55.5, white}}},
    {"dashes are 3 mm, gaps 1.5 mm",
     Feature(horizontal + ",'colour':1,'lineType':'dashed'"),
     "",
     {{15, 50, red}, {24, 50, white}, {35, 50, red}, {41, 50, white}}},
    {"a closed line comes back",
     Feature(square + ",'colour':1,'closed':true"),
     "",
     {{10, 50, red}, {50, 50, white}}},
    {"an area is filled but for its holes",
     Feature(square + ",'filled':true,'fillColour':2,'outlineColour':1,'lineWeight':100") + "," +
         Feature(hole + ",'filled':true,'fillColour':2,'outlineColour':1,'xproperties':[['ISHOLE','1']]"),
     "",
     {{20, 50, 0xFFFFFF00}, {50, 50, white}, {10, 50, red}, {30, 50, red}, {5, 50, white}}},
    {"what comes later lies above",
     Feature(horizontal + ",'colour':1") + "," + Feature(square + ",'filled':true,'fillColour':5"),
     "",
     {{50, 50, 0xFF0000FF}}},
    {"circles and arcs",
     Feature("'kind':'VDCIRCLE','colour':1,'position':[50,50,0],'radius':40.5,'lineWeight':100") + "," +
         Feature(
             "'kind':'VDARC','colour':5,'position':[50,50,0],'radius':20.5,'lineWeight':100,'startAngle':5.5,"
             "'endAngle':1.6"),
     "",
     {{90, 50, red},
      {50, 90, red},
      {10, 50, red},
      {70, 50, 0xFF0000FF},
      {50, 70, 0xFF0000FF},
      {30, 50, white}}},
    {"a frozen layer is not seen",
     Feature(horizontal + ",'layer':'OFF'"),
     "'layers':[{'name':'0'},{'name':'OFF','frozen':true}]",
     {{50, 50, white}}},
    {"a symbol is scaled, turned and takes the colour of its feature where it has none",
     Feature("'kind':'VDINSERT','colour':1,'position':[50.5,50.5,0],'block':'S','scale':[2,1],'rotation':"
             "1.5707963267948966"),
     "'blocks':[{'name':'S','entities':[" + Feature("'kind':'VDLINE','vertices':[[0,0,0],[20,0,0]]") + "," +
         Feature("'kind':'VDLINE','colour':5,'vertices':[[0,0,0],[0,20,0]]") + "]}]",
     {{50, 85, red}, {50, 92, white}, {35, 50, 0xFF0000FF}, {28, 50, white}, {60, 50, white}}},
    {"points and unknown symbols are dots",
     Feature("'kind':'VDPOINT','colour':1,'position':[20,20,0]") + "," +
         Feature("'kind':'VDINSERT','colour':5,'position':[70,20,0],'block':'gone'"),
     "",
     {{20, 20, red}, {26, 20, white}, {70, 20, 0xFF0000FF}}},
    {"a river points along the line",
     Feature("'kind':'VDPOLYLINE','lineType':'LineRiver','colour':1,'vertices':[[0,50.5,0],[99,50.5,0]]"),
     "",
     {{5, 50, red}, {13, 50, white}, {20, 50, red}}},
};

TEST(Render, ShowsEntitiesAsTheirStyleSays) {
    for (const Look& look : looks) {
        QImage image = Picture(SceneOf(look.features, look.description));
        for (const Probe& probe : look.probes)
            EXPECT_EQ(image.pixel(int(probe.x), side - 1 - int(probe.y)), probe.colour)
                << look.what << ", at " << probe.x << " " << probe.y;
    }
}

/// The box of everything that is not white, on the ground.
Box InkOf(const QImage& image) {
    Box ink{side, side, 0, 0};
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (image.pixel(x, y) != white)
                ink.widen({double(x), double(side - 1 - y), double(x + 1), double(side - y)});
    return ink;
}

TEST(Render, PutsTextsWhereTheyBelong) {
    struct Case {
        std::string how;
        Box ink;
    };
    const std::string right = "1.5707963267948966";
    const Case cases[] = {{"", {50, 40, 81, 55}},
                          {",'rotation':" + right, {35, 40, 50, 71}},
                          {",'alignment':106", {34.5, 25, 65.5, 40}},
                          {",'alignment':24", {50, 40, 67, 49}}};
    for (const Case& wanted : cases) {
        Box ink = InkOf(Picture(
            SceneOf(Feature("'kind':'VDTEXT','text':'HH','position':[50,40,0],'height':20" + wanted.how))));
        for (auto member : {&Box::minX, &Box::minY, &Box::maxX, &Box::maxY})
            EXPECT_NEAR(ink.*member, wanted.ink.*member, 2.5) << wanted.how;
    }
}

Scene RandomLines(std::size_t count) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> anywhere(-20, 120);
    Drawing drawing;
    for (std::size_t i = 0; i < count; ++i) {
        drawing.setActiveColour(static_cast<drawing::Colour>(i % 200));
        drawing.addPolyline(std::vector<Point>{{anywhere(random), anywhere(random), 0},
                                               {anywhere(random), anywhere(random), 0},
                                               {anywhere(random), anywhere(random), 0}});
    }
    return SceneOfDrawing(drawing, {});
}

TEST(Render, IsTheSameOnAnyNumberOfThreads) {
    Scene scene = RandomLines(2000);
    PaintOptions alone, many;
    alone.threads = 1;
    many.threads = 7;
    EXPECT_EQ(Picture(scene, alone), Picture(scene, many));
}

TEST(Render, EndsWhenItIsStopped) {
    Scene scene = RandomLines(2000);
    std::stop_source stop;
    stop.request_stop();
    PaintOptions options;
    options.stop = stop.get_token();
    QImage image(side, side, QImage::Format_RGB32);
    EXPECT_FALSE(PaintScene(scene, View({0, 0, side, side}, side, side), image, options));
}

TEST(Render, CarriesOnWithHostileDrawings) {
    const double none = std::numeric_limits<double>::quiet_NaN(), far = std::numeric_limits<double>::max();
    const double values[] = {none, far, -far, 1e300, -1e18, 0, 1e-300};
    Drawing drawing;
    drawing::Style style;
    for (const char* lineType : {"", "DOT", "LineWetBed"})
        for (double a : values)
            for (double b : values) {
                style.lineType = lineType;
                style.lineWeight = a > 0 ? 2'000'000'000 : 0;
                drawing.setActiveStyle(style);
                drawing.addPolyline(std::vector<Point>{{a, b, 0}, {50, 50, 0}, {b, a, 0}}).setFilled(b > 0);
                drawing.addCircle({a, 50, 0}, b);
                drawing.addArc({50, b, 0}, a, b, a);
                drawing.addText({50, a, 0}, "text", b, a);
                drawing.addInsert({a, 50, 0}, "S", b, a, b);
                drawing.addPolyline();
            }
    drawing.addBlock({"S", "no drawing"});
    const Scene hostile = SceneOfDrawing(drawing, {}), empty;
    EXPECT_GT(hostile.LeftOut(), 0U);
    const Box extents[] = {hostile.Extents(),       FindUsualExtent(hostile).extent,
                           {0, 0, side, side},      {0, 0, 0, 0},
                           {none, far, -far, none}, {1e15, 1e15, 1e15 + 1e-9, 1e15}};
    for (const Scene* scene : {&hostile, &empty})
        for (const Box& extent : extents) {
            QImage image(side, side, QImage::Format_RGB32);
            PaintScene(*scene, View(extent, side, side), image);
            QPainter painter(&image);
            PaintScene(*scene, View(extent, side, side), painter);
            Furniture(*scene, "title", "note", side, side).Paint(View(extent, side, side), painter);
        }
}

std::uint64_t PaintedItems(const Scene& scene) {
    std::uint64_t count = scene.ItemCount();
    for (std::size_t i = 0; i < scene.ItemCount(); ++i)
        if (scene.At(i).kind == ItemKind::Symbol) count += PaintedItems(scene.SymbolOf(scene.At(i)));
    return count;
}

/// A symbol of four symbols of four symbols ... would draw millions of lines.
TEST(Render, BoundsSymbolsInSymbols) {
    std::string block = Feature("'kind':'VDLINE','vertices':[[0,0,0],[9,9,0]]"), description = "'blocks':[";
    for (int i = 0; i < 12; ++i) {
        std::string name = std::to_string(i);
        description += (i ? ",{'name':'" : "{'name':'") + name + "','entities':[" + block + "]}";
        std::string insert = Feature("'kind':'VDINSERT','position':[0,0,0],'block':'" + name + "'");
        block = insert + "," + insert + "," + insert + "," + insert;
    }
    Scene scene = SceneOf(Feature("'kind':'VDINSERT','position':[9,9,0],'block':'11'"), description + "]");
    EXPECT_GT(PaintedItems(scene), 10U);
    EXPECT_LT(PaintedItems(scene), 200'000U);
}

TEST(Render, LeavesStrayFeaturesOutOfAMap) {
    Scene together = RandomLines(200);
    EXPECT_EQ(FindUsualExtent(together).outside, 0U);
    EXPECT_EQ(FindUsualExtent(together).extent, together.Extents());
    Drawing drawing;
    for (int i = 0; i < 60; ++i) drawing.addPoint({double(i % 8), double(i / 8), 0});
    drawing.addLine({0, 0, 0}, {500000, 200000, 0});
    UsualExtent usual = FindUsualExtent(SceneOfDrawing(drawing, {}));
    EXPECT_EQ(usual.outside, 1U);
    EXPECT_EQ(usual.extent, (Box{0, 0, 7, 7}));
    // If half of the features are elsewhere, they are not strays.
    for (int i = 0; i < 60; ++i) drawing.addPoint({double(i % 8), 400000.0 + i / 8, 0});
    EXPECT_EQ(FindUsualExtent(SceneOfDrawing(drawing, {})).extent.maxX, 500000);
}

}  // namespace
}  // namespace vexlator::render

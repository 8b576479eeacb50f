// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "grpinfo/Svg.h"

#include "background/package/PackageElements.h"
#include "formats/xml/XmlText.h"
#include "platform/Files.h"
#include "util/JsonText.h"
#include "util/Numbers.h"

#include <algorithm>
#include <span>
#include <string>

namespace vexlator::grpinfo {

namespace {

using namespace background;

void WriteBase64(std::span<const std::byte> bytes, platform::OutputFile& file) {
    static constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        unsigned bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < count ? std::to_integer<unsigned>(bytes[i + k]) : 0);
        char* text = file.Reserve(4);
        for (std::size_t k = 0; k < 4; ++k) text[k] = k <= count ? digits[bits >> (18 - 6 * k) & 63] : '=';
        file.Advance(4);
    }
}

/// Ground units right and down from the north-west corner of the package.
class Picture {
public:
    Picture(const Box& box, platform::OutputFile& file) : box_(box), file_(file) {}

    void Begin(const std::string& title) {
        double width = std::max(box_.maxX - box_.minX, 1.0), height = std::max(box_.maxY - box_.minY, 1.0);
        double larger = std::max(width, height), margin = larger / 50;
        double wholeWidth = width + 2 * margin, wholeHeight = height + 2 * margin;
        double scale = pixels / std::max(wholeWidth, wholeHeight);
        std::string corner = Attribute("x", -margin) + Attribute("y", -margin);
        file_.Write("<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", wholeWidth * scale) +
                    Attribute("height", wholeHeight * scale) + " viewBox=\"" + Pair(-margin, -margin) + " " +
                    Pair(wholeWidth, wholeHeight) +
                    "\" fill=\"none\" stroke-linejoin=\"round\" stroke-linecap=\"round\" "
                    "font-family=\"sans-serif\">\n<title>");
        formats::WriteXmlText(file_, title);
        file_.Write("</title>\n<rect" + corner + Attribute("width", wholeWidth) +
                    Attribute("height", wholeHeight) + " fill=\"white\"/>\n");
        thin_ = Size(larger, 1);
        thick_ = Size(larger, 3);
        pointRadius_ = Size(larger, 2);
    }
    void End() { file_.Write("</svg>\n"); }

    void DrawImage(const ImageTile& image) {
        const formats::WorldFile& world = image.world;
        util::PlanePoint corner = world.Ground({0, 0});
        std::string matrix;
        for (double term : {world.a, -world.d, world.b, -world.e}) matrix += Precise(term) + " ";
        file_.Write("<image width=\"" + std::to_string(image.width) + "\" height=\"" +
                    std::to_string(image.height) + "\" transform=\"matrix(" + matrix +
                    Precise(Right(corner.x)) + " " + Precise(Down(corner.y)) +
                    ")\" href=\"data:image/jpeg;base64,");
        WriteBase64(image.jpeg, file_);
        file_.Write("\"/>\n");
    }
    void DrawArea(const PackageReader& package, const Element& area) {
        std::string path;
        for (const auto& ring : RingsOf(package, area)) path += Path(ring) + "Z";
        file_.Write("<path fill-rule=\"evenodd\" fill=\"" + LookOf(area.header).Colour() +
                    "\" fill-opacity=\"0.35\" d=\"" + path + "\"/>\n");
    }
    void DrawLine(const Element& line) {
        Look look = LookOf(line.header);
        if (line.points.size() == 1)
            file_.Write("<circle fill=\"" + look.Colour() + "\" r=\"" + pointRadius_ + "\" cx=\"" +
                        Number(Right(line.points[0].x)) + "\" cy=\"" + Number(Down(line.points[0].y)) +
                        "\"/>\n");
        else
            file_.Write("<path stroke=\"" + look.Colour() + "\" stroke-width=\"" +
                        (look.isThick ? thick_ : thin_) + "\" d=\"" + Path(line.points) + "\"/>\n");
    }
    void DrawText(const Element& text) {
        file_.Write("<text dominant-baseline=\"text-before-edge\" fill=\"" + LookOf(text.header).Colour() +
                    "\" font-size=\"" + Number(text.text.height / 10.0) + "\" transform=\"translate(" +
                    Pair(Right(text.text.x), Down(text.text.y)) + ") rotate(" +
                    Number(-text.text.rotation / 10.0) + ")\">");
        formats::WriteXmlText(file_, text.characters);
        file_.Write("</text>\n");
    }

private:
    static constexpr double pixels = 1000;  ///< pixels of the longer side

    static std::string Number(double value) { return util::FormatFixed(value, 2); }
    static std::string Precise(double value) {
        std::string text;
        util::AppendNumber(text, value);
        return text;
    }
    /// Of a line or point, in pixels.
    static std::string Size(double larger, double size) {
        return util::FormatFixed(larger / pixels * size, 4);
    }
    static std::string Attribute(const std::string& name, double value) {
        return " " + name + "=\"" + Number(value) + "\"";
    }
    static std::string Pair(double x, double y) { return Number(x) + " " + Number(y); }
    double Right(double x) const { return x - box_.minX; }
    double Down(double y) const { return box_.maxY - y; }
    std::string Path(const std::vector<util::PlanePoint>& points) const {
        std::string path;
        for (util::PlanePoint point : points)
            path += (path.empty() ? "M" : "L") + Pair(Right(point.x), Down(point.y));
        return path;
    }

    Box box_;
    platform::OutputFile& file_;
    std::string thin_, thick_, pointRadius_;  ///< in ground units
};

}  // namespace

void WriteSvg(const PackageReader& package, std::string_view path) {
    platform::OutputFile file(path);
    Picture picture(package.Extents(), file);
    picture.Begin(package.IndexName());
    ForEachImage(package, [&](const ImageTile& image) { picture.DrawImage(image); });
    ForEachElement(package, "A", [&](const PackageReader& member, const Tile&, const Element& area) {
        picture.DrawArea(member, area);
    });
    ForEachElement(package, "LR",
                   [&](const PackageReader&, const Tile&, const Element& line) { picture.DrawLine(line); });
    ForEachElement(package, "T",
                   [&](const PackageReader&, const Tile&, const Element& text) { picture.DrawText(text); });
    picture.End();
    file.Commit();
}

}  // namespace vexlator::grpinfo

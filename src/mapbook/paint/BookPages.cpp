// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/paint/BookPages.h"

#include "mapbook/paint/ReportPage.h"
#include "render/Course.h"
#include "render/RoundLengths.h"
#include "render/UsualExtent.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <stdexcept>
#include <utility>

namespace vexlator::mapbook {

namespace {

using drawing::Box;
using render::ItemKind;
using render::PlanePoint;
using render::Scene;

constexpr double mostGridCells = 1'000'000;
constexpr std::size_t mostGridPages = 5000;
constexpr std::string_view indexName = "Full Job";

Box Grown(const Box& box, double share) {
    double by = share * std::max(box.maxX - box.minX, box.maxY - box.minY);
    return {box.minX - by, box.minY - by, box.maxX + by, box.maxY + by};
}

/// Whether a course has a part inside a box.
bool CourseTouches(std::span<const PlanePoint> course, bool isClosed, const render::PixelBox& box) {
    for (std::size_t i = isClosed ? 0 : 1; i < course.size(); ++i) {
        PlanePoint from = course[i == 0 ? course.size() - 1 : i - 1], to = course[i];
        if (render::ClipSegment(box, from, to)) return true;
    }
    return false;
}

/// Whether something of an item is inside a box that meets the item's box.
bool Touches(const Scene& scene, const Scene::Item& item, const Box& ground) {
    const render::PixelBox box{ground.minX, ground.minY, ground.maxX, ground.maxY};
    std::span<const PlanePoint> vertices = scene.VerticesOf(item);
    if (item.kind == ItemKind::Line || item.kind == ItemKind::Ring)
        return CourseTouches(vertices, item.kind == ItemKind::Ring, box);
    if (item.kind != ItemKind::Area) return true;
    render::Course clipped, work;
    render::ClipRing(box, vertices.first(scene.RingEndsOf(item).front()), clipped, work);
    return !clipped.empty();
}

bool ShowsSomething(const Scene& scene, const Box& ground) {
    return std::ranges::any_of(scene.ItemsIn(ground),
                               [&](std::uint32_t item) { return Touches(scene, scene.At(item), ground); });
}

/// Frames of one size side by side over everything.
class Grid {
public:
    Grid(const Scene& scene, double width, double height)
        : scene_(scene), extent_(render::FindUsualExtent(scene).extent), width_(width), height_(height) {
        columns_ = std::max(1.0, std::ceil((extent_.maxX - extent_.minX) / width - 1e-9));
        rows_ = std::max(1.0, std::ceil((extent_.maxY - extent_.minY) / height - 1e-9));
        left_ = extent_.minX / 2 + extent_.maxX / 2 - columns_ * width / 2;
        top_ = extent_.minY / 2 + extent_.maxY / 2 + rows_ * height / 2;
        if (columns_ * rows_ > mostGridCells) Refuse();
    }

    std::vector<PageFrame> Frames() const {
        std::vector<PageFrame> frames;
        for (auto [row, column] : Candidates())
            if (Box ground = Cell(row, column); ShowsSomething(scene_, ground)) {
                if (frames.size() == mostGridPages) Refuse();
                frames.push_back({static_cast<int>(frames.size()) + 1, "", ground});
            }
        return frames;
    }

private:
    using Place = std::pair<int, int>;  ///< row from the top, column

    [[noreturn]] static void Refuse() {
        throw std::runtime_error("[PDF] Grid: the book would have more than " +
                                 util::GroupedCount(mostGridPages) +
                                 " pages; a larger number gives fewer pages");
    }
    Box Cell(int row, int column) const {
        return {left_ + column * width_, top_ - (row + 1) * height_, left_ + (column + 1) * width_,
                top_ - row * height_};
    }
    static int Clamped(double place, double count) {
        return static_cast<int>(std::clamp(std::floor(place), 0.0, count - 1));
    }
    std::set<Place> Candidates() const {
        std::set<Place> places;
        for (std::size_t i = 0; i < scene_.ItemCount(); ++i) {
            Box box = scene_.BoxOf(i);
            int first = Clamped((box.minX - left_) / width_, columns_),
                last = Clamped((box.maxX - left_) / width_, columns_);
            int top = Clamped((top_ - box.maxY) / height_, rows_),
                bottom = Clamped((top_ - box.minY) / height_, rows_);
            for (int row = top; row <= bottom; ++row)
                for (int column = first; column <= last; ++column) places.emplace(row, column);
        }
        return places;
    }

    const Scene& scene_;
    Box extent_;
    double width_, height_, columns_ = 1, rows_ = 1, left_ = 0, top_ = 0;
};

void LayGrid(BookPlan& plan, const Scene& scene, LayoutChoice choice) {
    choice.denominator = plan.grid;
    Box middle = scene.Extents();
    PageLayout page = LayoutFor({middle.minX, middle.minY, middle.minX, middle.minY}, choice);
    plan.frames =
        Grid(scene, page.ground.maxX - page.ground.minX, page.ground.maxY - page.ground.minY).Frames();
    std::erase_if(plan.frames, [&](const PageFrame& frame) {
        return frame.number < plan.least || frame.number > plan.most;
    });
    NameFrames(plan.frames, "Page", [](std::string_view) {});
}

/// The nearest frame that begins about where this one ends, by side.
Neighbours NeighboursOf(const std::vector<PageFrame>& frames, std::size_t number) {
    constexpr double reach = 0.25;  // of a frame's size: frames overlap, or leave a gap
    const Box& own = frames[number].ground;
    const double width = own.maxX - own.minX, height = own.maxY - own.minY;
    Neighbours neighbours;
    std::array<double, 4> nearest;
    nearest.fill(std::numeric_limits<double>::infinity());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const Box& other = frames[i].ground;
        bool meets = other.minX <= own.maxX + reach * width && other.maxX >= own.minX - reach * width &&
                     other.minY <= own.maxY + reach * height && other.maxY >= own.minY - reach * height;
        if (i == number || !meets) continue;
        double dx = (other.minX + other.maxX - own.minX - own.maxX) / 2 / std::max(width, 1e-12);
        double dy = (other.minY + other.maxY - own.minY - own.maxY) / 2 / std::max(height, 1e-12);
        bool isBeside = std::abs(dx) >= std::abs(dy);
        std::size_t side = isBeside ? (dx < 0 ? 0 : 2) : (dy > 0 ? 1 : 3);
        std::optional<int>* const sides[] = {&neighbours.left, &neighbours.top, &neighbours.right,
                                             &neighbours.bottom};
        double distance = std::hypot(dx, dy);
        if (distance < reach || distance >= nearest[side]) continue;
        nearest[side] = distance;
        *sides[side] = frames[i].number;
    }
    return neighbours;
}

BookPage IndexPage(const BookPlan& plan, const Scene& scene, const LayoutChoice& choice) {
    Box extent = Grown(render::FindUsualExtent(scene).extent, 0.02);
    for (const PageFrame& frame : plan.frames) extent.widen(Grown(frame.ground, 0.02));
    BookPage page{.name = std::string(indexName), .kind = PageKind::Index, .frame = extent};
    page.layout = LayoutFor(extent, choice);
    return page;
}

}  // namespace

std::vector<BookPage> PagesOf(BookPlan& plan, const Scene& scene, const SurveyReport& report,
                              const std::function<void(std::string_view)>& tell) {
    LayoutChoice choice{.paper = plan.paper, .metresPerUnit = MetresPerUnit(scene)};
    if (plan.frames.empty() && plan.grid > 0 && scene.ItemCount() > 0) LayGrid(plan, scene, choice);
    std::vector<BookPage> pages;
    for (std::size_t i = 0; i < plan.frames.size(); ++i) {
        const PageFrame& frame = plan.frames[i];
        if (!ShowsSomething(scene, frame.ground))
            tell("page " + frame.name + ": nothing of the drawing lies in its frame");
        BookPage page{.name = frame.name, .number = frame.number, .frame = frame.ground};
        page.layout = LayoutFor(frame.ground, choice);
        page.neighbours = NeighboursOf(plan.frames, i);
        pages.push_back(std::move(page));
    }
    for (std::size_t first = 0; first < report.entries.size(); first += reportRows) {
        BookPage page{.name = "Report-" + std::to_string(first / reportRows + 1), .kind = PageKind::Report};
        page.layout = LayoutFor({}, {.paper = "A4"});
        page.firstEntry = first;
        pages.push_back(std::move(page));
    }
    pages.push_back(IndexPage(plan, scene, choice));
    for (std::size_t i = 0; i < pages.size(); ++i)
        pages[i].count = std::to_string(i + 1) + " of " + std::to_string(pages.size());
    return pages;
}

double MetresPerUnit(const Scene& scene) {
    constexpr double metresPerDegree = 111'320;
    return scene.ItemCount() > 0 && render::IsInDegrees(scene.Extents()) ? metresPerDegree : 1;
}

std::vector<const render::SceneLayer*> LayersOn(const Scene& scene, const Box& ground) {
    std::vector<bool> isThere(scene.Layers().size());
    for (std::uint32_t item : scene.ItemsIn(ground)) isThere[scene.SourceOf(item).layer] = true;
    std::vector<const render::SceneLayer*> layers;
    for (std::size_t i = 0; i < isThere.size(); ++i)
        if (isThere[i]) layers.push_back(&scene.Layers()[i]);
    return layers;
}

}  // namespace vexlator::mapbook

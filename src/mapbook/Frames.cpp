// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/Frames.h"

#include "drawing/SymbolBlock.h"
#include "drawing/Vdf.h"
#include "mapbook/PageLayout.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Placement.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>

namespace vexlator::mapbook {

namespace {

using drawing::Box;

constexpr std::string_view numberNames[] = {"SEQ",  "SEQNO", "SEQUENCE", "SPACE",
                                            "PAGE", "SHEET", "NUMBER",   "NO"};
constexpr std::size_t mostDigits = 9;

std::optional<int> NumberIn(std::string_view value) {
    value = util::Trim(value, util::lineBlanks);
    bool isNumber = !value.empty() && value.size() <= mostDigits &&
                    std::ranges::all_of(value, [](char c) { return c >= '0' && c <= '9'; });
    return isNumber ? std::optional(static_cast<int>(util::IntegerOf(value))) : std::nullopt;
}

std::optional<int> NumberOf(const drawing::Entity& frame) {
    drawing::XProperties attributes = frame.xproperties();
    std::optional<int> first;
    for (std::size_t i = 0; i < attributes.count(); ++i) {
        std::optional<int> number = NumberIn(attributes.item(i).value());
        if (!number) continue;
        std::string_view name = attributes.name(i);
        auto isName = [&](std::string_view known) { return platform::SameNoCase(known, name); };
        if (std::ranges::any_of(numberNames, isName)) return number;
        if (!first) first = number;
    }
    return first;
}

/// The boxes of symbols, each read once.
class SymbolBoxes {
public:
    SymbolBoxes(const drawing::Drawing& drawing, const std::string& folder)
        : drawing_(drawing), folder_(folder) {}

    /// Nothing if the symbol draws nothing.
    const std::optional<Box>& Of(const std::string& name) {
        auto [known, isNew] = boxes_.try_emplace(name);
        if (isNew) known->second = Read(name);
        return known->second;
    }

private:
    std::optional<Box> Read(const std::string& name) const {
        drawing::Drawing content;
        try {
            const drawing::Block* block = drawing_.findBlock(name);
            std::string path = util::JoinPath(folder_, util::SafeFileName(name) + ".VDF");
            if (block && !block->content.empty())
                drawing::ReadVdf(*block, content);
            else if (!folder_.empty() && platform::FileExists(path))
                content.open(path);
        } catch (const platform::ReadError&) {
            return std::nullopt;
        }
        std::optional<Box> box = content.extentsOfAny();
        return box && box->maxX > box->minX && box->maxY > box->minY ? box : std::nullopt;
    }

    const drawing::Drawing& drawing_;
    std::string folder_;
    std::unordered_map<std::string, std::optional<Box>> boxes_;
};

Box GroundOf(const drawing::Entity& frame, const std::optional<Box>& symbol) {
    util::PlanePoint at = frame.planVertices().front();
    if (!symbol) return UsualFrame(at);
    const drawing::Shape& shape = frame.shape();
    util::Placement place = util::Placement().Within(at, shape.scaleX, shape.scaleY, shape.rotation);
    std::optional<Box> box;
    for (util::PlanePoint corner : {util::PlanePoint{symbol->minX, symbol->minY},
                                    {symbol->maxX, symbol->minY},
                                    {symbol->maxX, symbol->maxY},
                                    {symbol->minX, symbol->maxY}}) {
        util::PlanePoint p = place(corner);
        Box point{p.x, p.y, p.x, p.y};
        if (box)
            box->widen(point);
        else
            box = point;
    }
    return *box;
}

}  // namespace

std::vector<PageFrame> FindFrames(drawing::DrawingFile& file, const FrameChoice& choice,
                                  const std::function<void(std::string_view)>& tell) {
    std::vector<PageFrame> frames;
    const drawing::Layer* layer = choice.layer.empty() ? nullptr : file.Current().findLayer(choice.layer);
    if (!layer) return frames;
    SymbolBoxes symbols(file.Current(), choice.symbolsFolder);
    const std::string name = layer->name;
    int place = 0;
    file.ForEachChunk([&](drawing::Drawing& chunk) {
        chunk.forEach([&](const drawing::Entity& entity) {
            bool isFrame = entity.kindCode() == drawing::Kind::Insert && entity.layerName() == name &&
                           entity.vertexCount() > 0;
            if (!isFrame) return;
            int number = NumberOf(entity).value_or(++place);
            if (number >= choice.least && number <= choice.most)
                frames.push_back({number, "", GroundOf(entity, symbols.Of(entity.blockName()))});
        });
    });
    NameFrames(frames, name, tell);
    return frames;
}

void NameFrames(std::vector<PageFrame>& frames, std::string_view layer,
                const std::function<void(std::string_view)>& tell) {
    std::ranges::stable_sort(frames, {}, &PageFrame::number);
    int same = 1;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        same = i > 0 && frames[i].number == frames[i - 1].number ? same + 1 : 1;
        std::string name = std::string(layer) + "-" + std::to_string(frames[i].number);
        if (same > 1) tell("page " + name + " is there " + std::to_string(same) + " times");
        frames[i].name = util::SafeFileName(same > 1 ? name + "_" + std::to_string(same) : name);
    }
}

}  // namespace vexlator::mapbook

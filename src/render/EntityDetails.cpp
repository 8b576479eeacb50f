// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/EntityDetails.h"

#include "drawing/DrawingFile.h"
#include "util/Numbers.h"

namespace vexlator::render {

namespace {

using drawing::Entity;
using drawing::Kind;

std::string KindInWords(const Entity& entity) {
    switch (entity.kindCode()) {
        case Kind::Polyline:
            return entity.isFilled() ? "area" : entity.isClosed() ? "closed polyline" : "polyline";
        case Kind::Line:
            return "line";
        case Kind::Circle:
            return entity.isFilled() ? "filled circle" : "circle";
        case Kind::Arc:
            return "arc";
        case Kind::Text:
            return "text";
        case Kind::Insert:
            return "symbol";
        case Kind::Point:
            return "point";
        case Kind::Other:
            break;
    }
    return std::string(entity.kind());
}

EntityDetails InWords(const Entity& entity) {
    EntityDetails details{entity.layerName(),
                          KindInWords(entity),
                          entity.handle(),
                          entity.length(),
                          entity.vertexCount(),
                          {},
                          {}};
    auto say = [&](const char* name, std::string_view text) {
        if (!text.empty()) details.texts.emplace_back(name, text);
    };
    say("Text", entity.text());
    if (entity.kindCode() == Kind::Insert) say("Symbol", entity.blockName());
    if (entity.kindCode() == Kind::Circle || entity.kindCode() == Kind::Arc)
        say("Radius", util::FormatShortest(entity.radius()));
    if (!entity.heights().empty()) say("Height", util::FormatShortest(entity.heights().front()));
    say("Label", entity.label());
    say("Link", entity.hyperlink());
    drawing::XPropertiesView attributes = entity.xproperties();
    drawing::ValueCursor values = attributes.values();
    for (std::size_t i = 0; !values.AtEnd(); ++i)
        details.attributes.emplace_back(attributes.name(i), values.Next());
    return details;
}

}  // namespace

std::optional<EntityDetails> DetailsOf(std::string_view path, std::uint32_t entity) {
    drawing::DrawingFile file(path);
    std::uint32_t passed = 0;
    std::optional<Entity> found = file.FindFirst([&](const Entity&) { return passed++ == entity; });
    if (!found) return std::nullopt;
    return InWords(*found);
}

}  // namespace vexlator::render
